#include "src/piecework/f_est_stucklohn.h"

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/common/view_switch.h"
#include "src/context/values/field_text.h"
#include "src/piecework/f_est_stucklohn_sql.h"

namespace tarvoni {

namespace sql = est_stucklohn_sql;

namespace {

// What the suite calls the columns.
constexpr std::int32_t kSpecies = 178;
constexpr std::int32_t kQuantity = 558;
constexpr std::int32_t kSolidMetres = 594;
constexpr std::int32_t kPieces = 663;
constexpr std::int32_t kDiameter = 664;
constexpr std::int32_t kLogNumber = 682;
constexpr std::int32_t kGrade = 684;
constexpr std::int32_t kSizeClass = 686;
constexpr std::int32_t kSplitPart = 1126;
constexpr std::int32_t kSurchargeMark = 1129;
constexpr std::int32_t kStackedMetres = 1145;
constexpr std::int32_t kSurcharge = 1430;

constexpr const char* kMonth = "00";
constexpr const char* kWhole = "#########0";

}  // namespace

F_EST_Stucklohn::F_EST_Stucklohn() : Screen("F_EST_Stucklohn") {
  logs_.Connect([this] { ShowCurrentRow(); }, [this] { return Columns(); }, &btnBearbeiten);
  KeepLayout(MSFGSonder, "F_EST_STUCKLOHN_MSFG");
  ConnectFields();
  ConnectLists();
  ConnectButtons();
}

void F_EST_Stucklohn::Run(const TvnVar_Dll& tvnvar, std::int32_t ID_Mandant_dll,
                          std::int32_t ID_ARA_Kopf_dll) {
  ID_Mandant_dll_ = ID_Mandant_dll;
  ID_ARA_Kopf_dll_ = ID_ARA_Kopf_dll;
  Present(tvnvar, [this] {
    groupings_ = {.grade = OptionNumber("STANDARD_HS"), .species = OptionNumber("STANDARD_HA")};
    chkARAUntypisch.SetVisible(OptionNumber("ARAUNTYPISCH") != 1);
    CurrentLogId = 0;
    order_name_ = GetNameById("ARA_KOPF", ID_ARA_Kopf_dll_, Db());
    ReloadAndReposition();
    SetViewState(true);
  });
}

// --- fields ---

void F_EST_Stucklohn::ConnectFields() {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtESTMerkmal[0]).Code(est_);
  Rules(txtRindenzustand[0]).Code(bark_);
  Rules(txtVorlieferstufe[0]).Code(skidding_);
  Rules(txtDMSchichtholz).Number(kWhole);
  // The pay month belongs to the lists: without one, no key gets into it.
  txtAbrechnungsmonat[1].KeyPress.Add(Turn::kFilter, [this](int& key) {
    if (!lists_.HasAssigned()) key = 0;
  });
  Rules(txtAbrechnungsmonat[1]).Number(kMonth).Left([this] { MonthLeft(); });
}

CodeField::Rule F_EST_Stucklohn::MarkRule(const std::string& stem, const TextBox& mark,
                                          const Label& label) const {
  return {.offered = [this, stem] { return GetNamedSql(Context(), stem + "_GRID", {}); },
          .check = [this, stem,
                    &mark] { return GetNamedSql(Context(), stem + "_LOGS_VALID", {TypedCode(mark.Text())}); },
          .caption = [&label] { return label.Caption(); },
          .name_column = "LONG"};
}

// --- the list ---

void F_EST_Stucklohn::ReloadAndReposition() {
  LoadEstData();
  if (CurrentLogId == 0) return logs_.MoveFirst();
  logs_.Find(CurrentLogId);
}

void F_EST_Stucklohn::LoadEstData() {
  logs_.Load(est_pricing::LogsOfOrder(ID_ARA_Kopf_dll_, groupings_));
  LoadSurcharges();
}

std::vector<ShownColumn> F_EST_Stucklohn::Columns() const {
  return {{.data_field = "LISTE", .caption = frmHAB.Caption(), .width = 1550},
          {.data_field = "BLNR", .caption = Message(kLogNumber), .width = 930},
          {.data_field = "HA", .caption = Message(kSpecies), .width = 750},
          {.data_field = "HS", .caption = Message(kGrade), .width = 650},
          {.data_field = "EST", .caption = lblESTMerkmal.Caption(), .width = 1280},
          {.data_field = "MEFVERF", .caption = lblRindenzustand.Caption(), .width = 1480},
          {.data_field = "RUCKE", .caption = lblVorlieferstufe.Caption(), .width = 1300},
          FigureColumn("SPALT", Message(kSplitPart), 1300),
          {.data_field = "STKL", .caption = Message(kSizeClass), .width = 1250},
          FigureColumn("DURCH", Message(kDiameter), 1320, "0"),
          AmountColumn("STK", Message(kPieces), 650, "0"),
          AmountColumn("FM", Message(kSolidMetres), 1030),
          AmountColumn("RM", Message(kStackedMetres), 1180),
          QuantityColumn("MENGE", "WARENEINHEITEINHEIT", Message(kQuantity), 800),
          AmountColumn("WARENEINHEITEINHEIT", Message(message::kUnit), 760),
          FigureColumn("TAZ", "T-AZ", 680),
          FigureColumn("TMZ", "T-MZ", 680),
          AmountColumn("AZ", "AZ", 800),
          AmountColumn("MZ", "MZ", 800)};
}

// Of the list that is chosen at this moment.
void F_EST_Stucklohn::LoadSurcharges() {
  Recordset surcharges =
      Open(sql::SurchargesOfList(listeSel.Text(), Message(kSurchargeMark), Message(kSurcharge)));
  const std::vector<Column>& columns = surcharges.Columns();
  MSFGSonder.SetCols(static_cast<int>(columns.size()));
  MSFGSonder.SetRows(1);
  for (int i = 0; i < MSFGSonder.Cols(); ++i)
    MSFGSonder.SetTextMatrix(0, i, columns[static_cast<std::size_t>(i)].name);
  MSFGSonder.Columns()[1].SetAlignment(Alignment::kRight);
  for (; !surcharges.EndOfFile(); surcharges.MoveNext()) {
    const FieldList field = surcharges.Fields();
    MSFGSonder.AddItem({ToText(field[0].Value()), FieldText(field[1].Value(), "0.00", CurrentLocale())});
  }
}

// --- the current row ---

void F_EST_Stucklohn::ShowCurrentRow() {
  const auto hold = IsLoading.Hold();
  const CurrentRow row = logs_.Row();
  if (!IsShown() || btnSpeichern.Enabled()) LoadLists(row);
  chkARAUntypisch.SetChecked(row.Flag("UNTYPISCH"));
  chkWerkzeuggeld.SetChecked(row.Flag("WERKZEUGGELD"));
  ShowMonth(row);
  row.ShowCode("EST", "ESTSHORT", "ESTLONG", txtESTMerkmal);
  row.ShowCode("MEFVERF", "MEFVERFSHORT", "MEFVERFLONG", txtRindenzustand);
  row.ShowCode("RUCKE", "RUCKESHORT", "RUCKELONG", txtVorlieferstufe);
  row.Show("DURCH", txtDMSchichtholz, "0");
  SetTextBoxLocked(!row.Flag("HOLZSORTESCHICHT"), txtDMSchichtholz);
  row.Show("LISTE", txtHAB);
  ShowSurcharges(row);
  CurrentLogId = row.Number("ID_LOG");
  SetSubject("Auftrag " + order_name_ +
             (CurrentLogId == 0 ? "" : ", HAB " + txtHAB.Text() + ", Bloch " + row.Text("BLNR")));
  SetViewState(true);
}

void F_EST_Stucklohn::ShowMonth(const CurrentRow& row) {
  pay_month_.Clear();
  row.Show("ABRECHNUNGSMONAT", txtAbrechnungsmonat[1], kMonth);
  pay_month_.LeaveMonth();
  row.Show("ABRECHNUNGSJAHR", txtAbrechnungsmonat[3], "0000");
}

void F_EST_Stucklohn::ShowSurcharges(const CurrentRow& row) {
  row.Show("ZUSCHLAG_A", txtZuschlagA);
  row.Show("A_FICHTE", txtA_Fichte);
  row.Show("A_TANNE", txtA_Tanne);
  row.Show("A_KIEFER", txtA_Kiefer);
  row.Show("A_BUCHE", txtA_Buche);
  row.Show("A_EICHE", txtA_Eiche);
  row.Show("M_FICHTE", txtM_Fichte);
  row.Show("M_TANNE", txtM_Tanne);
  row.Show("M_KIEFER", txtM_Kiefer);
  row.Show("M_BUCHE", txtM_Buche);
  row.Show("M_EICHE", txtM_Eiche);
}

// --- view and edit ---

// A closed month blocks editing, and nothing else.
void F_EST_Stucklohn::SetViewState(bool view) {
  const CurrentRow row = logs_.Row();
  btnBearbeiten.SetEnabled(view && !logs_.Empty() && row.Number("MODIFY") == 0);
  ViewSwitch({&btnClose, &btnAusdruck, &DataGridEST, &AdodcEST},
             {&btnAbbrechen, &btnSpeichern, &frmKennzeichen, &frmZuordnung, &Frame1})
      .Set(view);
  const bool takes_lists = row.Flag("LEISTUNGSARTALLOW_HOLZ");
  for (Button* move : {&cmdAddAll, &cmdAddSel, &cmdDelSel, &cmdDelAll}) move->SetEnabled(takes_lists);
}

}  // namespace tarvoni

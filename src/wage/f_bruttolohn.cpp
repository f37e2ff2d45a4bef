#include "src/wage/f_bruttolohn.h"

#include <array>
#include <ranges>
#include <utility>

#include "src/common/box_rules.h"
#include "src/common/product_order.h"
#include "src/common/view_switch.h"
#include "src/context/rules/wage_journal.h"
#include "src/wage/shown_month.h"

namespace tarvoni {
namespace {

constexpr const char* kAmount = "0.00";

struct SummaryColumn {
  const char* caption;
  int width;  // twips
  Alignment alignment = Alignment::kLeft;
  bool sums = true;
  int unit = GridColumn::kNoUnit;
};
constexpr std::array<SummaryColumn, 9> kSummary = {{{"Lohnart", 1000},
                                                    {"Wert", 1000, Alignment::kRight, true, 2},
                                                    {"Einheit", 1200},
                                                    {"Satz", 1000, Alignment::kRight, false},
                                                    {"Betrag", 1200, Alignment::kRight},
                                                    {"PA-Nr", 2200},
                                                    {"ARA Nr.", 1900},
                                                    {"Verlohn.", 1400},
                                                    {"Waldort", 4200}}};
constexpr int kMonthSummary = 9;  // mode of PrintRows

// The parts between the separators; none of an empty text.
std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  for (const auto part : std::views::split(text, separator)) parts.emplace_back(part.begin(), part.end());
  return parts;
}

}  // namespace

F_Bruttolohn::F_Bruttolohn() : Screen("F_Bruttolohn") {
  KeepLayout(MSFlexGrid1, "F_BRUTTOLOHN_MSFG");
  KeepLayout(DataGridBruttoLohn, "F_BRUTTOLOHN_DATAGRID");
  lines_.Connect([this] { ShowCurrentRow(); }, [this] { return Columns(); }, &btnBearbeiten);
  ConnectFields();
  ConnectButtons();
}

void F_Bruttolohn::Run(const TvnVar_Dll& tvnvar, std::int32_t Id_StundenBuch) {
  curHeaderId = Id_StundenBuch;
  Present(tvnvar, [this] {
    curFwj = OptionText("STANDARD_FWJ");
    const bool with_percentage = OptionNumber("ARAPERCENTSATZ") != 1;
    lblProzentsatz.SetVisible(with_percentage);
    txtProzentsatz.SetVisible(with_percentage);
    curLineId = 0;
    Reload();
    FillSummary();
  });
}

void F_Bruttolohn::ConnectFields() {
  ConnectBoxes(*this, TabOnEnter(*this));
  for (TextBox* year : {&txtFWJ, &txtVerlohnungs[3], &txtAuszahlungsmonat[3]}) TakesYear(*year);
  Rules(txtFWJ).Number("0000");
  Rules(txtVerlohnungs[1]).Number("00").Month(pay_month_).Left([this] { DayLeft(); });
  Rules(txtVerlohnungs[3]).Number("0000").Left([this] { DayLeft(); });
  Rules(txtTag).Number("00").Left([this] { DayLeft(); });
  Rules(txtLohnart[0]).Keys("#########0").Code(wage_type_).Left([this] { WageTypeLeft(); });
  Rules(txtAuszahlungsmonat[1]).Number("00").Month(paying_month_);
  Rules(txtAuszahlungsmonat[3]).Number("0000");
  Rules(txtWert).Number("-###0.00").Left([this] { ShowAmount(); });
  Rules(txtProzentsatz).Number("-##0.00").Left([this] { ShowAmount(); });
  Rules(txtKostenstelle[0]).Code(cost_centre_);
  Rules(txtProduktauftragNr[0]).Code(product_order_).Left([this] { ProductOrderLeft(); });
  Rules(txtLeistungsart[0]).Code(work_type_);
  Rules(txtVerfahren[0]).Code(method_);
  Rules(txtObjekt[0]).Code(object_);
  wage_type_.Changed = [this] { wage_type_changed_ = true; };
  txtProzentsatz.Change = [this] {
    if (!loadingFlag) ShowAmount();
  };
}

// --- the list ---

void F_Bruttolohn::Reload() {
  if (std::exchange(summary_is_old_, false)) FillSummary();
  ShowUnit("");  // for the grid's head; a row shows its own unit
  lines_.Load(LinesOfJournal(curHeaderId));
  const auto hold = loadingFlag.Hold();
  if (curLineId != 0) lines_.Find(curLineId);
  ShowCurrentRow();
}

std::vector<ShownColumn> F_Bruttolohn::Columns() const {
  return {{.data_field = "STUNDENBUCHTAG", .caption = lblTag.Caption(), .number_format = "00", .width = 650},
          {.data_field = "LOHNARTENNUMBER", .caption = lblLohnart.Caption(), .width = 1000},
          QuantityColumn("STUNDENBUCHSTUNDEN", "EINHEITNAME", lblWert.Caption(), 1000, ""),
          {.data_field = "EINHEITNAME", .caption = "", .width = 1200},
          FigureColumn("SATZ", lblSatz.Caption(), 1000, ""),
          FigureColumn("PROZENTSATZ", lblProzentsatz.Caption(), 900),
          AmountColumn("BETRAG", lblBetrag.Caption(), 1200),
          {.data_field = "KOSTENSTELLENUMBER", .caption = lblKostenstelle.Caption(), .width = 1300},
          {.data_field = "ARBEITSAUFTRAG_KOPFNAME", .caption = lblProduktauftragNr.Caption(), .width = 2200},
          {.data_field = "LEISTUNGSARTNUMBER", .caption = lblLeistungsart.Caption(), .width = 1450},
          {.data_field = "OBJEKTNUMBER", .caption = lblObjekt.Caption(), .width = 1100}};
}

void F_Bruttolohn::ShowCurrentRow() {
  const auto hold = loadingFlag.Hold();
  const CurrentRow row = lines_.Row();
  row.ShowCode("ID_MANDANTEN", "MANDANTENNUMMER", "MANDANTENKURZBEZEICHNUNG", txtForstbetrieb);
  row.ShowCode("ARBEITERID_PERSONAL", "ARBEITERNUMMER", "ARBEITER", txtArbeitnehmer);
  ShowMonth(row, "MONAT", "JAHR", working_month_);
  row.Show("FWJ", txtFWJ, "0000");
  ShowMonth(row, "MONTHVERLOHNUNG", "YEARVERLOHNUNG", pay_month_);
  row.Show("STUNDENBUCHTAG", txtTag, "00");
  row.ShowCode("ID_LOHNARTEN", "LOHNARTENNUMBER", "LOHNARTENNAME", txtLohnart);
  ShowMonth(row, "MONTHAUSZAHLUNGSMONAT", "YEARAUSZAHLUNGSMONAT", paying_month_);
  row.Show("STUNDENBUCHSTUNDEN", txtWert, kAmount);
  ShowUnit(row.Text("EINHEITNAME"));
  row.Show("SATZ", txtSatz, kAmount);
  row.Show("PROZENTSATZ", txtProzentsatz, kAmount);
  row.Show("BETRAG", txtGesamtbetrag, kAmount);
  row.ShowCode("KOSTENSTELLEID", "KOSTENSTELLENUMBER", "KOSTENSTELLENAME", txtKostenstelle);
  txtProduktauftragNr[0].SetTag(row.Text("ARBEITSAUFTRAG_KOPFID"));
  ShowProductOrder(row.Text("ARBEITSAUFTRAG_KOPFNAME"), txtProduktauftragNr);
  row.ShowCode("LEISTUNGSARTID", "LEISTUNGSARTNUMBER", "LEISTUNGSARTNAME", txtLeistungsart);
  row.ShowCode("VERFAHRENID", "VERFAHRENNUMBER", "VERFAHRENNAME", txtVerfahren);
  row.ShowCode("OBJEKTID", "OBJEKTNUMBER", "OBJEKTNAME", txtObjekt);
  curProduktId = row.Number("PRODUKT_ID");
  curLineId = row.Number("ID");
  SetSubject(Worker() + (curLineId == 0 ? ""
                                        : ", Tag " + txtTag.Text() + ", " + lblLohnart.Caption() + " " +
                                              txtLohnart[0].Text()));
  priced_day_ = DayText();
  SetViewState(true);
}

// Whose journal it is, and of which month.
std::string F_Bruttolohn::Worker() const {
  return "Forstbetrieb " + txtForstbetrieb[0].Text() + ", " + txtArbeitnehmer[0].Text() + " " +
         txtArbeitnehmer[1].Text() + ", " + txtBearbeitungsmonat[2].Text() + " " +
         txtBearbeitungsmonat[3].Text();
}

void F_Bruttolohn::SetViewState(bool bolView) {
  ViewSwitch({&btnClose, &DataGridBruttoLohn},
             {&btnSpeichern[0], &btnSpeichern[1], &btnAbbrechen, &frmStammdaten, &frmVerlohnungs,
              &frmErfassung, &frmErfassungKLR})
      .Set(bolView);
  const CurrentRow row = lines_.Row();
  const bool open = bolView && row.Number("DISABLEBUTTONS") == 0;
  btnNeu.SetEnabled(open);
  btnBearbeiten.SetEnabled(open && !row.IsNull("ID"));
  btnLoschen.SetEnabled(open && !row.IsNull("ID"));
}

// --- the month's summary ---

void F_Bruttolohn::FillSummary() {
  if (MSFlexGrid1.Cols() == 0) ShapeSummary();
  std::string text = SummaryText();
  if (text.ends_with("\r\n")) text.resize(text.size() - 2);
  MSFlexGrid1.SetRows(1);
  for (const std::string& line : Split(text, "\r\n")) {
    std::vector<std::string> cells = Split(line, "\t");
    cells.resize(kSummary.size());
    MSFlexGrid1.AddItem(cells);
  }
}

void F_Bruttolohn::ShapeSummary() {
  MSFlexGrid1.SetCols(static_cast<int>(kSummary.size()));
  for (int i = 0; i < MSFlexGrid1.Cols(); ++i) {
    const SummaryColumn& column = kSummary.at(static_cast<std::size_t>(i));
    MSFlexGrid1.SetTextMatrix(0, i, column.caption);
    MSFlexGrid1.Columns()[i].SetWidth(column.width);
    MSFlexGrid1.Columns()[i].SetAlignment(column.alignment);
    MSFlexGrid1.Columns()[i].SetSums(column.sums);
    MSFlexGrid1.Columns()[i].SetUnitColumn(column.unit);
  }
}

// The worker's hours on wage orders, then the journal's own lines.
std::string F_Bruttolohn::SummaryText() const {
  Recordset first = AdodcBruttoLohn.Recordset().Rows();
  if (first.RecordCount() == 0) return "";
  first.MoveFirst();
  const auto number = [&first](const char* column) { return ReadId(first.Fields()[column].Value()); };
  std::string text;
  for (bool own_lines : {false, true}) {
    Value rows;
    CurrentSuite().Reports().PrintRows(Context(), curHeaderId, number("ID_MANDANTEN"), number("JAHR"),
                                       number("MONAT"), kMonthSummary, own_lines, rows);
    text += ToText(rows);
  }
  return text;
}

}  // namespace tarvoni

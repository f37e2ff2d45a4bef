#include "src/wage/f_ara.h"

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/common/product_order.h"
#include "src/common/view_switch.h"
#include "src/context/data/statement.h"
#include "src/context/rules/wage_group.h"
#include "src/context/rules/wage_rules.h"
#include "src/context/values/number_text.h"
#include "src/wage/f_ara_sql.h"

namespace tarvoni {

namespace sql = ara_sql;

F_ARA::F_ARA() : Screen("F_ARA") {
  DataGridArbeitsauftrag.SetStruck("STATUSKOPF", "S");
  orders_.Connect([this] { ShowCurrentRow(); }, [this] { return Columns(); }, &btnBearbeiten);
  ConnectFields();
  ConnectButtons();
}

void F_ARA::Run(const TvnVar_Dll& tvnvar, const std::string& strPersonal_dll, std::uint8_t /*mode_dll*/) {
  curPersonal = ToInt32(strPersonal_dll, CurrentLocale());
  Present(tvnvar, [this] {
    curFwj = OptionText("STANDARD_FWJ");
    saVerfahrenFlag = OptionNumber("SA_VERFAHREN") == 1;
    curAraId = 0;
    LoadGridAndPosition();
    SetViewState(true);
  });
}

// --- fields ---

void F_ARA::ConnectFields() {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtArbeitsauftrag).Number("0000");
  Rules(txtLeistung[0]).Code(leistung_);
  Rules(txtKostenstelle[0]).Code(kostenstelle_).Left([this] { CostCentreLeft(); });
  Rules(txtProduktauftragNr[0]).Code(produktauftrag_).Left([this] { ProductOrderLeft(); });
  Rules(txtLeistungsart[0]).Code(leistungsart_);
  Rules(txtWaldort).Code(waldort_);
  Rules(txtRotte[0]).Number("000").Code(rotte_);
  Rules(txtFlache).Number("-######0.0000");
  Rules(txtMenge).Number("-######0.00");
  Rules(txtGesamtKosten).Number("-######0.00");
  Rules(txtKostenstelleSel[0]).Code(kostenstelleSel_);
  Rules(txtLeistungsartSel[0]).Code(leistungsartSel_);
  kostenstelleSel_.Changed = [this] { SelectionChanged(); };
  leistungsartSel_.Changed = [this] { SelectionChanged(); };
}

// The selection stays open while an order is edited, and another selection ends that: not without a question.
void F_ARA::SelectionChanged() {
  const bool editing = btnAbbrechen.Enabled();
  const int style = kBoxYesNo + kBoxQuestion + kBoxSecondIsDefault;
  if (editing && !Ask("Mit der Selektion wird die Liste neu gelesen. Die Eingaben verwerfen?", style))
    return selection_.PutBack();
  selection_.Remember();
  editing ? btnAbbrechen.Press() : LoadGridAndPosition();
}

void F_ARA::Selection::Remember() {
  for (std::size_t i = 0; i < boxes.size(); ++i) shown.at(i) = {boxes.at(i)->Text(), boxes.at(i)->Tag()};
}

void F_ARA::Selection::PutBack() {
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    boxes.at(i)->SetText(shown.at(i).text);
    boxes.at(i)->SetTag(shown.at(i).tag);
  }
}

// A changed cost centre or product order tests what hangs on it anew, without a word.
void F_ARA::CostCentreLeft() {
  const auto hold = loadingFlag.Hold();
  txtProduktauftragNr[1].SetText(txtForstbetrieb.Text() + txtFWJ.Text() + txtKostenstelle[0].Text());
  txtProduktauftragNr[0].LostFocus();
}

void F_ARA::ProductOrderLeft() {
  const std::string& id = txtProduktauftragNr[0].Tag();
  if (!id.empty()) curProduktId = ReadNumber(ProductOfOrder(id));
  const auto hold = loadingFlag.Hold();
  txtLeistungsart[0].LostFocus();
}

SqlText F_ARA::ProductOrderFilter() const {
  return sql::FitsService(txtLeistung[0].Text(), curAraId);
}

SqlText F_ARA::WorkTypeFilter() const {
  return sql::WorkTypeFits(curProduktId, txtLeistung[0].Text(), curAraId);
}

CodeField::Rule F_ARA::SelectedCostCentreRule() {
  return {.offered =
              [this] {
                return sql::CostCentresInUse({curPersonal, curFwj}, txtLeistungsartSel[0].Tag());
              },
          .check =
              [this] {
                return sql::FindCostCentreInUse({curPersonal, curFwj}, txtKostenstelleSel[0].Text(),
                                                txtLeistungsartSel[0].Tag());
              },
          .caption = [this] { return lblKostenstelleSel.Caption(); },
          .name_column = "NAME"};
}

CodeField::Rule F_ARA::SelectedWorkTypeRule() {
  return {.offered =
              [this] {
                return sql::WorkTypesInUse({curPersonal, curFwj}, txtKostenstelleSel[0].Tag());
              },
          .check =
              [this] {
                return sql::FindWorkTypeInUse({curPersonal, curFwj}, txtLeistungsartSel[0].Text(),
                                              txtKostenstelleSel[0].Tag());
              },
          .caption = [this] { return lblLeistungsartSel.Caption(); },
          .name_column = "LONG"};
}

CodeField::Rule F_ARA::ServiceRule() {
  return {.offered = sql::Services,
          .check = [this] { return sql::FindService(txtLeistung[0].Text()); },
          .caption = [this] { return lblLeistung.Caption(); },
          .name_column = "LANGNAME"};
}

CodeField::Rule F_ARA::CostCentreRule() {
  return NamedCode(Context(), txtKostenstelle[0], lblKostenstelle, "KOSTENSTELLE", "NAME",
                   [this] { return NamedValues{Given(curPersonal)}; });
}

CodeField::Rule F_ARA::ProductOrderRule() {
  auto rule = NamedCode(Context(), txtProduktauftragNr[0], lblProduktauftragNr, "PA_KOPF", "", [this] {
    return NamedValues{Given(curPersonal), Given(curFwj), Given(txtKostenstelle[0].Text()),
                       Condition(ProductOrderFilter())};
  });
  rule.option = "100";
  return rule;
}

CodeField::Rule F_ARA::WorkTypeRule() {
  return NamedCode(Context(), txtLeistungsart[0], lblLeistungsart, "LEISTUNGSART_PRODUKT", "LONG",
                   [this] { return NamedValues{Condition(WorkTypeFilter())}; });
}

CodeField::Rule F_ARA::TeamRule() {
  return NamedCode(Context(), txtRotte[0], lblRotte, "RELTABLES", "LONG",
                   [this] { return NamedValues{Given(OptionNumber("STANDARD_ROTTE"))}; });
}

// --- the list ---

void F_ARA::LoadGridAndPosition() {
  orders_.Load(sql::OrdersOfYear({curPersonal, curFwj}, StundenCase(), txtKostenstelleSel[0].Tag(),
                                 txtLeistungsartSel[0].Tag()));
  if (btnAbbrechen.Enabled()) EndEdit();
  if (orders_.Empty()) return SetViewState(true);
  if (curAraId == 0) curAraId = orders_.CurrentId();
  if (curAraId == 0) return orders_.MoveFirst();
  orders_.Find(curAraId);
}

const SqlText& F_ARA::StundenCase() {
  if (!stundenCaseText.Empty()) return stundenCaseText;
  SqlText whens;
  for (Recordset types = Open(DirectWageTypes()); !types.EndOfFile(); types.MoveNext()) {
    whens = Compose("{} WHEN {} THEN {}", whens, Id(ToLong(types.Fields()["TYP"].Value())),
                    Id(ToLong(types.Fields()["ID"].Value())));
  }
  return stundenCaseText =
             whens.Empty() ? SqlText("0") : Compose("CASE BBF_GRUPPE.NUMBER{} ELSE 0 END", whens);
}

std::vector<ShownColumn> F_ARA::Columns() const {
  return {{.data_field = "STATUSKOPF", .caption = Message(message::kStatus), .width = 670},
          {.data_field = "NAME", .caption = frmArbeitsauftrag.Caption(), .width = 1560},
          {.data_field = "DATUM_NR",
           .caption = lblErstellungsDatum.Caption(),
           .number_format = "dd.mm.yyyy",
           .width = 1670},
          {.data_field = "LEISTUNGKURZNAME", .caption = lblLeistung.Caption(), .width = 880},
          {.data_field = "KOSTENSTELLENUMBER", .caption = lblKostenstelle.Caption(), .width = 1190},
          {.data_field = "LEISTUNGSARTNUMBER", .caption = lblLeistungsart.Caption(), .width = 1300},
          {.data_field = "ARBEITSAUFTRAG_KOPFNAME", .caption = lblProduktauftragNr.Caption(), .width = 1950},
          {.data_field = "WALDORT", .caption = lblWaldort.Caption(), .width = 1880},
          {.data_field = "BESCHREIBUNG", .caption = frmBeschreibung_der_Arbeit.Caption(), .width = 2270},
          {.data_field = "ROTTESHORT", .caption = lblRotte.Caption(), .width = 650},
          AmountColumn("FLACHE", lblFlache.Caption(), 760),
          QuantityColumn("MENGE", "WARENEINHEITEINHEIT", lblMenge.Caption(), 880),
          {.data_field = "WARENEINHEITEINHEIT", .caption = "ME", .width = 450},
          AmountColumn("STUNDEN", lblStunden_dir_Lohn.Caption(), 2110),
          AmountColumn("GESAMNT", lblGesamtKosten.Caption(), 1400)};
}

void F_ARA::ShowCurrentRow() {
  const auto hold = loadingFlag.Hold();
  const CurrentRow row = orders_.Row();
  row.Show("PERSONALNUMMER", txtForstbetrieb);
  txtForstbetrieb.SetTag(std::to_string(curPersonal));
  row.Show("FWJ", txtFWJ, "0000");
  row.Show("NAME_NUMMER", txtArbeitsauftrag, "0000");
  row.Show("DATUM_NR", txtErstellungsDatum, "dd.mm.yyyy");
  row.ShowCode("LEISTUNGID", "LEISTUNGKURZNAME", "LEISTUNGLANGNAME", txtLeistung);
  row.ShowCode("KOSTENSTELLEID", "KOSTENSTELLENUMBER", "KOSTENSTELLENAME", txtKostenstelle);
  txtProduktauftragNr[0].SetTag(row.Text("ARBEITSAUFTRAG_KOPFID"));
  ShowProductOrder(row.Text("ARBEITSAUFTRAG_KOPFNAME"), txtProduktauftragNr);
  row.ShowCode("LEISTUNGSARTID", "LEISTUNGSARTNUMBER", "LEISTUNGSARTNAME", txtLeistungsart);
  row.ShowCode("ID_WALDORT", "WALDORT", txtWaldort);
  row.ShowCode("ROTTEID", "ROTTESHORT", "ROTTELONG", txtRotte);
  row.Show("BESCHREIBUNG", txtBegrundung_der_Anordnung);
  row.Show("FLACHE", txtFlache, "0.00");
  row.Show("MENGE", txtMenge, "0.00");
  row.Show("WARENEINHEITEINHEIT", txtMengeEinhait);
  row.Show("STUNDEN", txtStunden_dir_Lohn, "0.00");
  row.Show("GESAMNT", txtGesamtKosten, "0.00");
  curProduktId = row.Number("PRODUKT_ID");
  curAraId = row.Number("ID_ARA_KOPF");
  SetSubject("Forstbetrieb " + txtForstbetrieb.Text() +
             (curAraId == 0 ? "" : ", Auftrag " + row.Text("NAME")));
  SetTextBoxLocked(row.Number("LE") == 1, txtLeistung[0]);
  SetViewState(true);
}

// --- view and edit ---

void F_ARA::SetViewState(bool bolView) {
  ViewSwitch({&btnNeu, &btnClose, &DataGridArbeitsauftrag},
             {&btnSpeichern, &btnSpeichernNew, &btnAbbrechen, &frmArbeitsauftrag, &frmZuordnungPA,
              &frmBeschreibung_der_Arbeit, &frmSummen})
      .Set(bolView);
  const CurrentRow row = orders_.Row();
  const bool has_order = bolView && curAraId != 0 && !row.IsNull("ID_ARA_KOPF");
  const bool stands = has_order && row.Text("STATUSKOPF") != "S";
  const auto group = static_cast<WageGroup>(row.Number("BBF_GRUPPENUMBER"));
  btnBearbeiten.SetEnabled(stands);
  btnStorno.SetEnabled(stands);
  btnStornoNew.SetEnabled(stands && btnNeu.Enabled());
  btnVorgaben.SetEnabled(has_order && (group == WageGroup::kTimeWage || group == WageGroup::kEst));
  btnStunden.SetEnabled(has_order);
  SetTextBoxLocked(bolView || !entry_.IsNew(), txtArbeitsauftrag);
}

}  // namespace tarvoni

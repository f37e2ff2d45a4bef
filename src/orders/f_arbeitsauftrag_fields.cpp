#include "src/common/amount.h"
#include "src/common/box_rules.h"
#include "src/common/enter_order.h"
#include "src/common/number_keys.h"
#include "src/common/page_focus.h"
#include "src/common/position_amounts.h"
#include "src/common/timber_assignment.h"
#include "src/context/values/number_text.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// What the boxes take, look up and work out.
namespace tarvoni {

namespace sql = work_order_sql;

void F_Arbeitsauftrag::ConnectFields() {
  ConnectBoxes(*this, [this] { NextOnEnter(); });
  Rules(txtKopfDatum).Date(kopfDatum_);
  Rules(txtDatum).Date(datum_);
  txtProduktN.KeyDown.Add(Turn::kOwn, [this](int key, int) {
    if (key == kKeyCtrl && produkt_.MayLookUp()) produkt_.Lookup();
  });
  Rules(txtProduktN).Left([this] { LookUpActivity(); });
  Rules(txtSM).Code(sm_);
  Rules(txtKostenstelleN).Code(kostenstelle_);
  Rules(txtObjektN).Code(objekt_);
  Rules(txtLeistungsartN).Code(leistungsart_).Left([this] { ActivityLeft(); });
  Rules(txtVerfahrenN).Code(verfahren_);
  Rules(txtKostenartN).Code(kostenart_);
  Rules(txtSondermerkmal[0]).Code(sondermerkmal_);
  Rules(txtHolzartN).Code(holzart_);
  Rules(txtLeistung[0]).Code(leistung_);
  Rules(txtWaldort).Code(waldort_);
  txtHSGR.KeyDown.Add(Turn::kOwn, [this](int key, int) {
    if (key == kKeyCtrl && !txtHSGR.Locked()) OfferGradeGroups();
  });
  Rules(txtHSGR).Left([this] { GradeGroupLeft(); });
  cmbPlannummer.Click = [this] { TakePlan(); };
  ConnectAmounts();
}

void F_Arbeitsauftrag::ConnectAmounts() {
  Rules(txtFlache).Number("-######0.0000").Left([this] { BasisLeft(); });
  Rules(txtMenge).Number("-######0.00").Left([this] { BasisLeft(); });
  for (TextBox* basis : {&txtFlache, &txtMenge})
    basis->Change.Add(Turn::kOwn, [this] { total_worked_from_.clear(); });
  for (OptionButton* basis : {&optMenge, &optHa}) {
    basis->Click = [this] {
      if (!suppressEvents) CalculateTotal();
    };
  }
  AmountKeys(txtKostenE, "KOSTEN");
  AmountKeys(txtErlos, "ERLOS");
  AmountKeys(txtMeter, "ASTUNG");
  for (TextBox* box : {&txtKosten, &txtStunden, &txtMAS}) AmountKeys(*box);
  for (TextBox* box : {&txtKostenE, &txtErlos, &txtStunden, &txtMAS})
    Rules(*box).Left([box] { FormatAmountBox(*box); });
  txtKosten.GotFocus.Add(Turn::kOwn, [this] { total_on_arrival_ = txtKosten.Text(); });
  txtKosten.Validate = [this](bool&) { TotalLeft(); };
  Rules(txtKosten).Left([this] { TotalLeft(); });
  txtValuta.Click = [this] { lblValuta.SetCaption(txtValuta.Text()); };
}

// A number with decimals and a sign; with a column, one that the column's type takes.
void F_Arbeitsauftrag::AmountKeys(TextBox& box, const std::string& column) {
  NumberKeys(box, Entry::kDecimal, Minus::kAllowed);
  if (column.empty()) return;
  box.KeyPress.Add(Turn::kFilter, [this, column](int& key) {
    if (key != 0) key = TypedKeyFilter(key, PositionTable(), column, Context());
  });
}

void F_Arbeitsauftrag::LimitTexts() {
  ValueHelper& values = CurrentSuite().Values();
  const SqlText position = sql::AllColumns(PositionTable());
  for (std::size_t i = 0; i < kFree; ++i) {
    const std::string number = std::to_string(i + 1);
    txtTFrei.at(i).SetMaxLength(values.ColumnSize(position, "T_FREI" + number, Context()));
    txtNFrei.at(i).SetMaxLength(values.ColumnSize(position, "N_FREI" + number, Context()));
  }
  txtFWJ.SetMaxLength(values.ColumnSize(sql::AllColumns(HeaderTable()), "FWJ", Context()));
}

// --- Enter ---

std::vector<Control*> F_Arbeitsauftrag::EnterOrder() {
  std::vector<Control*> order = {
      &txtKopfDatum,  &txtFWJ,        &txtForstamt,         &txtProduktN, &txtSM,
      &cmbPlannummer, &txtDatum,      &txtKostenstelleN,    &txtObjektN,  &txtLeistungsartN,
      &txtVerfahrenN, &txtKostenartN, &txtSondermerkmal[0], &txtFlache,   &txtMenge,
      &txtEinheit,    &txtKostenE,    &txtKosten,           &txtErlos,    &txtValuta,
      &txtStunden,    &txtMAS,        &txtLeistung[0],      &txtWaldort,  &txtHolzartN,
      &txtHSGR,       &txtMeter};
  for (TextBox& box : txtTFrei) order.push_back(&box);
  for (TextBox& box : txtNFrei) order.push_back(&box);
  order.push_back(&btnSpeichern);
  return order;
}

// The next open box, on whichever page it stands; behind the last one the save button. From a unit cost it passes over
// the total, for leaving that would work the unit cost out anew.
void F_Arbeitsauftrag::NextOnEnter() {
  std::vector<Control*> order = EnterOrder();
  if (ActiveControl() == &txtKostenE && NumberOrZero(txtKostenE) != Decimal()) std::erase(order, &txtKosten);
  if (Control* const next = NextOpen(*this, order)) FocusOnPage(*next);
}

// --- codes ---

CodeField::Rule F_Arbeitsauftrag::ProductRule() {
  return {.offered = [this] { return GetNamedSql(Context(), "PRODUKT_GRID", {Given(idPersonal)}); },
          .caption = [this] { return lblProdukt.Caption(); }};
}

CodeField::Rule F_Arbeitsauftrag::ActivityRule() {
  return {.offered =
              [this] {
                return GetNamedSql(Context(), "LEISTUNGSART_PRODUKT_GRID",
                                   {Given(idPersonal), Condition(sql::WorkTypesOf(productId))});
              },
          .find =
              [this](const std::string&) {
                LookUpActivity();
                return CodeField::Found{.id = activityId_, .name = txtLeistungsart.Text()};
              },
          .caption = [this] { return lblLeistungsart.Caption(); }};
}

CodeField::Rule F_Arbeitsauftrag::MethodRule() {
  return NamedCode(Context(), txtVerfahrenN, lblVerfahren, "VERFAHREN_LEISTUNGSART", "LONG", [this] {
    return NamedValues{Given(idPersonal), Given(activityId_)};
  });
}

CodeField::Rule F_Arbeitsauftrag::SpeciesRule() {
  return {.offered = sql::Species,
          .find =
              [this](const std::string& typed) {
                const Recordset rows = Open(sql::FindSpecies(typed));
                if (rows.EndOfFile()) return CodeField::Found{};
                return CodeField::Found{.id = ToInt16(ToText(rows.Fields()["ID"].Value()), CurrentLocale()),
                                        .name = ToText(rows.Fields()["HA_LANG"].Value())};
              },
          .caption = [this] { return lblHolzart.Caption(); },
          .keeps_focus = false};
}

CodeField::Rule F_Arbeitsauftrag::PerformanceRule() {
  auto rule =
      NamedCode(Context(), txtLeistung[0], lblLeistung, "LEISTUNG", "LANGNAME", [] { return NamedValues{}; });
  rule.keeps_tag = true;
  return rule;
}

// Product and work type by their numbers, and what the work type opens, closes and proposes.
void F_Arbeitsauftrag::LookUpActivity() {
  activityId_ = 0;
  for (TextBox* box : {&txtLeistungsart, &txtVerfahren}) box->SetText("");
  LockTimberFields(false);
  // From row to row the product stays.
  if (!suppressEvents || productNumber_ != txtProduktN.Text()) LookUpProduct();
  if (productId == 0 || txtLeistungsartN.Empty()) return;
  const Activity found =
      FindActivity(Db(), {.client = idPersonal, .product = productId, .number = txtLeistungsartN.Text()});
  if (found.id != 0) TakeActivity(found);
}

void F_Arbeitsauftrag::LookUpProduct() {
  productId = 0;
  productNumber_ = txtProduktN.Text();
  txtProdukt.SetText("");
  if (!IsNumeric(productNumber_, CurrentLocale())) return;
  const Recordset product = Open(sql::FindProduct(idPersonal, productNumber_));
  if (product.EndOfFile()) return;
  productId = ToLong(product.Fields()["ID"].Value());
  txtProdukt.SetText(ToText(product.Fields()["NAME"].Value()));
}

void F_Arbeitsauftrag::TakeActivity(const Activity& activity) {
  activityId_ = activity.id;
  txtLeistungsart.SetText(activity.name);
  if (activity.allows_timber) {
    txtHolzart.SetText("");
    LockTimberFields(true);
    // No timber hangs on a plan; its ids mean other rows there.
    if (!isPlan && QuantityFollowsTimber(Db())) ShowTimberSums(Db(), positionId, txtFlache, txtMenge);
  }
  if (btnNeu.Enabled()) return;
  FindComboItemData(txtEinheit, activity.unit);
  (activity.by_area ? optHa : optMenge).SetValue(true);
}

// What comes from timber lists is not typed.
void F_Arbeitsauftrag::LockTimberFields(bool locked) {
  for (InputControl* input :
       std::initializer_list<InputControl*>{&txtHolzartN, &txtFlache, &txtMenge, &txtEinheit})
    SetTextBoxLocked(locked, *input);
}

// The only method of a work type is proposed.
void F_Arbeitsauftrag::ActivityLeft() {
  if (txtLeistungsartN.Empty()) return LookUpActivity();
  if (suppressEvents || activityId_ == 0) return;
  const std::string method = ReadText(sql::OnlyMethod(idPersonal, activityId_));
  if (method.empty()) return;
  txtVerfahrenN.SetText(method);
  verfahren_.Check();
}

void F_Arbeitsauftrag::OfferGradeGroups() {
  const SqlText offered = sql::GradeGroups(OptionNumber("STANDARD_HSGR"));
  txtHSGR.SetText(CurrentSuite().Lookup().Pick(Context(), offered, lblHSGR.Caption(), txtHSGR.Text(), ""));
  txtHSGR.LostFocus();
}

void F_Arbeitsauftrag::GradeGroupLeft() {
  if (txtHSGR.Empty()) return;
  if (ReadNumber(sql::CountGradeGroup(OptionNumber("STANDARD_HSGR"), txtHSGR.Text())) > 0) return;
  ReportMissingField(lblHSGR.Caption(), false, Context());
  SafeSetFocus(txtHSGR);
}

// --- amounts: whichever of unit cost and total was entered last wins ---

TextBox& F_Arbeitsauftrag::Basis() {
  return optMenge.Value() ? txtMenge : txtFlache;
}

std::string F_Arbeitsauftrag::Factors() {
  const auto number = [](const TextBox& box) { return NumberOrZero(box).ToShortString(); };
  return (optMenge.Value() ? "Menge " : "Fläche ") + number(Basis()) + " zu " + number(txtKostenE);
}

// A total that was entered is not worked out anew where basis and unit cost are only passed.
void F_Arbeitsauftrag::BasisLeft() {
  if (Factors() != total_worked_from_) CalculateTotal();
}

void F_Arbeitsauftrag::CalculateTotal() {
  total_worked_from_ = Factors();
  if (const auto total = TotalCost(Basis().Text(), txtKostenE.Text())) txtKosten.SetText(*total);
  FormatAmountBox(txtKosten);
}

// Of unit cost and total the last one entered wins; a total that was only passed was not entered.
void F_Arbeitsauftrag::TotalLeft() {
  if (txtKosten.Text() != total_on_arrival_) CalculateUnitCost();
}

void F_Arbeitsauftrag::CalculateUnitCost() {
  txtKostenE.SetText("0");
  if (const auto unit = UnitCost(txtKosten.Text(), Basis().Text())) txtKostenE.SetText(*unit);
  for (TextBox* box : {&txtKostenE, &txtKosten}) FormatAmountBox(*box);
  total_worked_from_ = Factors();
}

}  // namespace tarvoni

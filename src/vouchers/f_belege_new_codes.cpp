#include "src/common/box_rules.h"
#include "src/common/code_in_use.h"
#include "src/common/contracts.h"
#include "src/common/enter_order.h"
#include "src/common/number_keys.h"
#include "src/common/position_amounts.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/vouchers/f_belege_new.h"
#include "src/vouchers/f_belege_new_sql.h"

// What the boxes take, offer and check, and which of them an activity and a cost type open.
namespace tarvoni {

namespace sql = voucher_sql;

void F_Belege_New::ConnectFields() {
  ConnectBoxes(*this, NextOpenOnEnter(*this, EnterOrder()));
  Rules(txtDatumBeleg).Date(datumBeleg_);
  Rules(txtDatumHaus).Date(datumHaus_);
  Rules(txtDatumRech).Date(datumRech_);
  Rules(txtKapitelN).Code(kapitel_);
  Rules(txtTitelN).Code(titel_);
  Rules(txtZuhlungsartN).Code(zuhlungsart_);
  Rules(txtZuhlungsgrundN).Code(zuhlungsgrund_);
  Rules(txtProduktN).Code(produkt_);
  Rules(txtKostenstelleN).Code(kostenstelle_);
  kostenstelle_.Changed = [this] { CostCentreChanged(); };
  Rules(txtPaN).Code(auftrag_).Left([this] { OrderLeft(); });
  Rules(txtLeistungsartN).Code(leistungsart_).Left([this] { ActivityLeft(); });
  Rules(txtKostenartN).Code(kostenart_).Left([this] { CostTypeLeft(); });
  Rules(txtSondermerkmal[0]).Code(sondermerkmal_);
  Rules(txtMehrwertsteuer[0]).Code(mehrwertsteuer_);
  Rules(txtWaldort).Code(waldort_);
  ConnectAmounts();
}

std::vector<Control*> F_Belege_New::EnterOrder() {
  return {&txtDatumBeleg,
          &txtBelegNr,
          &txtKapitelN,
          &txtTitelN,
          &txtHul,
          &txtDatumHaus,
          &txtRechnungsNr,
          &txtDatumRech,
          &txtRechnungsBeitrag,
          &txtValuta2,
          &txtZuhlungsartN,
          &txtZuhlungsgrundN,
          &btnZuhlung,
          &txtProduktN,
          &txtKostenstelleN,
          &txtPaN,
          &txtLeistungsartN,
          &txtKostenartN,
          &txtSondermerkmal[0],
          &txtFlache,
          &txtMenge,
          &txtEinheit,
          &txtKosten,
          &txtErlos,
          &txtValuta,
          &txtMehrwertsteuer[0],
          &txtStunden,
          &txtMAS,
          &txtWaldort,
          &btnSpeichern};
}

void F_Belege_New::ConnectAmounts() {
  NumberKeys(txtRechnungsBeitrag, Entry::kDecimal, Minus::kAllowed);
  Rules(txtRechnungsBeitrag).Left([this] { FormatAmountBox(txtRechnungsBeitrag); });
  Rules(txtFlache).Number("-######0.0000");
  Rules(txtMenge).Number("-######0.00");
  for (TextBox* box : {&txtKosten, &txtErlos, &txtStunden, &txtMAS}) {
    NumberKeys(*box, Entry::kDecimal, Minus::kAllowed);
    Rules(*box).Left([box] { FormatNumberBox(*box, "#0.00"); });
  }
}

Client F_Belege_New::OfClient() {
  return [this] { return idPersonal; };
}

// A code of the client's set that is in use.
CodeField::Rule F_Belege_New::BudgetRule(const Label& label, const std::string& table) {
  const auto find = [this, table](const std::string& typed) {
    const Recordset rows = Screen::Open(CodeInUse("ID,NAME", table, typed, idPersonal));
    if (rows.EndOfFile()) return CodeField::Found{};
    return CodeField::Found{.id = ToLong(rows.Fields()["ID"].Value()),
                            .name = ToText(rows.Fields()["NAME"].Value())};
  };
  return {.offered = [this, table] { return sql::CodesOf(table, idPersonal); },
          .find = find,
          .caption = [&label] { return label.Caption(); }};
}

CodeField::Rule F_Belege_New::ProductRule() {
  const auto find = [this](const std::string& typed) {
    if (!IsNumeric(typed, CurrentLocale())) return CodeField::Found{};
    const Recordset rows = Screen::Open(sql::FindProduct(typed, idPersonal));
    if (rows.EndOfFile()) return CodeField::Found{};
    return CodeField::Found{.id = ToLong(rows.Fields()["ID"].Value()),
                            .name = ToText(rows.Fields()["NAME"].Value())};
  };
  return {.offered = [this] { return sql::ProductsOf(idPersonal); },
          .find = find,
          .caption = [this] { return lblProdukt.Caption(); }};
}

// --- the order ---

CodeField::Rule F_Belege_New::OrderRule() {
  CodeField::Rule rule = NamedCode(Context(), txtPaN, lblName, "PA_KOPF", "NAME", [this] {
    const SqlText of_product = Compose("PRODUKT_ID IN (0{})", Digits(txtProduktN.Tag()));
    return NamedValues{Given(idPersonal), Given(forest_year_), Given(txtKostenstelleN.Text()),
                       Condition(of_product)};
  });
  rule.option = "102";
  rule.make_new = [this] { MakeOrder(); };
  return rule;
}

void F_Belege_New::MakeOrder() {
  const auto made = Neighbour<NewWorkOrder>().Ask(Context(), idPersonal);
  if (made.header != 0) txtPaN.SetText(ReadText(sql::NumberOfOrder(made.header)));
}

// The first order of another cost centre is proposed.
void F_Belege_New::CostCentreChanged() {
  auftrag_.Clear();
  const bool has_centre = !txtKostenstelleN.Tag().empty();
  SetTextBoxLocked(!has_centre, txtPaN);
  if (!has_centre) return;
  const SqlText orders = GetNamedSql(Context(), "PA_KOPF_GRID",
                                     {Given(idPersonal), Given(forest_year_), Given(txtKostenstelleN.Text()),
                                      Condition(Compose("PRODUKT_ID IN (0{})", Digits(txtProduktN.Tag())))});
  txtPaN.SetText(ReadText(orders));
  txtPaN.LostFocus();
  SafeSetFocus(txtPaN);
}

void F_Belege_New::OrderLeft() {
  if (txtPaN.Tag().empty()) return;
  txtSondermerkmal[0].SetText(ReadText(sql::FeatureOfOrder(txtPaN.Tag())));
  txtSondermerkmal[0].LostFocus();
}

// --- the activity ---

CodeField::Rule F_Belege_New::ActivityRule() {
  const auto offered = [this] {
    return GetNamedSql(
        Context(), "LEISTUNGSART_PRODUKT_KOSTENSTELLE_GRID",
        {Given(idPersonal), Given(ReadId(txtProduktN.Tag())), Given(ReadId(txtKostenstelleN.Tag()))});
  };
  const auto find = [this](const std::string& typed) {
    activity_ = FindActivity(Db(), {.client = idPersonal,
                                    .product = ReadId(txtProduktN.Tag()),
                                    .number = typed,
                                    .cost_centre = ReadId(txtKostenstelleN.Tag())});
    return CodeField::Found{.id = activity_.id, .name = activity_.name};
  };
  return {.offered = offered, .find = find, .caption = [this] { return lblLeistungsart.Caption(); }};
}

void F_Belege_New::ActivityLeft() {
  if (txtLeistungsartN.Tag().empty()) activity_ = {};
  TakeActivity();
}

// A closed box is blank.
void F_Belege_New::Open(TextBox& box, bool open) {
  SetTextBoxLocked(!open, box);
  if (!open) box.SetText("");
}

void F_Belege_New::TakeActivity() {
  Open(txtStunden, activity_.takes_hours);
  Open(txtMAS, activity_.takes_machine_hours);
  FindComboItemData(txtEinheit, activity_.unit);
  const std::string_view unit = utf8::Trim(txtEinheit.Text());
  const bool counted = !unit.empty() && unit != "-";
  Open(txtMenge, counted);
  if (counted) optMenge.SetValue(true);
  Open(txtFlache, activity_.by_area);
  optHa.SetValue(activity_.by_area);
}

// --- the cost type ---

CodeField::Rule F_Belege_New::CostTypeRule() {
  const auto find = [this](const std::string& typed) {
    cost_type_ = 0;
    const SqlText statement = sql::FindCostType(typed, idPersonal, activity_.id);
    if (!IsCode(typed)) return CodeField::Found{};
    const Recordset rows = Screen::Open(statement);
    cost_type_ = rows.EndOfFile() ? 0 : ToLong(rows.Fields()["ID"].Value());
    if (cost_type_ == 0) return CodeField::Found{};
    revenue_ = ToFlag(rows.Fields()["ERLOSE"].Value());
    return CodeField::Found{.id = cost_type_, .name = ToText(rows.Fields()["NAME"].Value())};
  };
  return {.offered = [this] { return sql::CostTypes(idPersonal, activity_.id); },
          .find = find,
          .caption = [this] { return lblKostenart.Caption(); }};
}

// A row carries a cost or a revenue.
void F_Belege_New::CostTypeLeft() {
  if (txtKostenartN.Tag().empty()) cost_type_ = 0;
  OpenAmounts(cost_type_ != 0 && !revenue_, cost_type_ != 0 && revenue_);
}

// The currency goes with the cost.
void F_Belege_New::OpenAmounts(bool cost, bool revenue) {
  Open(txtKosten, cost);
  Open(txtErlos, revenue);
  if (!cost) txtValuta.SetListIndex(-1);
  txtValuta.SetEnabled(cost);
  SetTextBoxLocked(!cost, txtValuta);
}

}  // namespace tarvoni

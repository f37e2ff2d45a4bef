#include <algorithm>

#include "src/common/box_rules.h"
#include "src/common/number_keys.h"
#include "src/context/values/utf8.h"
#include "src/stores/f_positionen.h"
#include "src/stores/f_positionen_sql.h"

// The codes of a withdrawal. Each hangs on the one before it: the product order on the cost centre, the work type on
// the order's product, the method on the work type.
namespace tarvoni {

namespace sql = positionen_sql;

void F_Positionen::ConnectCodes() {
  for (TextBox* box : {&txtKostenstelle, &txtProduktauftragNr, &txtLeistungsart, &txtArbeitsverfahren,
                       &txtObjekt, &txtKostenart}) {
    NumberKeys(*box, Entry::kWhole);
  }
  Rules(txtKostenstelle).Code(cost_centre_).Left([this] { CostCentreLeft(); });
  Rules(txtProduktauftragNr).Code(order_).Left([this] { ProductOrderLeft(); });
  Rules(txtLeistungsart).Code(work_type_);
  Rules(txtArbeitsverfahren).Code(method_);
  Rules(txtObjekt).Code(object_);
  Rules(txtKostenart).Code(cost_type_);
  Rules(txtWaldort).Code(location_);
  work_type_.Changed = [this] { WorkTypeChanged(); };
}

CodeField::Rule F_Positionen::ProductOrderRule() {
  auto rule = NamedCode(Context(), txtProduktauftragNr, lblAA_Name, "PA_KOPF", "", [this] {
    return NamedValues{Given(curPersonal), Given(strFWJ), Given(txtKostenstelle.Text())};
  });
  rule.option = "100";
  return rule;
}

CodeField::Rule F_Positionen::WorkTypeRule() {
  return NamedCode(Context(), txtLeistungsart, lblLeistungsart, "LEISTUNGSART_PRODUKT", "LONG",
                   [this] { return NamedValues{Condition(sql::FitsProduct(curProduktId))}; });
}

CodeField::Rule F_Positionen::MethodRule() {
  return {
      .offered = [this] { return sql::Methods(curPersonal, txtLeistungsart.Tag()); },
      .check =
          [this] { return sql::FindMethod(curPersonal, txtLeistungsart.Tag(), txtArbeitsverfahren.Text()); },
      .caption = [this] { return lblArbeitsverfahren.Caption(); },
      .name_column = "NAME"};
}

CodeField::Rule F_Positionen::CostTypeRule() {
  return {.offered = [this] { return sql::CostTypes(curPersonal); },
          .check = [this] { return sql::FindCostType(curPersonal, txtKostenart.Text()); },
          .caption = [this] { return lblKostenart.Caption(); },
          .name_column = "NAME"};
}

// What hangs on a changed code is tested anew, without a word.
void F_Positionen::CostCentreLeft() {
  const auto hold = loading_.Hold();
  txtProduktauftragName.SetText(client_number_ + strFWJ + txtKostenstelle.Text());
  txtProduktauftragNr.LostFocus();
}

void F_Positionen::ProductOrderLeft() {
  curProduktId = ReadNumber(sql::ProductOfOrder(txtProduktauftragNr.Tag()));
  const auto hold = loading_.Hold();
  txtLeistungsart.LostFocus();
}

void F_Positionen::WorkTypeChanged() {
  if (saVerfahren && !txtLeistungsart.Tag().empty()) FillSingleMethod();
  txtMengeEinhait_KLR.SetText(ReadText(sql::UnitOfWorkType(txtLeistungsart.Tag())));
  const auto hold = loading_.Hold();
  txtArbeitsverfahren.LostFocus();
}

void F_Positionen::FillSingleMethod() {
  const std::string number = ReadText(sql::SingleMethod(curPersonal, txtLeistungsart.Tag()));
  if (!number.empty()) txtArbeitsverfahren.SetText(number);
}

// The last four characters are the number, those before them client, year and cost centre.
void F_Positionen::ShowProductOrder(const std::string& name) {
  const int cut = std::max(0, utf8::Length(name) - 4);
  txtProduktauftragNr.SetText(utf8::Substring(name, cut));
  txtProduktauftragName.SetText(utf8::Substring(name, 0, cut));
}

}  // namespace tarvoni

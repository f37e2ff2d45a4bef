#include <utility>

#include "src/common/product_order.h"
#include "src/context/rules/hour_amount.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/wage/f_bruttolohn.h"
#include "src/wage/f_bruttolohn_sql.h"

// The codes of an entry, and what it is worth.
namespace tarvoni {

namespace sql = bruttolohn_sql;

namespace {

std::optional<Decimal> NumberIn(const TextBox& box) {
  return ParseNumber(box.Text(), CurrentLocale());
}

}  // namespace

// --- codes ---

std::int32_t F_Bruttolohn::ClientId() const {
  return ReadId(txtForstbetrieb[0].Tag());
}

CodeField::Rule F_Bruttolohn::WageTypeRule() {
  return {.offered = [this] { return sql::WageTypes(txtForstbetrieb[0].Tag()); },
          .check = [this] { return sql::FindWageType(txtForstbetrieb[0].Tag(), txtLohnart[0].Text()); },
          .caption = [this] { return lblLohnart.Caption(); },
          .name_column = "NAME"};
}

CodeField::Rule F_Bruttolohn::ProductOrderRule() {
  auto rule = NamedCode(Context(), txtProduktauftragNr[0], lblProduktauftragNr, "PA_KOPF", "", [this] {
    return NamedValues{Given(ClientId()), Given(txtFWJ.Text()), Given(txtKostenstelle[0].Text())};
  });
  rule.option = "100";
  return rule;
}

CodeField::Rule F_Bruttolohn::WorkTypeRule() {
  return NamedCode(Context(), txtLeistungsart[0], lblLeistungsart, "LEISTUNGSART_PRODUKT", "LONG", [this] {
    return NamedValues{Condition(Compose("LEISTUNGSART.PRODUKT_ID = {}", Id(curProduktId)))};
  });
}

CodeField::Rule F_Bruttolohn::MethodRule() {
  return NamedCode(Context(), txtVerfahren[0], lblVerfahren, "VERFAHREN_LEISTUNGSART", "LONG", [this] {
    return NamedValues{Given(ClientId()), Given(txtLeistungsart[0].Tag())};
  });
}

// An order of the year is named after client, year and cost centre.
void F_Bruttolohn::ProductOrderLeft() {
  const std::string& id = txtProduktauftragNr[0].Tag();
  curProduktId = ReadNumber(ProductOfOrder(id));
  txtProduktauftragNr[1].SetText(
      id.empty() ? "" : txtForstbetrieb[0].Text() + txtFWJ.Text() + txtKostenstelle[0].Text());
}

// --- rate and amount ---

// Another day has another rate and is paid in another month. A stored one that is only passed changes neither.
void F_Bruttolohn::DayLeft() {
  LeaveDay(txtTag, pay_month_);
  if (priced_day_ == DayText()) return;
  if (priced_day_) priced_day_ = DayText();
  PriceAgain();
}

std::string F_Bruttolohn::DayText() const {
  return txtTag.Text() + "." + txtVerlohnungs[1].Text() + "." + txtVerlohnungs[3].Text();
}

void F_Bruttolohn::PriceAgain() {
  txtLohnart[0].SetTag("");
  txtLohnart[0].LostFocus();
}

void F_Bruttolohn::WageTypeLeft() {
  const bool changed = std::exchange(wage_type_changed_, false);
  if (txtLohnart[0].Tag().empty()) {
    ClearRate();
  } else if (changed) {
    ReadRate();
  }
  txtWert.LostFocus();
}

void F_Bruttolohn::ReadRate() {
  const Recordset rate =
      Open(hour_amount::JournalEntryRate(txtLohnart[0].Tag(), txtArbeitnehmer[0].Tag(),
                                         txtVerlohnungs[3].Text(), txtVerlohnungs[1].Text(), txtTag.Text()));
  if (rate.EndOfFile()) {
    txtAuszahlungsmonat[1].SetText(txtVerlohnungs[1].Text());
    txtAuszahlungsmonat[3].SetText(txtVerlohnungs[3].Text());
    paying_month_.LeaveMonth();
    return ClearRate();
  }
  const FieldList field = rate.Fields();
  if (const auto first = pay_month_.FirstDay()) {
    const DateTime paid = AddMonths(*first, ToLong(field["ZAHLUNGSVERSCHIEBUNG"].Value()));
    paying_month_.Set(paid.year, paid.month);
  }
  ShowUnit(ToText(field["NAME"].Value()));
  txtSatz.SetText(FieldText(field["SATZ"].Value(), "0.00", CurrentLocale()));
}

// The unit of the wage type names the quantity.
void F_Bruttolohn::ShowUnit(const std::string& unit) {
  lblWert.SetCaption(unit.empty() ? "Wert" : unit);
}

void F_Bruttolohn::ClearRate() {
  ShowUnit("");
  txtSatz.SetText("");
}

// Rate times quantity times percentage; without a percentage all of it.
void F_Bruttolohn::ShowAmount() {
  const auto rate = NumberIn(txtSatz), quantity = NumberIn(txtWert);
  const Decimal percent = NumberIn(txtProzentsatz).value_or(Decimal(100, 0));
  auto amount = rate && quantity ? Multiply(*rate, *quantity) : std::nullopt;
  if (amount) amount = Multiply(*amount, percent);
  if (amount) amount = Multiply(*amount, Decimal(1, 2));
  txtGesamtbetrag.SetText(amount ? FormatNumber(*amount, "0.00", CurrentLocale()) : "");
}

}  // namespace tarvoni

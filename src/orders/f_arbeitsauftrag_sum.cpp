#include "src/common/position_amounts.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// What the order cost, in euro.
namespace tarvoni {

namespace sql = work_order_sql;

void F_Arbeitsauftrag::ReadEuroFactor() {
  const Value factor = ReadValue(Db(), sql::EuroFactor());
  euroFactor = IsNull(factor) ? 1.0 : CurrentSuite().Values().ToNumber(factor);
}

// Rows in the local currency are rounded one by one; cancelled rows and rows without a total do not count.
void F_Arbeitsauftrag::ShowSum() {
  const Locale& locale = CurrentLocale();
  const std::string factor = NumberToText(euroFactor, locale);
  Decimal sum;
  for (Recordset rows = Data1.Recordset().Clone(); !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList row = rows.Fields();
    const auto total = NumberOf(row["GESAMT"].Value(), locale);
    if (!total || !utf8::Trim(ToText(row["STATUS"].Value())).empty()) continue;
    const auto in_euro = UnitCost(NumberToText(*total, locale), factor);
    const bool is_euro = ToFlag(row["EURO"].Value());
    const auto amount = is_euro ? total : in_euro ? ParseNumber(*in_euro, locale) : std::nullopt;
    sum = Add(sum, amount.value_or(Decimal())).value_or(sum);
  }
  txtGesamtSumme.SetText(FormatNumber(sum, "0.00", locale));
}

}  // namespace tarvoni

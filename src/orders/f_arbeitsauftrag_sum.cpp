#include "src/common/amount.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// What the order cost, in euro.
namespace tarvoni {

namespace sql = work_order_sql;

namespace {

constexpr int kCents = 2;

}  // namespace

void F_Arbeitsauftrag::ReadEuroFactor() {
  const Value factor = ReadValue(Db(), sql::EuroFactor());
  euroFactor = IsNull(factor) ? 1.0 : CurrentSuite().Values().ToNumber(factor);
}

// Rows in the local currency are rounded one by one; cancelled rows and rows without a total do not count.
void F_Arbeitsauftrag::ShowSum() {
  const Locale& locale = CurrentLocale();
  const Decimal factor = ParseNumber(NumberToText(euroFactor, locale), locale).value_or(Decimal());
  Decimal sum;
  for (Recordset rows = Data1.Recordset().Clone(); !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList row = rows.Fields();
    const auto total = NumberOf(row["GESAMT"].Value(), locale);
    if (!total || !utf8::Trim(ToText(row["STATUS"].Value())).empty()) continue;
    const auto in_euro = ToFlag(row["EURO"].Value()) ? total : Quotient(*total, factor, kCents);
    sum = Add(sum, in_euro.value_or(Decimal())).value_or(sum);
  }
  txtGesamtSumme.SetText(FormatNumber(sum, "0.00", locale));
}

}  // namespace tarvoni

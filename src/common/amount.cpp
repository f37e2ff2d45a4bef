#include "src/common/amount.h"

#include "src/common/m_common.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"
#include "src/context/values/wide_integer.h"

namespace tarvoni {

std::optional<Decimal> NumberIn(const TextBox& box) {
  return ParseNumber(box.Text(), CurrentLocale());
}

Decimal NumberOrZero(const TextBox& box) {
  return NumberIn(box).value_or(Decimal());
}

void ShowNumber(TextBox& box, const Decimal& number, std::string_view format) {
  box.SetText(FormatNumber(number, format, CurrentLocale()));
}

void ShowAsNumber(TextBox& box, std::string_view format) {
  if (!NumberIn(box)) box.SetText("0");
  FormatNumberBox(box, std::string(format));
}

std::optional<Decimal> Quotient(const Decimal& dividend, const Decimal& divisor, int places) {
  const int shift = places + divisor.Scale() - dividend.Scale();
  if (divisor.Unscaled() == 0 || shift > Decimal::kMaxDigits || -shift > Decimal::kMaxDigits) {
    return std::nullopt;
  }
  const UInt256 raised =
      MultiplyWide(Magnitude(dividend.Unscaled()), static_cast<UInt128>(PowerOfTen(shift > 0 ? shift : 0)));
  const UInt256 lower =
      MultiplyWide(Magnitude(divisor.Unscaled()), static_cast<UInt128>(PowerOfTen(shift < 0 ? -shift : 0)));
  if (lower.high != 0) return std::nullopt;
  const auto magnitude = DivideRounded(raised, lower.low);
  if (!magnitude || !FitsDigits(*magnitude)) return std::nullopt;
  return Decimal(WithSign(*magnitude, (dividend.Unscaled() < 0) != (divisor.Unscaled() < 0)), places);
}

void ShowRounded(const CurrentRow& row, const ColumnKey& column, TextBox& box, std::string_view format) {
  row.Show(column, box, format);
  box.SetTag(row.Text(column));
}

std::string WholeNumber(const TextBox& box, std::string_view format) {
  const auto whole = ParseNumber(box.Tag(), CurrentLocale());
  const bool shows_it = whole && box.Text() == FormatNumber(*whole, format, CurrentLocale());
  return shows_it ? box.Tag() : box.Text();
}

}  // namespace tarvoni

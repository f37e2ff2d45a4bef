#include "src/common/position_amounts.h"

#include "src/context/services/environment.h"
#include "src/context/values/decimal.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr int kPlaces = 2;

std::optional<Decimal> NumberIn(std::string_view text) {
  return utf8::Trim(text).empty() ? Decimal() : ParseNumber(text, CurrentLocale());
}

std::string Shown(const Decimal& amount) {
  return FormatNumber(amount, "#0.00", CurrentLocale());
}

std::optional<Decimal> TimesPowerOfTen(const Decimal& whole, int exponent) {
  if (exponent > Decimal::kMaxDigits) return std::nullopt;
  return Multiply(whole, Decimal(PowerOfTen(exponent), 0));
}

// The exact quotient, rounded once.
std::optional<Decimal> Divide(const Decimal& dividend, const Decimal& divisor) {
  const int shift = divisor.Scale() + kPlaces - dividend.Scale();
  const auto above = TimesPowerOfTen(Decimal(dividend.Unscaled(), 0), shift > 0 ? shift : 0);
  const auto below = TimesPowerOfTen(Decimal(divisor.Unscaled(), 0), shift < 0 ? -shift : 0);
  if (!above || !below || below->Unscaled() == 0) return std::nullopt;
  const Int128 quotient = above->Unscaled() / below->Unscaled();
  const Int128 rest = above->Unscaled() % below->Unscaled();
  const Int128 distance = rest < 0 ? -rest : rest;
  const Int128 size = below->Unscaled() < 0 ? -below->Unscaled() : below->Unscaled();
  const Int128 away = (above->Unscaled() < 0) != (below->Unscaled() < 0) ? -1 : 1;
  return Decimal(distance >= size - distance ? quotient + away : quotient, kPlaces);
}

}  // namespace

std::optional<std::string> TotalCost(std::string_view basis, std::string_view unit_cost) {
  const auto amount = NumberIn(basis), price = NumberIn(unit_cost);
  if (!amount || !price) return std::nullopt;
  const auto total = Multiply(*amount, *price);
  return total ? std::optional(Shown(*total)) : std::nullopt;
}

std::optional<std::string> UnitCost(std::string_view total, std::string_view basis) {
  const auto cost = NumberIn(total), amount = NumberIn(basis);
  if (!cost || !amount) return std::nullopt;
  const auto unit = Divide(*cost, *amount);
  return unit ? std::optional(Shown(*unit)) : std::nullopt;
}

void FormatAmountBox(TextBox& box) {
  if (const auto number = NumberIn(box.Text())) box.SetText(Shown(*number));
}

}  // namespace tarvoni

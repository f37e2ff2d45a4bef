#include "src/common/position_amounts.h"

#include "src/common/amount.h"
#include "src/context/services/environment.h"
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
  const auto unit = Quotient(*cost, *amount, kPlaces);
  return unit ? std::optional(Shown(*unit)) : std::nullopt;
}

void FormatAmountBox(TextBox& box) {
  if (const auto number = NumberIn(box.Text())) box.SetText(Shown(*number));
}

}  // namespace tarvoni

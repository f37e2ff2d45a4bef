#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/common/current_row.h"
#include "src/context/controls/form.h"
#include "src/context/values/decimal.h"

// Numbers of boxes and what is calculated with them: exact, since half a cent counts.
namespace tarvoni {

inline constexpr std::string_view kMoney = "#0.00";

// Nothing for a box that is empty or holds no number.
std::optional<Decimal> NumberIn(const TextBox& box);
// 0 for a box that is empty or holds no number.
Decimal NumberOrZero(const TextBox& box);
void ShowNumber(TextBox& box, const Decimal& number, std::string_view format = kMoney);
// Formats the number; a box without one shows 0.
void ShowAsNumber(TextBox& box, std::string_view format = kMoney);

// The quotient with so many places, half away from zero; nothing for a divisor of 0 and beyond 38 digits.
std::optional<Decimal> Quotient(const Decimal& dividend, const Decimal& divisor, int places);

// Shows a number rounded by the format and remembers it whole in the Tag, so that what is stored behind the format's
// places outlives the editing of other fields.
void ShowRounded(const CurrentRow& row, const ColumnKey& column, TextBox& box,
                 std::string_view format = kMoney);
// What is to be stored: the whole number as long as the box shows it, else the text as it was typed.
std::string WholeNumber(const TextBox& box, std::string_view format = kMoney);

}  // namespace tarvoni

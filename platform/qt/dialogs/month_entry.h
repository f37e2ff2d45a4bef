#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

inline constexpr int kFirstYear = 1753, kLastYear = 9999;

// Reads what a user typed for a month: "3.2024", "03/24", "3 2024", "032024", "2024-03", and "3" alone, which is of
// `year`. Two digits are a year from 1930 to 2029.
std::optional<YearMonth> ParseMonth(std::string_view text, int year);
// "03.2024"
std::string MonthText(const YearMonth& month);
// The month so many later, within the years there are.
YearMonth Shifted(const YearMonth& month, int months);

}  // namespace tarvoni::qt

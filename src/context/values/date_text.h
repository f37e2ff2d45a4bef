#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "src/context/values/date_time.h"
#include "src/context/values/locale.h"

// Dates as users read and type them.
namespace tarvoni {

// Reads the day that someone typed: day, month and year with points or the keypad's commas ("5.3.2024", "05,03,24"),
// the same as digits alone, two for the day and two for the month ("050324", "05032024"), or the ISO form.
//
// Without a year ("5.3.", "0503") it is the year of the day that stood there before, else the current one, or the one
// that the caller is asked for. A year of two digits is the one of that ending between 79 years before the current year
// and 20 after it: in 2024, 1945 to 2044. Anything else, and a day that does not exist, is refused.
std::optional<DateTime> ParseDate(std::string_view text,
                                  const std::optional<DateTime>& before = std::nullopt);
std::optional<DateTime> ParseDate(std::string_view text, const std::function<int()>& missing_year);
bool IsDate(std::string_view text);

// Formats by a mask of d, dd, m, mm, mmm, mmmm, yy, yyyy, hh, nn, ss; all else stands as it is, also what is
// quoted with " or escaped with a backslash.
std::string FormatDate(const DateTime& date, std::string_view mask, const Locale& locale);
std::string MonthName(int month, const Locale& locale);

}  // namespace tarvoni

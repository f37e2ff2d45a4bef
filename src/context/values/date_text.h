#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/context/values/date_time.h"
#include "src/context/values/locale.h"

// Dates as users read and type them.
namespace tarvoni {

// Reads day, month and year with points ("5.3.2024", "05.03.24"; two digits are 1930 to 2029), without a year
// the current one, or the ISO form. A day that does not exist, and slashes, are refused.
std::optional<DateTime> ParseDate(std::string_view text);
bool IsDate(std::string_view text);

// Formats by a mask of d, dd, m, mm, mmm, mmmm, yy, yyyy, hh, nn, ss; all else stands as it is, also what is
// quoted with " or escaped with a backslash.
std::string FormatDate(const DateTime& date, std::string_view mask, const Locale& locale);
std::string MonthName(int month, const Locale& locale);

}  // namespace tarvoni

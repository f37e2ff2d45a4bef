#pragma once

#include <string>
#include <string_view>

#include "src/context/values/date_time.h"

// Dates out of text and into it, as a server converts them. Times stand in steps of a three-hundredth of a second, so
// that their milliseconds end in 0, 3 or 7.
namespace tarvoni::sqlite {

// The order in which a date of three numbers is read.
enum class DateFormat { kMdy, kDmy, kYmd, kYdm, kMyd, kDym };

// "mdy" and its like; error 2741 for anything else.
DateFormat ParseDateFormat(std::string_view name);

// '' is 1 January 1900. Error 241 for no date, 242 for a day or time that does not exist.
DateTime DateFromText(std::string_view text, DateFormat format);
// "Feb 29 2024  1:45PM"
std::string TextFromDate(const DateTime& date);

// Days since 1 January 1900 with their fraction as the time of day; error 8115 outside of the calendar.
DateTime DateFromDays(double days);
// To the nearest minute, as a SMALLDATETIME keeps it: from 29.999 seconds on to the next one. Error 242 outside of its
// calendar, which has the years from 1900 to 2079.
DateTime ToMinutes(const DateTime& date);
// Error 517 outside of the calendar.
DateTime AddDays(const DateTime& date, double days);

}  // namespace tarvoni::sqlite

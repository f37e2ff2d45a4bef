#include "host/demo/calendar.h"

#include <algorithm>
#include <array>

namespace tarvoni::demo {
namespace {

struct Holiday {
  int month, day;
};
constexpr auto kHolidays = std::to_array<Holiday>({{1, 1},
                                                   Holiday{1, 6},
                                                   Holiday{5, 1},
                                                   Holiday{8, 15},
                                                   Holiday{10, 26},
                                                   Holiday{11, 1},
                                                   Holiday{12, 8},
                                                   Holiday{12, 25},
                                                   Holiday{12, 26}});

// By the Gregorian computus in whole numbers.
DateTime EasterSunday(int year) {
  const int golden = year % 19;
  const int century = year / 100;
  const int of_century = year % 100;
  const int moon = (19 * golden + century - century / 4 - (century - (century + 8) / 25 + 1) / 3 + 15) % 30;
  const int weekday = (32 + 2 * (century % 4) + 2 * (of_century / 4) - moon - of_century % 4) % 7;
  const int correction = (golden + 11 * moon + 22 * weekday) / 451;
  const int place = moon + weekday - 7 * correction + 114;
  return {year, place / 31, place % 31 + 1};
}

bool IsHoliday(const DateTime& day) {
  const auto same_day = [&day](const Holiday& h) { return h.month == day.month && h.day == day.day; };
  return std::any_of(kHolidays.begin(), kHolidays.end(), same_day) ||
         day == AddDays(EasterSunday(day.year), 1);
}

// Day 0 was a Monday.
bool IsWeekend(const DateTime& day) {
  return day.Days() % 7 >= 5;
}

}  // namespace

Month MonthOf(const DateTime& day) {
  return {day.year, day.month};
}

Month AddMonths(Month month, int count) {
  const int months = month.year * 12 + month.month - 1 + count;
  return {months / 12, months % 12 + 1};
}

std::vector<Month> MonthsBetween(Month first, Month last) {
  std::vector<Month> months;
  for (Month month = first; month.Number() <= last.Number(); month = AddMonths(month, 1))
    months.push_back(month);
  return months;
}

DateTime AddDays(const DateTime& day, int count) {
  return DateTime::FromDays(day.Days() + count);
}

std::vector<DateTime> WorkDays(const DateTime& first, const DateTime& last) {
  std::vector<DateTime> days;
  for (DateTime day = first; day <= last; day = AddDays(day, 1)) {
    if (!IsWeekend(day) && !IsHoliday(day)) days.push_back(day);
  }
  return days;
}

}  // namespace tarvoni::demo

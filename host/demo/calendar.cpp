#include "host/demo/calendar.h"

#include <algorithm>
#include <array>

namespace tarvoni::demo {
namespace {

constexpr auto kEasterMondays =
    std::to_array<DateTime>({{2023, 4, 10}, DateTime{2024, 4, 1}, DateTime{2025, 4, 21}});

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

bool IsHoliday(const DateTime& day) {
  const auto same_day = [&day](const Holiday& h) { return h.month == day.month && h.day == day.day; };
  return std::any_of(kHolidays.begin(), kHolidays.end(), same_day) ||
         std::find(kEasterMondays.begin(), kEasterMondays.end(), day) != kEasterMondays.end();
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

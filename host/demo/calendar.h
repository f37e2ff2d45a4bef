#pragma once

#include <vector>

#include "src/context/values/date_time.h"

namespace tarvoni::demo {

// The demo's present: months up to February 2024 are closed.
inline constexpr DateTime kToday{2024, 4, 12};
inline constexpr DateTime kFirstDay{2023, 1, 1};
inline constexpr int kLastClosedMonth = 202402;

// A month of the years the demo covers.
struct Month {
  int year = 0;
  int month = 0;

  int Number() const { return year * 100 + month; }  // as the month lock counts
  DateTime First() const { return {year, month, 1}; }
  friend bool operator==(const Month&, const Month&) = default;
};

Month MonthOf(const DateTime& day);
Month AddMonths(Month month, int count);
// All months from the one to the other.
std::vector<Month> MonthsBetween(Month first, Month last);

DateTime AddDays(const DateTime& day, int count);
// Monday to Friday without public holidays, both ends included.
std::vector<DateTime> WorkDays(const DateTime& first, const DateTime& last);

}  // namespace tarvoni::demo

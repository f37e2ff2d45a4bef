#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvoni {

// A day of the Gregorian calendar with a time of day in milliseconds, years 1753 to 9999.
struct DateTime {
  int year = 1900;
  int month = 1;
  int day = 1;
  int milliseconds = 0;  // since midnight

  static constexpr int kMillisecondsPerDay = 24 * 60 * 60 * 1000;

  // The day `days` after 1 January 1900 (before, when negative).
  static DateTime FromDays(int days, int milliseconds = 0);
  // Reads the canonical form that ToIso gives; anything else, or a day that does not exist, gives nothing.
  static std::optional<DateTime> FromIso(std::string_view text);

  int Days() const;  // since 1 January 1900
  // "2024-02-29" at midnight, "2024-02-29 13:45:00" otherwise, with ".003" when there are milliseconds:
  // texts of this form sort by time.
  std::string ToIso() const;

  friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

int DaysInMonth(int year, int month);
bool IsValidDate(int year, int month, int day);

}  // namespace tarvoni

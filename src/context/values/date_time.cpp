#include "src/context/values/date_time.h"

#include <array>
#include <cassert>

namespace tarvoni {
namespace {

constexpr int kFirstYear = 1753;
constexpr int kLastYear = 9999;
constexpr int kDaysPerEra = 146097;  // 400 years
constexpr int kDaysTo1900 = 693901;  // from 1 March of the year 0

bool IsLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The digits of `text` from `at`; -1 when one of them is none.
int Number(std::string_view text, std::size_t at, std::size_t count) {
  int number = 0;
  for (const char c : text.substr(at, count)) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

// Milliseconds of " hh:mm:ss" or " hh:mm:ss.fff"; -1 for anything else, midnight too: it is written without a
// time.
int TimeOfIso(std::string_view text) {
  if (text[0] != ' ' || text[3] != ':' || text[6] != ':') return -1;
  const bool has_fraction = text.size() == 13;
  if (has_fraction && text[9] != '.') return -1;
  const int hour = Number(text, 1, 2), minute = Number(text, 4, 2), second = Number(text, 7, 2);
  const int fraction = has_fraction ? Number(text, 10, 3) : 0;
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return -1;
  if (fraction < 0 || (has_fraction && fraction == 0)) return -1;
  const int milliseconds = ((hour * 60 + minute) * 60 + second) * 1000 + fraction;
  return milliseconds == 0 ? -1 : milliseconds;
}

// Writes `number` with `width` digits and goes on behind them.
void Put(char*& at, int number, int width) {
  for (int i = width - 1; i >= 0; --i, number /= 10) at[i] = static_cast<char>('0' + number % 10);
  at += width;
}

}  // namespace

int DaysInMonth(int year, int month) {
  static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  assert(month >= 1 && month <= 12);
  return kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && IsLeapYear(year));
}

bool IsValidDate(int year, int month, int day) {
  return year >= kFirstYear && year <= kLastYear && month >= 1 && month <= 12 && day >= 1 &&
         day <= DaysInMonth(year, month);
}

// Both ways count years from March, so that the leap day is the last of its year.
DateTime DateTime::FromDays(int days, int milliseconds) {
  const int from_march_0 = days + kDaysTo1900;
  const int era = from_march_0 / kDaysPerEra;
  const int day_of_era = from_march_0 % kDaysPerEra;
  const int year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const int day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const int month_from_march = (5 * day_of_year + 2) / 153;
  const int month = month_from_march < 10 ? month_from_march + 3 : month_from_march - 9;
  return {.year = era * 400 + year_of_era + (month <= 2),
          .month = month,
          .day = day_of_year - (153 * month_from_march + 2) / 5 + 1,
          .milliseconds = milliseconds};
}

int DateTime::Days() const {
  const int march_year = year - (month <= 2);
  const int era = march_year / 400;
  const int year_of_era = march_year % 400;
  const int day_of_year = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
  return era * kDaysPerEra + year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year -
         kDaysTo1900;
}

std::optional<DateTime> DateTime::FromIso(std::string_view text) {
  if (text.size() != 10 && text.size() != 19 && text.size() != 23) return std::nullopt;
  if (text[4] != '-' || text[7] != '-') return std::nullopt;
  const int year = Number(text, 0, 4), month = Number(text, 5, 2), day = Number(text, 8, 2);
  const int milliseconds = text.size() == 10 ? 0 : TimeOfIso(text.substr(10));
  if (!IsValidDate(year, month, day) || milliseconds < 0) return std::nullopt;
  return DateTime{.year = year, .month = month, .day = day, .milliseconds = milliseconds};
}

std::string DateTime::ToIso() const {
  std::array<char, 23> buffer;
  char* at = buffer.data();
  Put(at, year, 4);
  *at++ = '-';
  Put(at, month, 2);
  *at++ = '-';
  Put(at, day, 2);
  if (milliseconds == 0) return {buffer.data(), at};
  const int seconds = milliseconds / 1000;
  *at++ = ' ';
  Put(at, seconds / 3600, 2);
  *at++ = ':';
  Put(at, seconds / 60 % 60, 2);
  *at++ = ':';
  Put(at, seconds % 60, 2);
  if (milliseconds % 1000 == 0) return {buffer.data(), at};
  *at++ = '.';
  Put(at, milliseconds % 1000, 3);
  return {buffer.data(), at};
}

}  // namespace tarvoni

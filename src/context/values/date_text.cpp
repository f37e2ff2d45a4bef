#include "src/context/values/date_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <vector>

#include "src/context/values/clock.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr std::array kGermanMonths = {"Januar", "Februar", "März",      "April",   "Mai",      "Juni",
                                      "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
constexpr std::array kEnglishMonths = {"January", "February", "March",     "April",   "May",      "June",
                                       "July",    "August",   "September", "October", "November", "December"};

constexpr int kNoNumber = -1;

// A number of at most `digits` digits.
int ParsePart(std::string_view text, std::size_t digits) {
  int number = kNoNumber;
  const char* const end = text.data() + text.size();
  if (text.size() > digits || std::from_chars(text.data(), end, number).ptr != end) return kNoNumber;
  return number;
}

// "5.3." has two parts as "5.3" has.
std::vector<std::string_view> SplitAtPoints(std::string_view text) {
  if (text.ends_with('.') || text.ends_with(',')) text.remove_suffix(1);
  std::vector<std::string_view> parts;
  for (std::size_t at = 0; at <= text.size();) {
    const auto point = std::min(text.find_first_of(".,", at), text.size());
    parts.push_back(text.substr(at, point - at));
    at = point + 1;
  }
  return parts;
}

// "0503", "050324", "05032024"; nothing for other lengths.
std::vector<std::string_view> SplitDigits(std::string_view text) {
  if (text.size() == 4) return {text.substr(0, 2), text.substr(2)};
  if (text.size() == 6 || text.size() == 8) return {text.substr(0, 2), text.substr(2, 2), text.substr(4)};
  return {};
}

// The year of this century, or of one beside it, that the two digits mean today.
int FullYear(int two_digits) {
  constexpr int kYearsAhead = 20;
  const int last = Clock::Today().year + kYearsAhead;
  const int year = last - last % 100 + two_digits;
  return year > last ? year - 100 : year;
}

int ParseYear(std::string_view text) {
  const int year = ParsePart(text, 4);
  if (text.size() == 4 || year == kNoNumber) return year;
  return text.size() == 2 ? FullYear(year) : kNoNumber;
}

std::string Padded(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text;
}

// What a run of one letter in a date mask stands for; nothing if the letter is no part of a date.
std::optional<std::string> DatePart(const DateTime& date, char letter, std::size_t run,
                                    const Locale& locale) {
  const int seconds = date.milliseconds / 1000;
  switch (letter) {
    case 'd':
      return Padded(date.day, run);
    case 'm':
      if (run <= 2) return Padded(date.month, run);
      if (run == 3) return std::string(utf8::Substring(MonthName(date.month, locale), 0, 3));
      return MonthName(date.month, locale);
    case 'y':
      return run <= 2 ? Padded(date.year % 100, 2) : Padded(date.year, 4);
    case 'h':
      return Padded(seconds / 3600, run);
    case 'n':
      return Padded(seconds / 60 % 60, run);
    case 's':
      return Padded(seconds % 60, run);
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<DateTime> ParseDate(std::string_view text, const std::optional<DateTime>& before) {
  return ParseDate(text, [&] { return before.value_or(Clock::Today()).year; });
}

std::optional<DateTime> ParseDate(std::string_view text, const std::function<int()>& missing_year) {
  text = utf8::Trim(text);
  if (const auto iso = DateTime::FromIso(text)) return iso;
  const bool digits_alone = text.find_first_of(".,") == std::string_view::npos;
  const auto parts = digits_alone ? SplitDigits(text) : SplitAtPoints(text);
  if (parts.size() != 2 && parts.size() != 3) return std::nullopt;
  const int day = ParsePart(parts[0], 2);
  const int month = ParsePart(parts[1], 2);
  const int year = parts.size() == 3 ? ParseYear(parts[2]) : missing_year();
  if (!IsValidDate(year, month, day)) return std::nullopt;
  return DateTime{.year = year, .month = month, .day = day};
}

bool IsDate(std::string_view text) {
  return ParseDate(text).has_value();
}

std::string FormatDate(const DateTime& date, std::string_view mask, const Locale& locale) {
  std::string result;
  for (std::size_t at = 0; at < mask.size();) {
    if (mask[at] == '\\' && at + 1 < mask.size()) {
      result += mask[at + 1];
      at += 2;
      continue;
    }
    if (mask[at] == '"') {
      const auto close = std::min(mask.find('"', at + 1), mask.size());
      result += mask.substr(at + 1, close - at - 1);
      at = close + 1;
      continue;
    }
    const auto run = std::min(mask.find_first_not_of(mask[at], at), mask.size()) - at;
    const auto letter = static_cast<char>(std::tolower(static_cast<unsigned char>(mask[at])));
    result += DatePart(date, letter, run, locale).value_or(std::string(mask.substr(at, run)));
    at += run;
  }
  return result;
}

std::string MonthName(int month, const Locale& locale) {
  const auto& names = locale.language == Language::kEnglish ? kEnglishMonths : kGermanMonths;
  return names.at(static_cast<std::size_t>(month - 1));
}

}  // namespace tarvoni

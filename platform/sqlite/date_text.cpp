#include "platform/sqlite/date_text.h"

#include <array>
#include <cmath>
#include <optional>

#include "platform/sqlite/server_error.h"
#include "src/context/values/text.h"

namespace tarvoni::sqlite {
namespace {

using tsql::TypeKind;

constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};
constexpr std::size_t kShortMonth = 3;
constexpr std::int64_t kTicksPerDay = 24LL * 60 * 60 * 300;

struct Number {
  int value = 0;
  int digits = 0;
};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}

// Reads a date from left to right.
class DateReader {
 public:
  DateReader(std::string_view text, DateFormat format) : rest_(text), format_(format) {}

  DateTime Read();

 private:
  [[noreturn]] static void Refuse() { Raise(kDateSyntax); }

  char Next() const { return rest_.empty() ? '\0' : rest_[0]; }
  bool Take(char c) {
    const bool found = Next() == c;
    if (found) rest_.remove_prefix(1);
    return found;
  }
  void SkipBlanks() {
    while (Take(' ')) {
    }
  }
  Number TakeNumber(int most_digits);
  std::string_view TakeWord();

  bool TimeComes() const;
  int TakeTime();
  int TakeIsoTime();
  int TakeFraction(char point);
  std::optional<bool> TakeAfternoon();

  DateTime TakeDay();
  DateTime TakeDigitsDay(Number digits);
  DateTime TakeNumbersDay(Number first);
  DateTime TakeNamedDay(std::optional<Number> first);
  int TakeMonthName();

  std::string_view rest_;
  DateFormat format_;
};

int FullYear(Number year) {
  constexpr int kLastShortYear = 49;  // '49' is 2049, '50' is 1950
  if (year.digits == 4) return year.value;
  return year.value + (year.value <= kLastShortYear ? 2000 : 1900);
}

DateTime RequireDate(int year, int month, int day) {
  if (!IsValidDate(year, month, day)) Raise(kDateRange);
  return {.year = year, .month = month, .day = day};
}

Number DateReader::TakeNumber(int most_digits) {
  Number number;
  for (; IsDigit(Next()); rest_.remove_prefix(1)) {
    number.value = number.value * 10 + (Next() - '0');
    if (++number.digits > most_digits) Refuse();
  }
  if (number.digits == 0) Refuse();
  return number;
}

std::string_view DateReader::TakeWord() {
  std::size_t size = 0;
  while (size < rest_.size() && IsLetter(rest_[size])) ++size;
  const std::string_view word = rest_.substr(0, size);
  rest_.remove_prefix(size);
  return word;
}

// Digits before a colon, or before AM or PM.
bool DateReader::TimeComes() const {
  const std::size_t digits = rest_.find_first_not_of("0123456789");
  if (digits == 0 || digits == std::string_view::npos || digits > 2) return false;
  std::string_view rest = rest_.substr(digits);
  if (rest.starts_with(':')) return true;
  while (rest.starts_with(' ')) rest.remove_prefix(1);
  const std::string_view mark = rest.substr(0, 2);
  const bool ends = rest.size() <= 2 || !IsLetter(rest[2]);
  return ends && (CompareText(mark, "AM") == 0 || CompareText(mark, "PM") == 0);
}

// ".5" are 500 milliseconds, ":5" are 5.
int DateReader::TakeFraction(char point) {
  if (!Take(point)) return 0;
  const Number fraction = TakeNumber(3);
  constexpr std::array<int, 4> kUnits = {1, 100, 10, 1};
  return point == '.' ? fraction.value * kUnits[static_cast<std::size_t>(fraction.digits)] : fraction.value;
}

std::optional<bool> DateReader::TakeAfternoon() {
  SkipBlanks();
  const std::string_view word = TakeWord();
  if (word.empty()) return std::nullopt;
  const bool afternoon = CompareText(word, "PM") == 0;
  if (!afternoon && CompareText(word, "AM") != 0) Refuse();
  return afternoon;
}

int DateReader::TakeTime() {
  int hour = TakeNumber(2).value;
  const int minute = Take(':') ? TakeNumber(2).value : 0;
  const int second = Take(':') ? TakeNumber(2).value : 0;
  const int fraction = TakeFraction(Next() == ':' ? ':' : '.');
  if (const auto afternoon = TakeAfternoon()) {
    if (hour > 12 && !*afternoon) Raise(kDateRange);
    if (hour <= 12) hour = hour % 12 + (*afternoon ? 12 : 0);
  }
  if (hour > 23 || minute > 59 || second > 59) Raise(kDateRange);
  return ((hour * 60 + minute) * 60 + second) * 1000 + fraction;
}

// Behind a "T" nothing may be left out: "18:30:00", with a fraction or without.
int DateReader::TakeIsoTime() {
  const auto two_digits = [this](std::size_t at) {
    return rest_.size() > at + 1 && IsDigit(rest_[at]) && IsDigit(rest_[at + 1]);
  };
  const bool whole = two_digits(0) && two_digits(3) && two_digits(6) && rest_[2] == ':' && rest_[5] == ':';
  const bool ends = whole && rest_.find_first_not_of("0123456789.:") == std::string_view::npos;
  if (!ends || rest_.substr(8).starts_with(':')) Refuse();
  return TakeTime();
}

int DateReader::TakeMonthName() {
  const std::string_view word = TakeWord();
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    const bool whole = CompareText(word, kMonths[i]) == 0;
    if (whole || CompareText(word, kMonths[i].substr(0, kShortMonth)) == 0) return static_cast<int>(i) + 1;
  }
  Refuse();
}

// "Feb 29 2024", "29 Feb 2024", "February 29, 2024", "Feb 2024".
DateTime DateReader::TakeNamedDay(std::optional<Number> first) {
  const int month = TakeMonthName();
  const auto number = [this]() -> std::optional<Number> {
    while (Take(' ') || Take(',') || Take('-') || Take('.')) {
    }
    if (!IsDigit(Next()) || TimeComes()) return std::nullopt;
    return TakeNumber(4);
  };
  if (!first) first = number();
  const auto second = number();
  if (!first) Refuse();
  if (!second) {
    if (first->digits != 4) Refuse();
    return RequireDate(first->value, month, 1);
  }
  const bool year_first = first->digits == 4;
  const Number year = year_first ? *first : *second, day = year_first ? *second : *first;
  if (day.digits > 2 || year.digits == 3) Refuse();
  return RequireDate(FullYear(year), month, day.value);
}

// "20240229", "240229" and "2024".
DateTime DateReader::TakeDigitsDay(Number digits) {
  if (digits.digits == 4) return RequireDate(digits.value, 1, 1);
  const int year = digits.value / 10000;
  const int month = digits.value / 100 % 100, day = digits.value % 100;
  return RequireDate(digits.digits == 8 ? year : FullYear({year, 2}), month, day);
}

// Three numbers with a sign between. One of four digits is the year wherever it stands; the other two keep the order
// of the format. Before a time behind a "T" they are year, month and day.
DateTime DateReader::TakeNumbersDay(Number first) {
  const char sign = Next();
  if (sign != '/' && sign != '-' && sign != '.') Refuse();
  std::array<Number, 3> numbers = {first, {}, {}};
  for (std::size_t i = 1; i < numbers.size(); ++i) {
    if (!Take(sign)) Refuse();
    numbers[i] = TakeNumber(4);
  }
  struct Places {
    std::size_t year, month, day;
  };
  static constexpr std::array<Places, 6> kPlaces = {
      {{2, 0, 1}, {2, 1, 0}, {0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}}};
  const bool iso = (Next() | 0x20) == 't';
  Places places = kPlaces[static_cast<std::size_t>(iso ? DateFormat::kYmd : format_)];
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (numbers[i].digits != 4) continue;
    const bool month_first = places.month < places.day;
    const std::size_t earlier = i == 0 ? 1 : 0, later = i == 2 ? 1 : 2;
    places = {i, month_first ? earlier : later, month_first ? later : earlier};
    break;
  }
  const Number year = numbers[places.year], month = numbers[places.month], day = numbers[places.day];
  if (month.digits > 2 || day.digits > 2 || year.digits == 3) Refuse();
  return RequireDate(FullYear(year), month.value, day.value);
}

DateTime DateReader::TakeDay() {
  if (IsLetter(Next())) return TakeNamedDay(std::nullopt);
  const Number first = TakeNumber(8);
  const bool separated = Next() != '\0' && Next() != ' ' && (Next() | 0x20) != 't';
  if (!separated && (first.digits == 8 || first.digits == 6 || first.digits == 4))
    return TakeDigitsDay(first);
  if (first.digits > 4) Refuse();
  const std::string_view behind = rest_;
  while (Take(' ') || Take('-')) {
  }
  if (IsLetter(Next())) return TakeNamedDay(first);
  rest_ = behind;
  return TakeNumbersDay(first);
}

// Milliseconds to the nearest step; a step has three and a third of them.
std::int64_t TicksOf(const DateTime& date) {
  return date.Days() * kTicksPerDay + (date.milliseconds * std::int64_t{3} + 5) / 10;
}

std::optional<DateTime> FromTicks(std::int64_t ticks) {
  static const int first_day = DateTime{.year = 1753}.Days();
  static const int last_day = DateTime{.year = 9999, .month = 12, .day = 31}.Days();
  const std::int64_t from_start = ticks - first_day * kTicksPerDay;
  const std::int64_t days = first_day + from_start / kTicksPerDay;
  if (from_start < 0 || days > last_day) return std::nullopt;
  const auto of_day = static_cast<int>(from_start % kTicksPerDay);
  return DateTime::FromDays(static_cast<int>(days), (of_day * 10 + 1) / 3);
}

DateTime DateReader::Read() {
  std::optional<DateTime> day;
  std::optional<int> time;
  for (SkipBlanks(); !rest_.empty(); SkipBlanks()) {
    if (!time && TimeComes()) {
      time = TakeTime();
    } else if (!day) {
      day = TakeDay();
      if ((Next() | 0x20) == 't') {
        rest_.remove_prefix(1);
        time = TakeIsoTime();
      }
    } else {
      Refuse();
    }
  }
  DateTime date = day.value_or(DateTime());
  date.milliseconds = time.value_or(0);
  const auto rounded = FromTicks(TicksOf(date));
  if (!rounded) Raise(kDateRange);
  return *rounded;
}

// Anything beyond the calendar's length lies outside of it, from wherever it is counted.
std::optional<std::int64_t> TicksOfDays(double days) {
  constexpr double kMostDays = 4e6;
  if (!(std::abs(days) < kMostDays)) return std::nullopt;
  return std::llround(days * static_cast<double>(kTicksPerDay));
}

void PutTwo(std::string& text, int number, char fill) {
  text += number < 10 ? fill : static_cast<char>('0' + number / 10);
  text += static_cast<char>('0' + number % 10);
}

}  // namespace

DateFormat ParseDateFormat(std::string_view name) {
  static constexpr std::array<std::string_view, 6> kNames = {"mdy", "dmy", "ymd", "ydm", "myd", "dym"};
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (CompareText(name, kNames[i]) == 0) return static_cast<DateFormat>(i);
  }
  Raise(kDateOrder, "SET DATEFORMAT date order '" + std::string(name) + "' is invalid.");
}

DateTime DateFromText(std::string_view text, DateFormat format) {
  return DateReader(text, format).Read();
}

std::string TextFromDate(const DateTime& date) {
  const int minutes = date.milliseconds / 60000;
  const int hour = minutes / 60;
  std::string text(kMonths[static_cast<std::size_t>(date.month - 1)].substr(0, kShortMonth));
  PutTwo(text += ' ', date.day, ' ');
  text += ' ' + std::to_string(date.year);
  PutTwo(text += ' ', hour % 12 == 0 ? 12 : hour % 12, ' ');
  PutTwo(text += ':', minutes % 60, '0');
  return text += hour < 12 ? "AM" : "PM";
}

DateTime DateFromDays(double days) {
  const auto ticks = TicksOfDays(days);
  const auto date = ticks ? FromTicks(*ticks) : std::nullopt;
  if (!date) RaiseOverflow(TypeKind::kDateTime);
  return *date;
}

DateTime ToMinutes(const DateTime& date) {
  constexpr int kMinute = 60'000;
  constexpr int kRoundedUp = 29'999;
  constexpr int kDay = 24 * 60 * kMinute;
  const int minutes = (date.milliseconds + kMinute - kRoundedUp) / kMinute;
  const DateTime rounded =
      DateTime::FromDays(date.Days() + minutes * kMinute / kDay, minutes * kMinute % kDay);
  if (rounded.year < 1900 || rounded.year > 2079) Raise(kDateRange);
  return rounded;
}

DateTime AddDays(const DateTime& date, double days) {
  const auto ticks = TicksOfDays(days);
  const auto sum = ticks ? FromTicks(TicksOf(date) + *ticks) : std::nullopt;
  if (!sum) Raise(kDateOverflow);
  return *sum;
}

}  // namespace tarvoni::sqlite

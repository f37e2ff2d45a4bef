#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "src/context/values/decimal.h"
#include "src/context/values/locale.h"
#include "src/context/values/value.h"

// Numbers as users read and type them.
namespace tarvoni {

// Reads what a user typed: blanks around, a sign, digits, at most one decimal separator of the locale. Group
// separators and the other locale's point are refused, as "8.765" could mean two numbers.
std::optional<Decimal> ParseNumber(std::string_view text, const Locale& locale);
bool IsNumeric(std::string_view text, const Locale& locale);

// A number from elsewhere as it is typed in the locale: "1.234,50", "1 234,50" and "1,234.50" are 1234,50 in German.
// Nothing for a text that is no number or could be two, as "8.765" where the point groups.
std::optional<std::string> PlainNumber(std::string_view text, const Locale& locale);

// Formats by a mask of `#` and `0` with a decimal point, such as "#0.00"; the point is written as the
// locale's separator. A leading `-` in the mask stands for the sign that negative values get anyway. Rounds
// half away from zero.
std::string FormatNumber(const Decimal& number, std::string_view mask, const Locale& locale);
// The double is taken as its shortest decimal: 1.005 is 1.01 with two places.
std::string FormatNumber(double number, std::string_view mask, const Locale& locale);
// Shortest form in the locale: "12,5".
std::string NumberToText(const Decimal& number, const Locale& locale);
std::string NumberToText(double number, const Locale& locale);

// The size of a typed number by its mask: digits before and behind the separator, and whether a minus may
// stand.
struct NumberMask {
  int whole = 0;
  int places = 0;
  bool minus = false;

  static NumberMask Of(std::string_view mask);
  // Whether the text could become a number of this size by typing on: "", "-", "12,".
  bool Admits(std::string_view text, const Locale& locale) const;
};

// The nearest integer, half to even as the platform converts; OverflowError beyond its range, CallError for a
// text that is no number.
std::int16_t ToInt16(double number);
std::int32_t ToInt32(double number);
std::int16_t ToInt16(std::string_view text, const Locale& locale);
std::int32_t ToInt32(std::string_view text, const Locale& locale);

// The number a value holds: NULL is nothing, flags are 0 and 1, texts are read by the locale; nothing for
// others.
std::optional<Decimal> NumberOf(const Value& value, const Locale& locale);

}  // namespace tarvoni

#include "src/context/values/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "src/context/values/call_error.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

Decimal ExactOf(double number) {
  std::array<char, 400> buffer;
  const auto [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (const auto exact = Decimal::Parse(text)) return *exact;
  // More digits than a decimal holds: those behind the point give way.
  if (const auto rounded = Decimal::FromDouble(number, 6)) return *rounded;
  throw OverflowError("Die Zahl ist zu groß.");
}

// The parts of a mask like "-####0.00".
struct Mask {
  std::string_view whole;
  std::string_view places;
  bool minus = false;
};

Mask Split(std::string_view mask) {
  Mask parts;
  parts.minus = mask.starts_with('-');
  if (parts.minus) mask.remove_prefix(1);
  const auto point = std::min(mask.find('.'), mask.size());
  parts.whole = mask.substr(0, point);
  parts.places = mask.substr(std::min(point + 1, mask.size()));
  return parts;
}

int CountZeros(std::string_view placeholders) {
  return static_cast<int>(std::ranges::count(placeholders, '0'));
}

std::string PadWhole(std::string_view digits, int least) {
  const auto first = std::min(digits.find_first_not_of('0'), digits.size());
  digits.remove_prefix(first);
  const auto missing = std::max(least - static_cast<int>(digits.size()), 0);
  return std::string(static_cast<std::size_t>(missing), '0').append(digits);
}

void DropOptionalZeros(std::string& digits, int least) {
  while (static_cast<int>(digits.size()) > least && digits.back() == '0') digits.pop_back();
}

double RoundHalfToEven(double number) {
  const double rounded = std::round(number);
  const bool tie = std::abs(number - std::trunc(number)) == 0.5;
  return tie ? 2.0 * std::round(number / 2.0) : rounded;
}

template <typename Integer>
Integer Convert(double number) {
  const double rounded = RoundHalfToEven(number);
  using Limits = std::numeric_limits<Integer>;
  if (!(rounded >= Limits::min() && rounded <= Limits::max()))
    throw OverflowError("Überlauf: Die Zahl ist zu groß.");
  return static_cast<Integer>(rounded);
}

double RequireNumber(std::string_view text, const Locale& locale) {
  if (const auto number = ParseNumber(text, locale)) return number->ToDouble();
  throw CallError("\"" + std::string(text) + "\" ist keine Zahl.");
}

std::string WithSeparator(std::string text, const Locale& locale) {
  std::ranges::replace(text, '.', locale.decimal_separator);
  return text;
}

bool IsPoint(char32_t sign) {
  return sign == U'.' || sign == U',';
}

// Blanks, of any width, and apostrophes group digits; a point or comma may.
bool IsGroupSign(char32_t sign) {
  return IsPoint(sign) ||
         std::u32string_view(U" \u00A0\u2009\u202F'\u2019").find(sign) != std::u32string_view::npos;
}

// The digits of a number and the signs between them: "-1.234,50" is a minus, "1" "234" "50" and "." ",".
class DigitGroups {
 public:
  explicit DigitGroups(std::string_view text) {
    for (const char32_t c : utf8::Decode(text)) {
      if (c < 128 && IsDigit(static_cast<char>(c))) {
        groups_.back() += static_cast<char>(c);
      } else if (IsGroupSign(c)) {
        signs_ += c;
        groups_.emplace_back();
      } else if ((c == U'-' || c == U'\u2212') && !minus_ && groups_.size() == 1 && groups_[0].empty()) {
        minus_ = true;
      } else {
        readable_ = false;
      }
    }
  }

  // Groups of three, at most one point behind them all; a group's first digit is no zero.
  bool IsNumber() const {
    if (!readable_ || (groups_.size() == 1 && groups_[0].empty())) return false;
    const std::size_t grouped = groups_.size() - (HasPoint() ? 1 : 0);
    if (grouped == 1) return !groups_[0].empty() || !groups_.back().empty();
    const bool same = std::ranges::all_of(signs_.substr(0, grouped - 1),
                                          [this](char32_t sign) { return sign == signs_[0]; });
    return same && StartsGroups() &&
           std::all_of(groups_.begin() + 1, groups_.begin() + static_cast<std::ptrdiff_t>(grouped),
                       [](const std::string& group) { return group.size() == 3; });
  }

  // One foreign point before three digits may be this locale's grouping or the other one's decimals.
  bool IsAmbiguous(const Locale& locale) const {
    const bool foreign = signs_.size() == 1 && IsPoint(signs_[0]) && !IsLocales(signs_[0], locale);
    return foreign && groups_[1].size() == 3 && StartsGroups();
  }

  std::string Plain(const Locale& locale) const {
    std::string plain = minus_ ? "-" : "";
    for (std::size_t i = 0; i < groups_.size(); ++i) {
      if (HasPoint() && i + 1 == groups_.size()) plain += locale.decimal_separator;
      plain += groups_[i];
    }
    return plain;
  }

 private:
  static bool IsLocales(char32_t sign, const Locale& locale) {
    return sign == static_cast<char32_t>(locale.decimal_separator);
  }
  bool StartsGroups() const { return !groups_[0].empty() && groups_[0].size() <= 3 && groups_[0][0] != '0'; }
  // Whether the last sign parts the decimals: it comes once, and is a point.
  bool HasPoint() const {
    return !signs_.empty() && IsPoint(signs_.back()) && std::ranges::count(signs_, signs_.back()) == 1;
  }

  std::vector<std::string> groups_ = {""};
  std::u32string signs_;
  bool minus_ = false;
  bool readable_ = true;
};

}  // namespace

std::optional<Decimal> ParseNumber(std::string_view text, const Locale& locale) {
  std::string plain(utf8::Trim(text));
  const char foreign = locale.decimal_separator == '.' ? ',' : '.';
  if (plain.find(foreign) != std::string::npos) return std::nullopt;
  std::ranges::replace(plain, locale.decimal_separator, '.');
  if (std::ranges::none_of(plain, IsDigit)) return std::nullopt;
  return Decimal::Parse(plain);
}

std::optional<std::string> PlainNumber(std::string_view text, const Locale& locale) {
  const DigitGroups groups(utf8::Trim(text));
  if (!groups.IsNumber() || groups.IsAmbiguous(locale)) return std::nullopt;
  return groups.Plain(locale);
}

bool IsNumeric(std::string_view text, const Locale& locale) {
  return ParseNumber(text, locale).has_value();
}

std::string FormatNumber(const Decimal& number, std::string_view mask, const Locale& locale) {
  const Mask parts = Split(mask);
  const auto rounded = number.Rescaled(static_cast<int>(parts.places.size()));
  if (!rounded) throw OverflowError("Die Zahl ist zu groß.");
  std::string digits = rounded->ToString();
  const bool negative = digits.starts_with('-');
  if (negative) digits.erase(0, 1);
  const auto point = std::min(digits.find('.'), digits.size());
  std::string places = digits.substr(std::min(point + 1, digits.size()));
  DropOptionalZeros(places, CountZeros(parts.places));
  std::string result = negative && rounded->Unscaled() != 0 ? "-" : "";
  result += PadWhole(std::string_view(digits).substr(0, point), CountZeros(parts.whole));
  if (!places.empty()) result.append(1, locale.decimal_separator).append(places);
  return result;
}

std::string FormatNumber(double number, std::string_view mask, const Locale& locale) {
  return FormatNumber(ExactOf(number), mask, locale);
}

std::string NumberToText(const Decimal& number, const Locale& locale) {
  return WithSeparator(number.ToShortString(), locale);
}

std::string NumberToText(double number, const Locale& locale) {
  return NumberToText(ExactOf(number), locale);
}

NumberMask NumberMask::Of(std::string_view mask) {
  const Mask parts = Split(mask);
  // "0.00" and "#0.00" tell how an amount looks, not how long it may be.
  const bool amount =
      !parts.places.empty() && (parts.whole == "0" || parts.whole == "#" || parts.whole == "#0");
  return {.whole = amount ? Decimal::kMaxDigits / 2 : static_cast<int>(parts.whole.size()),
          .places = static_cast<int>(parts.places.size()),
          .minus = parts.minus};
}

bool NumberMask::Admits(std::string_view text, const Locale& locale) const {
  if (text.starts_with('-')) {
    if (!minus) return false;
    text.remove_prefix(1);
  }
  const auto separator = std::min(text.find(locale.decimal_separator), text.size());
  if (separator < text.size() && places == 0) return false;
  const std::string_view before = text.substr(0, separator);
  const std::string_view behind = text.substr(std::min(separator + 1, text.size()));
  return std::ranges::all_of(before, IsDigit) && std::ranges::all_of(behind, IsDigit) &&
         static_cast<int>(before.size()) <= whole && static_cast<int>(behind.size()) <= places;
}

std::int16_t ToInt16(double number) {
  return Convert<std::int16_t>(number);
}
std::int32_t ToInt32(double number) {
  return Convert<std::int32_t>(number);
}
std::int16_t ToInt16(std::string_view text, const Locale& locale) {
  return ToInt16(RequireNumber(text, locale));
}
std::int32_t ToInt32(std::string_view text, const Locale& locale) {
  return ToInt32(RequireNumber(text, locale));
}

std::optional<Decimal> NumberOf(const Value& value, const Locale& locale) {
  if (const auto* flag = std::get_if<bool>(&value)) return Decimal(*flag ? 1 : 0, 0);
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return Decimal(*whole, 0);
  if (const auto* number = std::get_if<double>(&value)) return ExactOf(*number);
  if (const auto* decimal = std::get_if<Decimal>(&value)) return *decimal;
  if (const auto* text = std::get_if<std::string>(&value)) return ParseNumber(*text, locale);
  return std::nullopt;
}

}  // namespace tarvoni

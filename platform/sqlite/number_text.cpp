#include "platform/sqlite/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <optional>

#include "platform/sqlite/exact.h"
#include "platform/sqlite/server_error.h"
#include "platform/sqlite/whole.h"
#include "src/context/values/text.h"
#include "src/context/values/wide_integer.h"

namespace tarvoni::sqlite {
namespace {

using tsql::Type;
using tsql::TypeKind;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The parts of a number: [sign] whole [. fraction] [e exponent].
struct NumberParts {
  bool negative = false;
  bool has_point = false;
  std::string_view whole;  // without leading zeros
  std::string_view fraction;
  std::string_view exponent;  // with its sign
  bool any_digit = false;
};

bool TakeSign(std::string_view& text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return negative;
}

std::string_view TakeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  const std::string_view digits(text.begin(), end);
  text.remove_prefix(digits.size());
  return digits;
}

// Takes "e+5" off the front; false when the letter is there without a number.
bool TakeExponent(std::string_view& text, std::string_view& exponent) {
  if (text.empty() || std::string_view("eEdD").find(text[0]) == std::string_view::npos) return true;
  std::string_view rest = text.substr(1);
  const bool negative = TakeSign(rest);
  const std::string_view digits = TakeDigits(rest);
  const auto sign_size = static_cast<std::size_t>(negative);
  exponent = {digits.data() - sign_size, digits.size() + sign_size};
  text = rest;
  return !digits.empty();
}

std::optional<NumberParts> ReadParts(std::string_view text) {
  NumberParts parts;
  parts.negative = TakeSign(text);
  parts.whole = TakeDigits(text);
  parts.has_point = text.starts_with('.');
  if (parts.has_point) {
    text.remove_prefix(1);
    parts.fraction = TakeDigits(text);
  }
  parts.any_digit = !parts.whole.empty() || !parts.fraction.empty();
  parts.whole.remove_prefix(std::min(parts.whole.find_first_not_of('0'), parts.whole.size()));
  if (!TakeExponent(text, parts.exponent) || !text.empty()) return std::nullopt;
  return parts;
}

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

// Units of the `scale`th place, half away from zero; nothing beyond `precision` digits.
std::optional<Int128> UnitsOf(const NumberParts& parts, int precision, int scale) {
  const auto places = static_cast<std::size_t>(scale);
  if (parts.whole.size() + places > static_cast<std::size_t>(precision) && !parts.whole.empty()) {
    return std::nullopt;
  }
  UInt128 units = 0;
  const auto append = [&units](char digit) { units = units * 10 + static_cast<UInt128>(digit - '0'); };
  std::for_each(parts.whole.begin(), parts.whole.end(), append);
  for (std::size_t i = 0; i < places; ++i) append(i < parts.fraction.size() ? parts.fraction[i] : '0');
  if (places < parts.fraction.size() && parts.fraction[places] >= '5') ++units;
  if (units >= static_cast<UInt128>(PowerOfTen(precision))) return std::nullopt;
  return WithSign(units, parts.negative);
}

[[noreturn]] void RaiseTooLarge(std::string_view text, TypeKind kind) {
  if (kind == TypeKind::kBigInt || kind == TypeKind::kBit) RaiseOverflow(kind);
  Raise(kind == TypeKind::kInt ? kIntegerText : kSmallIntegerText,
        "The conversion of the nvarchar value '" + std::string(text) + "' overflowed the data type " +
            std::string(NameOf(kind)) + ".");
}

// Takes a currency sign off the front.
void TakeCurrency(std::string_view& text) {
  for (const std::string_view sign : {"$", "€", "£", "¥", "¢", "¤"}) {
    if (!text.starts_with(sign)) continue;
    text.remove_prefix(sign.size());
    return;
  }
}

// An amount without its currency sign and group commas: "-$1,250.5" as "-1250.5".
std::string PlainMoney(std::string_view text) {
  std::string plain(text.substr(0, text.starts_with('-') || text.starts_with('+') ? 1 : 0));
  text.remove_prefix(plain.size());
  TakeCurrency(text);
  text = Trimmed(text);
  const std::string_view whole = text.substr(0, text.find('.'));
  std::copy_if(whole.begin(), whole.end(), std::back_inserter(plain), [](char c) { return c != ','; });
  return plain += text.substr(whole.size());
}

// Signs without any digit count as 0; the parts point into `plain`.
std::optional<NumberParts> ReadMoney(const std::string& plain) {
  const auto parts = ReadParts(plain);
  return parts && parts->exponent.empty() ? parts : std::nullopt;
}

// The float of a well-formed number; nothing when it is too large.
std::optional<double> FloatOf(const NumberParts& parts, std::string_view text) {
  std::string plain(text.substr(text.starts_with('+') ? 1 : 0));
  std::replace_if(
      plain.begin(), plain.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
  double value = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (error != std::errc::result_out_of_range) return value;
  const bool too_small = parts.exponent.empty() ? parts.whole.empty() : parts.exponent.starts_with('-');
  if (too_small) return 0.0;
  return std::nullopt;
}

std::optional<NumberParts> ReadFloat(std::string_view text) {
  const auto parts = ReadParts(text);
  return parts && parts->any_digit ? parts : std::nullopt;
}

}  // namespace

std::int64_t WholeFromText(std::string_view text, TypeKind kind) {
  const std::string_view trimmed = Trimmed(text);
  if (trimmed.empty()) return 0;
  if (kind == TypeKind::kBit) {
    if (CompareText(trimmed, "true") == 0) return 1;
    if (CompareText(trimmed, "false") == 0) return 0;
  }
  const auto parts = ReadParts(trimmed);
  if (!parts || !parts->any_digit || parts->has_point || !parts->exponent.empty()) {
    RaiseSyntax(kind == TypeKind::kBigInt ? kNumberSyntax : kIntegerSyntax, text, kind);
  }
  if (kind == TypeKind::kBit) return !parts->whole.empty();
  const auto value = UnitsOf(*parts, Decimal::kMaxDigits, 0);
  if (!value || !FitsKind(*value, kind)) RaiseTooLarge(text, kind);
  return static_cast<std::int64_t>(*value);
}

Int128 ExactFromText(std::string_view text, int precision, int scale) {
  const auto parts = ReadParts(Trimmed(text));
  if (!parts || !parts->any_digit || !parts->exponent.empty()) {
    RaiseSyntax(kNumberSyntax, text, TypeKind::kDecimal);
  }
  const auto units = UnitsOf(*parts, precision, scale);
  if (!units) RaiseOverflow(TypeKind::kDecimal);
  return *units;
}

std::int64_t MoneyFromText(std::string_view text) {
  const std::string plain = PlainMoney(Trimmed(text));
  const auto parts = ReadMoney(plain);
  if (!parts) Raise(kMoneySyntax);
  const auto units = UnitsOf(*parts, Decimal::kMaxDigits, Type::kMoneyScale);
  if (!units) RaiseOverflow(TypeKind::kMoney);
  return RequireMoney(*units);
}

double FloatFromText(std::string_view text) {
  const std::string_view trimmed = Trimmed(text);
  if (trimmed.empty()) return 0;
  const auto parts = ReadFloat(trimmed);
  if (!parts) RaiseSyntax(kNumberSyntax, text, TypeKind::kFloat);
  const auto value = FloatOf(*parts, trimmed);
  if (!value) RaiseOverflow(TypeKind::kFloat);
  return *value;
}

bool IsNumericText(std::string_view text) {
  const std::string_view trimmed = Trimmed(text);
  if (trimmed.empty()) return false;
  if (const auto parts = ReadFloat(trimmed)) return FloatOf(*parts, trimmed).has_value();
  return ReadMoney(PlainMoney(trimmed)).has_value();
}

std::string TextFromFloat(double value) {
  constexpr int kDigits = 6;
  constexpr std::size_t kExponentDigits = 3;
  if (value == 0) return "0";
  std::array<char, 32> buffer;
  const auto end =
      std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::general, kDigits).ptr;
  std::string text(buffer.begin(), end);
  const std::size_t exponent = text.find('e');
  if (exponent == std::string::npos) return text;
  const std::size_t digits = exponent + 2;
  return text.insert(digits, kExponentDigits - std::min(kExponentDigits, text.size() - digits), '0');
}

}  // namespace tarvoni::sqlite

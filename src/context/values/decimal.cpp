#include "src/context/values/decimal.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>

#include "src/context/values/wide_integer.h"

namespace tarvoni {
namespace {

constexpr auto kPowers = [] {
  std::array<Int128, Decimal::kMaxDigits + 1> powers{};
  Int128 power = 1;
  for (std::size_t i = 0; i < powers.size(); ++i, power *= i < powers.size() ? 10 : 1) powers[i] = power;
  return powers;
}();

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::optional<Decimal> Checked(UInt128 magnitude, bool negative, int scale) {
  if (!FitsDigits(magnitude)) return std::nullopt;
  return Decimal(WithSign(magnitude, negative), scale);
}

// The quotient by a power of ten, half away from zero.
Int128 DivideByPower(Int128 value, int exponent) {
  const Int128 power = PowerOfTen(exponent);
  const Int128 remainder = value % power;
  const Int128 quotient = value / power;
  if (remainder >= power - remainder) return quotient + 1;
  if (remainder <= -power - remainder) return quotient - 1;
  return quotient;
}

std::optional<Int128> MultiplyByPower(Int128 value, int exponent) {
  Int128 product = 0;
  if (value == 0) return product;
  if (exponent > Decimal::kMaxDigits || __builtin_mul_overflow(value, PowerOfTen(exponent), &product)) {
    return std::nullopt;
  }
  return product;
}

// The digits of a number of at most 39 digits, at the end of `buffer`.
std::string_view Digits(UInt128 magnitude, std::array<char, 40>& buffer) {
  auto at = buffer.end();
  while (magnitude > ~std::uint64_t{0}) {
    *--at = static_cast<char>('0' + static_cast<int>(magnitude % 10));
    magnitude /= 10;
  }
  for (auto rest = static_cast<std::uint64_t>(magnitude); rest != 0; rest /= 10) {
    *--at = static_cast<char>('0' + rest % 10);
  }
  return {at, buffer.end()};
}

std::strong_ordering Order(Int128 a, Int128 b) {
  if (a == b) return std::strong_ordering::equal;
  return a < b ? std::strong_ordering::less : std::strong_ordering::greater;
}

// `a`, of fewer places, against `b`: scaling up overflows only where `a` is the greater in magnitude.
std::strong_ordering CompareScaled(Int128 a, int missing_places, Int128 b) {
  const auto scaled = MultiplyByPower(a, missing_places);
  return scaled ? Order(*scaled, b) : Order(a, 0);
}

// Brings both to the greater scale and applies `operation`, which tells of overflow as the compiler's do.
template <typename Operation>
std::optional<Decimal> Combine(const Decimal& a, const Decimal& b, Operation operation) {
  const int scale = std::max(a.Scale(), b.Scale());
  const auto left = a.Rescaled(scale), right = b.Rescaled(scale);
  Int128 result = 0;
  if (!left || !right || operation(left->Unscaled(), right->Unscaled(), &result)) return std::nullopt;
  return Checked(Magnitude(result), result < 0, scale);
}

}  // namespace

Int128 PowerOfTen(int exponent) {
  assert(exponent >= 0 && exponent <= Decimal::kMaxDigits);
  return kPowers[static_cast<std::size_t>(exponent)];
}

std::optional<Decimal> Decimal::Parse(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  UInt128 magnitude = 0;
  int scale = 0;
  bool point = false, any_digit = false;
  for (const char c : text) {
    if (c == '.' && !point) {
      point = true;
      continue;
    }
    if (!IsDigit(c)) return std::nullopt;
    any_digit = true;
    magnitude = magnitude * 10 + static_cast<UInt128>(c - '0');
    scale += point;
    if (!FitsDigits(magnitude) || scale > kMaxDigits) return std::nullopt;
  }
  if (!any_digit) return std::nullopt;
  return Decimal(WithSign(magnitude, negative), scale);
}

std::optional<Decimal> Decimal::FromDouble(double value, int scale) {
  if (!std::isfinite(value) || std::abs(value) >= 1e38) return std::nullopt;
  int exponent = 0;
  // A double is a whole number of 53 bits times a power of two: no step of this rounds but the last.
  const double mantissa = std::ldexp(std::frexp(std::abs(value), &exponent), 53);
  auto whole = static_cast<UInt128>(mantissa);
  exponent -= 53;
  if (exponent > 0) whole <<= exponent;
  const UInt256 product = MultiplyWide(whole, static_cast<UInt128>(PowerOfTen(scale)));
  const auto magnitude = ShiftRightRounded(product, std::max(0, -exponent));
  return magnitude ? Checked(*magnitude, value < 0, scale) : std::nullopt;
}

std::optional<Decimal> Decimal::Rescaled(int scale) const {
  if (scale <= scale_) {
    const Int128 unscaled = DivideByPower(Unscaled(), scale_ - scale);
    return Checked(Magnitude(unscaled), unscaled < 0, scale);
  }
  const auto unscaled = MultiplyByPower(Unscaled(), scale - scale_);
  return unscaled ? Checked(Magnitude(*unscaled), *unscaled < 0, scale) : std::nullopt;
}

Decimal Decimal::Rounded(int places) const {
  const long drop = static_cast<long>(scale_) - places;
  if (drop <= 0) return *this;
  if (drop > kMaxDigits) return Decimal(0, scale_);
  const int exponent = static_cast<int>(drop);
  return Decimal(DivideByPower(Unscaled(), exponent) * PowerOfTen(exponent), scale_);
}

double Decimal::ToDouble() const {
  constexpr UInt128 kExactMantissa = UInt128{1} << 53;
  constexpr int kExactPower = 22;  // 10^22 is the last power of ten that a double holds
  const Int128 unscaled = Unscaled();
  if (Magnitude(unscaled) <= kExactMantissa && scale_ <= kExactPower) {
    return static_cast<double>(unscaled) / static_cast<double>(PowerOfTen(scale_));
  }
  const std::string text = ToString();
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::string Decimal::ToString() const {
  std::array<char, 40> buffer;
  const Int128 unscaled = Unscaled();
  const std::string_view digits = Digits(Magnitude(unscaled), buffer);
  const auto places = static_cast<std::size_t>(scale_);
  std::string text(unscaled < 0 ? "-" : "");
  if (digits.size() <= places) {
    text += '0';
  } else {
    text += digits.substr(0, digits.size() - places);
  }
  if (places == 0) return text;
  text += '.';
  if (digits.size() < places) text.append(places - digits.size(), '0');
  return text += digits.substr(digits.size() - std::min(places, digits.size()));
}

std::string Decimal::ToShortString() const {
  std::string text = ToString();
  if (scale_ == 0) return text;
  const std::size_t last = text.find_last_not_of('0');
  text.resize(text[last] == '.' ? last : last + 1);
  return text;
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
  if (a.scale_ <= b.scale_) return CompareScaled(a.Unscaled(), b.scale_ - a.scale_, b.Unscaled());
  return 0 <=> CompareScaled(b.Unscaled(), a.scale_ - b.scale_, a.Unscaled());
}

std::optional<Decimal> Add(const Decimal& a, const Decimal& b) {
  return Combine(a, b, [](Int128 x, Int128 y, Int128* sum) { return __builtin_add_overflow(x, y, sum); });
}

std::optional<Decimal> Subtract(const Decimal& a, const Decimal& b) {
  return Combine(a, b, [](Int128 x, Int128 y, Int128* rest) { return __builtin_sub_overflow(x, y, rest); });
}

std::optional<Decimal> Multiply(const Decimal& a, const Decimal& b) {
  const int scale = a.Scale() + b.Scale();
  Int128 product = 0;
  if (__builtin_mul_overflow(a.Unscaled(), b.Unscaled(), &product)) return std::nullopt;
  if (product == 0) return Decimal(0, std::min(scale, Decimal::kMaxDigits));
  if (scale > Decimal::kMaxDigits) return std::nullopt;
  return Checked(Magnitude(product), product < 0, scale);
}

}  // namespace tarvoni

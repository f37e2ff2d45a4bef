#include "src/context/values/wide_integer.h"

namespace tarvoni {
namespace {

// One step of long division: the remainder takes the next bit of the dividend and gives one bit of the
// quotient.
bool TakeBit(UInt128& remainder, bool bit, UInt128 divisor) {
  const bool carry = (remainder >> 127) != 0;
  remainder = (remainder << 1) | static_cast<UInt128>(bit);
  if (!carry && remainder < divisor) return false;
  remainder -= divisor;
  return true;
}

bool Bit(const UInt256& value, int index) {
  return (index < 128 ? value.low >> index : value.high >> (index - 128)) & 1;
}

std::optional<UInt128> Incremented(UInt128 value, bool increment) {
  if (increment && value == ~UInt128{0}) return std::nullopt;
  return value + static_cast<UInt128>(increment);
}

}  // namespace

UInt256 MultiplyWide(UInt128 a, UInt128 b) {
  constexpr UInt128 kLow = ~std::uint64_t{0};
  const UInt128 a0 = a & kLow, a1 = a >> 64, b0 = b & kLow, b1 = b >> 64;
  const UInt128 bottom = a0 * b0;
  const UInt128 cross = a1 * b0 + (bottom >> 64);
  const UInt128 middle = a0 * b1 + (cross & kLow);
  return {a1 * b1 + (cross >> 64) + (middle >> 64), (middle << 64) | (bottom & kLow)};
}

Division Divide(const UInt256& dividend, UInt128 divisor) {
  if (dividend.high == 0) return {{0, dividend.low / divisor}, dividend.low % divisor};
  Division result;
  result.quotient.high = dividend.high / divisor;
  result.remainder = dividend.high % divisor;
  for (int index = 127; index >= 0; --index) {
    const bool bit = TakeBit(result.remainder, Bit(dividend, index), divisor);
    result.quotient.low = (result.quotient.low << 1) | static_cast<UInt128>(bit);
  }
  return result;
}

std::optional<UInt128> DivideRounded(const UInt256& dividend, UInt128 divisor) {
  const Division division = Divide(dividend, divisor);
  if (division.quotient.high != 0) return std::nullopt;
  // Twice the remainder could exceed 128 bits; its distance to the divisor does not.
  return Incremented(division.quotient.low, division.remainder >= divisor - division.remainder);
}

std::optional<UInt128> ShiftRightRounded(const UInt256& value, int bits) {
  if (bits > 256) return UInt128{0};
  const bool half = bits > 0 && Bit(value, bits - 1);
  if (bits == 256) return UInt128{half};
  if (bits >= 128) return Incremented(value.high >> (bits - 128), half);
  if ((value.high >> bits) != 0) return std::nullopt;
  return Incremented(bits == 0 ? value.low : (value.low >> bits) | (value.high << (128 - bits)), half);
}

bool FitsDigits(UInt128 magnitude) {
  return magnitude < static_cast<UInt128>(PowerOfTen(Decimal::kMaxDigits));
}

}  // namespace tarvoni

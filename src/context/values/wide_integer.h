#pragma once

#include <optional>

#include "src/context/values/decimal.h"

namespace tarvoni {

// An unsigned whole number of 256 bits: what the product of two exact numbers needs before it is rounded.
struct UInt256 {
  UInt128 high = 0;
  UInt128 low = 0;
};

UInt256 MultiplyWide(UInt128 a, UInt128 b);

struct Division {
  UInt256 quotient;
  UInt128 remainder = 0;
};

// Quotient towards zero; `divisor` is not 0.
Division Divide(const UInt256& dividend, UInt128 divisor);
// The quotient rounded half up; nothing if it exceeds 128 bits.
std::optional<UInt128> DivideRounded(const UInt256& dividend, UInt128 divisor);
// Divides by two to the power of `bits`, rounded half up; nothing if the result exceeds 128 bits.
std::optional<UInt128> ShiftRightRounded(const UInt256& value, int bits);

constexpr UInt128 Magnitude(Int128 value) {
  return value < 0 ? UInt128{0} - static_cast<UInt128>(value) : static_cast<UInt128>(value);
}
constexpr Int128 WithSign(UInt128 magnitude, bool negative) {
  return static_cast<Int128>(negative ? UInt128{0} - magnitude : magnitude);
}

// True for numbers of at most 38 digits.
bool FitsDigits(UInt128 magnitude);

}  // namespace tarvoni

#pragma once

#include <array>
#include <cstdint>

#include "src/context/values/decimal.h"

// Exact values (DECIMAL and MONEY) as whole numbers in units of their last place. Every result has at most 38 digits;
// a greater one is error 8115.
namespace tarvoni::sqlite {

// A value beyond 64 bits as the file holds it: two's complement, most significant byte first.
using WideExact = std::array<unsigned char, 16>;

WideExact EncodeWide(Int128 value);
Int128 DecodeWide(const void* bytes);
// Bytes that sort as the values do.
WideExact SortKey(Int128 value);

Int128 RequireDigits(Int128 value, int precision = Decimal::kMaxDigits);
// The value, or error 8115 beyond the 64 bits of MONEY.
std::int64_t RequireMoney(Int128 value);

Int128 AddExact(Int128 a, Int128 b);
// The product with its last `drop` places rounded away, half away from zero.
Int128 MultiplyExact(Int128 a, Int128 b, int drop);
// a times ten to the power of `shift`, which may be negative, by b, cut; error 8134.
Int128 DivideExact(Int128 a, Int128 b, int shift);

// Rounds half away from zero to `to` places.
Int128 RescaleExact(Int128 value, int from, int to, int precision);
// Rounds half away from zero; the scale is kept, and `places` may be negative. Error 8115 beyond `precision` digits.
Int128 RoundExact(Int128 value, int scale, std::int64_t places, int precision);
Int128 ExactFromFloat(double value, int precision, int scale);

// Rounds what the float really is: 1.005 lies below its half and becomes 1.
double RoundFloat(double value, std::int64_t places);

}  // namespace tarvoni::sqlite

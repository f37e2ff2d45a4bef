#include "platform/sqlite/exact.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/sqlite/server_error.h"
#include "src/context/values/wide_integer.h"

namespace tarvoni::sqlite {
namespace {

using tsql::TypeKind;

[[noreturn]] void RaiseTooWide() {
  RaiseOverflow(TypeKind::kDecimal);
}

Int128 RequireUnits(const std::optional<Decimal>& number, int precision) {
  if (!number) RaiseTooWide();
  return RequireDigits(number->Unscaled(), precision);
}

// A shift beyond 38 places is taken in two steps.
UInt256 ShiftedUp(UInt128 magnitude, int places) {
  const int first = std::max(0, places - Decimal::kMaxDigits);
  const UInt256 start = MultiplyWide(magnitude, static_cast<UInt128>(PowerOfTen(first)));
  if (start.high != 0) RaiseTooWide();
  return MultiplyWide(start.low, static_cast<UInt128>(PowerOfTen(places - first)));
}

}  // namespace

WideExact EncodeWide(Int128 value) {
  WideExact bytes;
  auto rest = static_cast<UInt128>(value);
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, rest >>= 8) {
    *byte = static_cast<unsigned char>(rest);
  }
  return bytes;
}

Int128 DecodeWide(const void* bytes) {
  const auto* first = static_cast<const unsigned char*>(bytes);
  UInt128 value = 0;
  for (std::size_t i = 0; i < WideExact().size(); ++i) value = (value << 8) | first[i];
  return static_cast<Int128>(value);
}

WideExact SortKey(Int128 value) {
  // Without its sign bit turned, a negative number would sort behind the positive ones.
  constexpr unsigned char kSign = 0x80;
  WideExact key = EncodeWide(value);
  key[0] ^= kSign;
  return key;
}

Int128 RequireDigits(Int128 value, int precision) {
  if (Magnitude(value) >= static_cast<UInt128>(PowerOfTen(precision))) RaiseTooWide();
  return value;
}

std::int64_t RequireMoney(Int128 value) {
  using Limits = std::numeric_limits<std::int64_t>;
  if (value < Limits::min() || value > Limits::max()) RaiseOverflow(TypeKind::kMoney);
  return static_cast<std::int64_t>(value);
}

Int128 AddExact(Int128 a, Int128 b) {
  Int128 sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) RaiseTooWide();
  return RequireDigits(sum);
}

Int128 MultiplyExact(Int128 a, Int128 b, int drop) {
  UInt256 product = MultiplyWide(Magnitude(a), Magnitude(b));
  const int second = std::min(drop, Decimal::kMaxDigits);
  // What is cut in a first step lies behind the place that decides on rounding.
  if (drop > second) product = Divide(product, static_cast<UInt128>(PowerOfTen(drop - second))).quotient;
  const auto magnitude = DivideRounded(product, static_cast<UInt128>(PowerOfTen(second)));
  if (!magnitude || !FitsDigits(*magnitude)) RaiseTooWide();
  return WithSign(*magnitude, (a < 0) != (b < 0));
}

Int128 DivideExact(Int128 a, Int128 b, int shift) {
  if (b == 0) Raise(kDivisionByZero);
  UInt256 dividend = ShiftedUp(Magnitude(a), std::max(shift, 0));
  for (int left = -shift; left > 0; left -= Decimal::kMaxDigits) {
    dividend =
        Divide(dividend, static_cast<UInt128>(PowerOfTen(std::min(left, Decimal::kMaxDigits)))).quotient;
  }
  const UInt256 quotient = Divide(dividend, Magnitude(b)).quotient;
  if (quotient.high != 0 || !FitsDigits(quotient.low)) RaiseTooWide();
  return WithSign(quotient.low, (a < 0) != (b < 0));
}

Int128 RescaleExact(Int128 value, int from, int to, int precision) {
  return RequireUnits(Decimal(value, from).Rescaled(to), precision);
}

Int128 RoundExact(Int128 value, int scale, std::int64_t places, int precision) {
  constexpr std::int64_t kFarEnough = std::int64_t{2} * Decimal::kMaxDigits;
  const auto near_places = static_cast<int>(std::clamp(places, -kFarEnough, kFarEnough));
  return RequireDigits(Decimal(value, scale).Rounded(near_places).Unscaled(), precision);
}

Int128 ExactFromFloat(double value, int precision, int scale) {
  return RequireUnits(Decimal::FromDouble(value, scale), precision);
}

double RoundFloat(double value, std::int64_t places) {
  const int scale = static_cast<int>(std::clamp<std::int64_t>(places, 0, Decimal::kMaxDigits));
  // In front of the point only whole digits decide.
  const auto number = Decimal::FromDouble(places < 0 ? std::trunc(value) : value, scale);
  // A float that has more digits than that is whole far beyond the place to round at.
  if (!number) return value;
  return Decimal(RoundExact(number->Unscaled(), scale, places, Decimal::kMaxDigits), scale).ToDouble();
}

}  // namespace tarvoni::sqlite

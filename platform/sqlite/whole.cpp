#include "platform/sqlite/whole.h"

#include <cmath>
#include <limits>

#include "platform/sqlite/server_error.h"

namespace tarvoni::sqlite {
namespace {

using tsql::TypeKind;

struct Range {
  std::int64_t lowest;
  std::int64_t highest;
};

template <typename T>
constexpr Range RangeOf() {
  return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
}

Range RangeOf(TypeKind kind) {
  switch (kind) {
    case TypeKind::kBit:
      return {0, 1};
    case TypeKind::kTinyInt:
      return RangeOf<std::uint8_t>();
    case TypeKind::kSmallInt:
      return RangeOf<std::int16_t>();
    case TypeKind::kInt:
      return RangeOf<std::int32_t>();
    default:
      return RangeOf<std::int64_t>();
  }
}

std::int64_t RequireWhole(Int128 value, TypeKind kind) {
  if (!FitsKind(value, kind)) RaiseOverflow(kind);
  return static_cast<std::int64_t>(value);
}

}  // namespace

bool FitsKind(Int128 value, TypeKind kind) {
  const Range range = RangeOf(kind);
  return value >= range.lowest && value <= range.highest;
}

std::int64_t RequireRange(Int128 value, TypeKind kind) {
  return RequireWhole(value, kind);
}

std::int64_t CastWhole(std::int64_t value, TypeKind kind) {
  if (kind == TypeKind::kBit) return value != 0;
  if (FitsKind(value, kind)) return value;
  if (kind == TypeKind::kInt) RaiseOverflow(kind);
  Raise(kIntegerCast, "Arithmetic overflow error for data type " + std::string(NameOf(kind)) +
                          ", value = " + std::to_string(value) + ".");
}

std::int64_t WholeFromExact(Int128 units, int scale, TypeKind kind, bool round) {
  if (kind == TypeKind::kBit) return units != 0;
  if (!round) return RequireWhole(units / PowerOfTen(scale), kind);
  const auto rounded = Decimal(units, scale).Rescaled(0);
  if (!rounded) RaiseOverflow(kind);
  return RequireWhole(rounded->Unscaled(), kind);
}

std::int64_t WholeFromFloat(double value, TypeKind kind) {
  if (kind == TypeKind::kBit) return value != 0;
  // Both bounds of BIGINT are compared as floats, where its highest value is rounded up.
  constexpr double kLimit = 0x1p63;
  const double whole = std::trunc(value);
  if (whole >= -kLimit && whole < kLimit && FitsKind(static_cast<std::int64_t>(whole), kind)) {
    return static_cast<std::int64_t>(whole);
  }
  Raise(kFloatToInteger,
        "Arithmetic overflow error for data type " + std::string(NameOf(kind)) + ", a float is too large.");
}

std::int64_t DivideWhole(std::int64_t a, std::int64_t b) {
  if (b == 0) Raise(kDivisionByZero);
  return RequireWhole(static_cast<Int128>(a) / b, TypeKind::kBigInt);
}

std::int64_t Modulo(std::int64_t a, std::int64_t b) {
  if (b == 0) Raise(kDivisionByZero);
  return static_cast<std::int64_t>(static_cast<Int128>(a) % b);
}

}  // namespace tarvoni::sqlite

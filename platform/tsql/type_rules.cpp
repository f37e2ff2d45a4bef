#include "platform/tsql/type_rules.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvoni::tsql {
namespace {

constexpr int kMinimumScale = 6;

int Precedence(TypeKind kind) {
  switch (kind) {
    case TypeKind::kNull:
      return 0;
    case TypeKind::kChar:
      return 1;
    case TypeKind::kVarChar:
      return 2;
    case TypeKind::kBit:
      return 3;
    case TypeKind::kTinyInt:
      return 4;
    case TypeKind::kSmallInt:
      return 5;
    case TypeKind::kInt:
      return 6;
    case TypeKind::kBigInt:
      return 7;
    case TypeKind::kMoney:
      return 8;
    case TypeKind::kDecimal:
      return 9;
    case TypeKind::kFloat:
      return 10;
    case TypeKind::kDateTime:
      return 11;
  }
  return 0;
}

// Products and quotients give up places beyond the sixth before they give up digits in front of the point.
Type FitProduct(int precision, int scale) {
  if (precision > Type::kMaxPrecision) {
    const int whole = precision - scale;
    scale = std::min(scale, std::max(Type::kMaxPrecision - whole, std::min(scale, kMinimumScale)));
    precision = Type::kMaxPrecision;
  }
  return Type::Decimal(precision, scale);
}

// Sums give up places beyond 38 digits; the digit that they may carry takes none away.
Type FitSum(int whole, int scale, int carry) {
  if (whole + carry + scale > Type::kMaxPrecision) scale = std::min(scale, Type::kMaxPrecision - whole);
  return Type::Decimal(std::min(whole + carry + scale, Type::kMaxPrecision), scale);
}

Type DecimalArithmetic(BinaryOperator op, const Type& a, const Type& b) {
  const int whole = std::max(a.precision - a.scale, b.precision - b.scale);
  switch (op) {
    case BinaryOperator::kMultiply:
      return FitProduct(a.precision + b.precision + 1, a.scale + b.scale);
    case BinaryOperator::kDivide: {
      const int scale = std::max(kMinimumScale, a.scale + b.precision + 1);
      return FitProduct(a.precision - a.scale + b.scale + scale, scale);
    }
    default:
      return FitSum(whole, std::max(a.scale, b.scale), 1);
  }
}

Type CommonDecimal(const Type& a, const Type& b) {
  return FitSum(std::max(a.precision - a.scale, b.precision - b.scale), std::max(a.scale, b.scale), 0);
}

Type TextOf(bool fixed, int length, bool ansi) {
  return {fixed ? TypeKind::kChar : TypeKind::kVarChar, 0, 0, length, ansi};
}

}  // namespace

Type AsDecimal(const Type& type) {
  switch (type.kind) {
    case TypeKind::kBit:
      return Type::Decimal(1, 0);
    case TypeKind::kTinyInt:
      return Type::Decimal(3, 0);
    case TypeKind::kSmallInt:
      return Type::Decimal(5, 0);
    case TypeKind::kInt:
      return Type::Decimal(10, 0);
    case TypeKind::kBigInt:
      return Type::Decimal(19, 0);
    case TypeKind::kMoney:
      return Type::Decimal(19, Type::kMoneyScale);
    default:
      return type;
  }
}

Type CommonType(const Type& a, const Type& b) {
  const Type& high = Precedence(a.kind) >= Precedence(b.kind) ? a : b;
  const Type& low = &high == &a ? b : a;
  if (low.IsNull()) return high;
  if (high.kind == TypeKind::kDecimal && low.IsExact()) return CommonDecimal(AsDecimal(a), AsDecimal(b));
  if (high.IsText() && low.IsText()) {
    const bool fixed = a.kind == TypeKind::kChar && b.kind == TypeKind::kChar;
    return TextOf(fixed, std::max(a.length, b.length), a.ansi && b.ansi);
  }
  // Of two kinds of date, or of float, the finer one.
  return high.kind == low.kind && low.precision > high.precision ? low : high;
}

Type ConcatenationType(const Type& a, const Type& b) {
  const bool fixed = a.kind == TypeKind::kChar && b.kind == TypeKind::kChar;
  return TextOf(fixed, std::min(a.length + b.length, Type::kMaxLength), a.ansi && b.ansi);
}

Type ArithmeticType(BinaryOperator op, const Type& a, const Type& b) {
  const Type common = CommonType(a, b);
  if (common.kind == TypeKind::kDecimal) return DecimalArithmetic(op, AsDecimal(a), AsDecimal(b));
  if (common.kind == TypeKind::kBit) return Type::Int();
  return common;
}

Type SumType(const Type& argument) {
  if (argument.kind == TypeKind::kDecimal) return Type::Decimal(Type::kMaxPrecision, argument.scale);
  if (argument.IsInteger() && argument.kind != TypeKind::kBigInt) return Type::Int();
  return argument.IsReal() ? Type::Float() : argument;
}

Type AverageType(const Type& argument) {
  if (argument.kind != TypeKind::kDecimal) return SumType(argument);
  return Type::Decimal(Type::kMaxPrecision, std::max(argument.scale, kMinimumScale));
}

double PowerOfTenLimit(int exponent) {
  static const auto kPowers = [] {
    std::array<double, Type::kMaxPrecision + 1> powers{};
    for (size_t i = 0; i < powers.size(); ++i) powers[i] = std::pow(10.0, i);
    return powers;
  }();
  const bool usual = exponent >= 0 && exponent <= Type::kMaxPrecision;
  return usual ? kPowers[static_cast<size_t>(exponent)] : std::pow(10.0, exponent);
}

double LimitOf(const Type& type) {
  switch (type.kind) {
    case TypeKind::kBit:
      return 1;
    case TypeKind::kTinyInt:
      return 255;
    case TypeKind::kSmallInt:
      return 32767;
    case TypeKind::kInt:
      return 2147483647;
    case TypeKind::kBigInt:
    case TypeKind::kMoney:
      return 9.2233720368547748e18;
    case TypeKind::kDecimal:
      return PowerOfTenLimit(type.precision);
    default:
      return 0;
  }
}

}  // namespace tarvoni::tsql

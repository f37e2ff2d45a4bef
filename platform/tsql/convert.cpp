#include "platform/tsql/convert.h"

#include <algorithm>
#include <cmath>

#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

// Length of a text literal whose characters are not part of the plan.
constexpr int kLiteralLength = 8000;

std::string_view WithoutLeadingZeros(std::string_view digits) {
  const auto first = digits.find_first_not_of('0');
  return first == std::string_view::npos ? std::string_view() : digits.substr(first);
}

double ConvertedLimit(const BoundExpression& value, const Type& to) {
  if (!to.IsExact()) return 0;
  const double own = std::min(value.limit, LimitOf(value.type));
  if (!value.type.IsExact()) return LimitOf(to);
  return std::min(std::ceil(own * PowerOfTenLimit(to.scale - value.type.scale)), LimitOf(to));
}

// Whether a literal can simply be filled in as the other type.
bool TakesType(const BoundParameter& parameter, const Type& to) {
  if (parameter.kind == Literal::Kind::kText) return !to.IsText();
  return to.IsNumeric();
}

// A number that is part of the plan can be written in any type that keeps its places.
bool TakesType(const BoundConstant& constant, const Type& to) {
  if (constant.kind == Literal::Kind::kText || constant.kind == Literal::Kind::kFloat) return false;
  return to.IsNumeric() && (constant.kind == Literal::Kind::kInteger || !to.IsInteger()) &&
         to.kind != TypeKind::kBit;
}

bool IsPaddedAlike(const Type& a, const Type& b) {
  return a.kind == b.kind && a.length == b.length;
}

// Whether a value of one type is one of the other: every DATE is a DATETIME.
bool IsFiner(const Type& type, const Type& than) {
  const bool graded = type.IsDate() || type.kind == TypeKind::kFloat;
  return type == than || (graded && type.kind == than.kind && type.precision <= than.precision);
}

bool StoresAsIs(const BoundExpression& value, const Type& to) {
  if (!to.IsText()) return IsFiner(value.type, to);
  const bool padded_alike = to.kind == TypeKind::kVarChar || IsPaddedAlike(value.type, to);
  return padded_alike && value.type.IsText() && value.type.length <= to.length;
}

bool NothingToDo(const BoundExpression& value, const Type& to, BoundConvert::Mode mode) {
  if (mode != BoundConvert::Mode::kImplicit) return StoresAsIs(value, to);
  if (value.type.IsText() && to.IsText())
    return to.kind == TypeKind::kVarChar || IsPaddedAlike(value.type, to);
  return IsFiner(value.type, to);
}

// A literal that was cast to its own type counts with that type's digits.
void MarkConverted(BoundExpression& value) {
  std::visit(
      [](auto& node) {
        if constexpr (requires { node.converted; }) node.converted = true;
      },
      value.node);
}

}  // namespace

Type NaturalType(Literal::Kind kind, std::string_view text) {
  switch (kind) {
    case Literal::Kind::kNull:
      return {};
    case Literal::Kind::kInteger:
      return Type::Int();
    case Literal::Kind::kFloat:
      return Type::Float();
    case Literal::Kind::kText: {
      Type type = Type::VarChar(kLiteralLength);
      type.ansi = true;
      return type;
    }
    case Literal::Kind::kDecimal:
      break;
  }
  return DecimalType(text);
}

std::string ScaledDigits(std::string_view literal, int scale) {
  const auto point = literal.find('.');
  std::string digits(literal.substr(0, point));
  std::string places(point == std::string_view::npos ? std::string_view() : literal.substr(point + 1));
  const bool round_up =
      places.size() > static_cast<size_t>(scale) && places[static_cast<size_t>(scale)] >= '5';
  places.resize(static_cast<size_t>(scale), '0');
  digits += places;
  if (round_up) {
    auto digit = digits.rbegin();
    while (digit != digits.rend() && *digit == '9') *digit++ = '0';
    if (digit == digits.rend())
      digits.insert(0, "1");
    else
      ++*digit;
  }
  const auto significant = WithoutLeadingZeros(digits);
  return significant.empty() ? "0" : std::string(significant);
}

BoundPtr ConvertTo(BoundPtr value, const Type& to, BoundConvert::Mode mode) {
  if (value->type.IsNull() && value->As<BoundConstant>() != nullptr) {
    value->type = to;
    return value;
  }
  if (to.IsNull()) return value;
  if (NothingToDo(*value, to, mode)) {
    if (mode == BoundConvert::Mode::kCast) MarkConverted(*value);
    return value;
  }
  const double limit = ConvertedLimit(*value, to);
  const bool taken = std::visit(
      [&](auto& node) {
        if constexpr (requires { node.converted; })
          return !node.converted && (node.converted = TakesType(node, to));
        return false;
      },
      value->node);
  if (taken) {
    value->type = to;
    value->limit = limit;
    return value;
  }
  const Position at = value->at;
  return MakeValue(at, to, limit, BoundConvert{std::move(value), mode});
}

}  // namespace tarvoni::tsql

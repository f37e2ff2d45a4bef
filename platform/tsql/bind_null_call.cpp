#include <algorithm>
#include <utility>

#include "platform/tsql/convert.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/type_rules.h"

// ISNULL, COALESCE and NULLIF.
namespace tarvoni::tsql {
namespace {

// NULLIF of unlike types names its first argument twice; nested in one another they would double each time.
constexpr int kMostRepeated = 8;

bool IsNullWord(const BoundExpression& value) {
  const auto* constant = value.As<BoundConstant>();
  return constant && constant->kind == Literal::Kind::kNull;
}

// Whether the second value can be written in places of the first, so that equal values stay equal.
bool TakesPlaces(const Type& first, const Type& second) {
  return first.IsExact() && second.IsExact() && second.scale <= first.scale;
}

}  // namespace

// ISNULL keeps the type of its first argument; the second is cut, padded or rounded to it.
BoundPtr ExpressionBinder::BindIsNullFunction(const Call& call, Position at) {
  BoundCall bound{Function::kIsNull, {}};
  const bool texts_before = std::exchange(rules_.pin_texts, true);
  bound.arguments.push_back(Value(*call.arguments[0]));
  rules_.pin_texts = texts_before;
  bound.arguments.push_back(Value(*call.arguments[1]));
  BoundPtr& first = bound.arguments[0];
  BoundPtr& second = bound.arguments[1];
  if (first->type.IsNull()) first->type = second->type.IsNull() ? Type::Int() : second->type;
  const Type type = first->type;
  if (type.IsText()) PinLiteral(*second);
  second = ConvertTo(std::move(second), type,
                     type.IsText() ? BoundConvert::Mode::kCast : BoundConvert::Mode::kImplicit);
  const double limit = std::max(first->limit, second->limit);
  return MakeValue(at, type, limit, std::move(bound));
}

BoundPtr ExpressionBinder::BindCoalesce(const Call& call, Position at) {
  BoundCall bound{Function::kCoalesce, {}};
  Type common;
  for (const ExpressionPtr& argument : call.arguments) {
    bound.arguments.push_back(Value(*argument));
    common = CommonType(common, bound.arguments.back()->type);
  }
  if (std::ranges::all_of(bound.arguments, [](const BoundPtr& value) { return IsNullWord(*value); }))
    throw Error(
        kCoalesceOfNulls,
        "At least one of the arguments to COALESCE must be an expression that is not the NULL constant.", at);
  double limit = 0;
  for (BoundPtr& argument : bound.arguments) {
    argument = ConvertTo(std::move(argument), common);
    limit = std::max(limit, argument->limit);
  }
  return MakeValue(at, common, limit, std::move(bound));
}

// NULLIF compares in the type both meet in, and is of the type of its first argument.
BoundPtr ExpressionBinder::BindNullIf(const Call& call, Position at) {
  BoundPtr first = Value(*call.arguments[0]);
  if (IsNullWord(*first))
    throw Error(
        kNullIfOfNull,
        "The type of the first argument to NULLIF cannot be the NULL constant because the type of the first "
        "argument has to be known.",
        at);
  BoundPtr second = Value(*call.arguments[1]);
  const Type type = first->type;
  Type common = CommonType(type, second->type);
  if (TakesPlaces(type, second->type))
    common = type.IsInteger() ? Type::BigInt() : Type::Decimal(38, type.scale);
  const bool alike = common == type || common.IsText() || TakesPlaces(type, second->type);
  if (!alike) return NullIfEqual(std::move(first), std::move(second), *call.arguments[0], at);
  const double limit = first->limit;
  BoundCall bound{Function::kNullIf, {}};
  bound.arguments.push_back(std::move(first));
  bound.arguments.push_back(common.IsText() ? std::move(second) : ConvertTo(std::move(second), common));
  return MakeValue(at, type, limit, std::move(bound));
}

BoundPtr ExpressionBinder::NullIfEqual(BoundPtr first, BoundPtr second, const Expression& again,
                                       Position at) {
  if (state_->repeated == kMostRepeated)
    throw Error(kTooDeep, "NULLIF of unlike types is nested too deeply.", at);
  ++state_->repeated;
  BoundCase choice;
  BoundPtr null = MakeValue(at, first->type, 0, BoundConstant{"", Literal::Kind::kNull});
  choice.otherwise = Value(again);
  const Type type = first->type;
  // A text may be a number of more digits than the one it is compared with.
  const Type widest = Type::Decimal(Type::kMaxPrecision, second->type.scale);
  if (type.IsText() && second->type.kind == TypeKind::kDecimal) second = ConvertTo(std::move(second), widest);
  choice.branches.push_back(
      {MakeComparison(BinaryOperator::kEqual, std::move(first), std::move(second), at), std::move(null)});
  --state_->repeated;
  const double limit = choice.otherwise->limit;
  return MakeValue(at, type, limit, std::move(choice));
}

}  // namespace tarvoni::tsql

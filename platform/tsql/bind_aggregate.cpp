#include <algorithm>
#include <array>

#include "platform/tsql/expression_binder.h"
#include "platform/tsql/public/catalogue.h"
#include "platform/tsql/type_rules.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {
namespace {

struct AggregateRow {
  std::string_view name;
  Aggregate function;
};

constexpr std::array kAggregates{
    AggregateRow{"COUNT", Aggregate::kCount}, AggregateRow{"SUM", Aggregate::kSum},
    AggregateRow{"AVG", Aggregate::kAvg},     AggregateRow{"MIN", Aggregate::kMin},
    AggregateRow{"MAX", Aggregate::kMax},
};

double SumLimit(const Type& type, const BoundExpression& argument) {
  if (type.kind != TypeKind::kDecimal) return LimitOf(Type::BigInt());
  return std::min(LimitOf(type), argument.limit * kMostRows);
}

// An average is cut to its places, of which it may have more than its terms.
double AverageLimit(const Type& type, const BoundExpression& argument) {
  if (type.kind != TypeKind::kDecimal) return LimitOf(Type::BigInt());
  return std::min(LimitOf(type), argument.limit * PowerOfTenLimit(type.scale - argument.type.scale));
}

std::string_view MessageOf(int number) {
  switch (number) {
    case kAggregateInAggregate:
      return "Cannot perform an aggregate function on an expression containing an aggregate or a subquery.";
    case kAggregateInGroupBy:
      return "Cannot use an aggregate or a subquery in an expression used for the group by list of a GROUP "
             "BY "
             "clause.";
    case kAggregateInSet:
      return "An aggregate may not appear in the set list of an UPDATE statement.";
    case kAggregateInOn:
      return "An aggregate cannot appear in an ON clause.";
    default:
      return "An aggregate may not appear here.";
  }
}

[[noreturn]] void Refuse(int number, Position at) {
  throw Error(number, std::string(MessageOf(number)), at);
}

void CollectColumns(const BoundExpression& expression, std::vector<const BoundColumn*>& columns) {
  if (const auto* column = expression.As<BoundColumn>()) columns.push_back(column);
  ForEachChild(expression, [&](const BoundExpression& child) { CollectColumns(child, columns); });
}

bool SameColumn(const BoundColumn* a, const BoundColumn* b) {
  return a->source == b->source && a->index == b->index;
}

void RequireType(Aggregate function, const Type& type, const Call& call, Position at) {
  const bool sums = function == Aggregate::kSum || function == Aggregate::kAvg;
  const bool flag = type.kind == TypeKind::kBit && function != Aggregate::kCount;
  if (!type.IsNull() && !flag && (!sums || type.IsNumeric())) return;
  throw Error(kOperandType,
              "Operand data type " + std::string(NameOf(type.kind)) + " is invalid for " + call.function +
                  " operator.",
              at);
}

}  // namespace

std::optional<Aggregate> AggregateNamed(std::string_view name) {
  for (const AggregateRow& row : kAggregates)
    if (SameName(row.name, name)) return row.function;
  return std::nullopt;
}

BoundPtr ExpressionBinder::BindAggregate(Aggregate function, const Call& call, Position at) {
  if (inside_aggregate_) Refuse(kAggregateInAggregate, at);
  if (call.star) {
    RequireAggregates(at);
    saw_aggregate_ = true;
    return MakeValue(at, Type::Int(), LimitOf(Type::Int()),
                     BoundAggregate{Aggregate::kCountRows, false, nullptr});
  }
  RequireCount(call, 1, 1, at);
  inside_aggregate_ = true;
  BoundPtr argument = Value(*call.arguments.front());
  inside_aggregate_ = false;
  ClaimAggregate(*argument, at);
  const Type& type = argument->type;
  RequireType(function, type, call, at);
  Type result = Type::Int();
  double limit = LimitOf(result);
  if (function == Aggregate::kSum) result = SumType(type), limit = SumLimit(result, *argument);
  if (function == Aggregate::kAvg) result = AverageType(type), limit = AverageLimit(result, *argument);
  if (function == Aggregate::kMin || function == Aggregate::kMax) result = type, limit = argument->limit;
  return MakeValue(at, result, limit, BoundAggregate{function, call.distinct, std::move(argument)});
}

void ExpressionBinder::RequireAggregates(Position at) const {
  if (!rules_.aggregates) Refuse(rules_.aggregate_error, at);
}

void ExpressionBinder::TakeOuterAggregate(Position at) {
  RequireAggregates(at);
  saw_aggregate_ = true;
}

// An aggregate belongs to the query whose column it is over; without a column to its own.
void ExpressionBinder::ClaimAggregate(const BoundExpression& argument, Position at) {
  std::vector<const BoundColumn*> columns;
  CollectColumns(argument, columns);
  const auto outer =
      std::ranges::find_if(columns, [&](const auto* column) { return !scope_->Owns(column->source); });
  if (outer == columns.end()) {
    RequireAggregates(at);
    saw_aggregate_ = true;
    return;
  }
  if (std::ranges::any_of(columns, [&](const auto* column) { return !SameColumn(column, *outer); }))
    throw Error(kOuterAggregate,
                "Multiple columns are specified in an aggregated expression containing an outer reference.",
                at);
  const Scope* owner = scope_->outer;
  while (!owner->Owns((*outer)->source)) owner = owner->outer;
  owner->asking->TakeOuterAggregate(at);
  if (!rules_.aggregates)
    throw Error(kUnsupported, "An aggregate of an outer query is not supported in this clause.", at);
}

}  // namespace tarvoni::tsql

#include "platform/tsql/emitter.h"
#include "platform/tsql/public/runtime.h"
#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {

void Emitter::Node(const BoundCall& node, const BoundExpression& self) {
  const BoundExpression& first = *node.arguments.front();
  const auto plain = [&](std::string_view name) {
    Text(name);
    Arguments(node.arguments);
  };
  switch (node.function) {
    case tsql::Function::kIsNull:
      return plain("IFNULL");
    case tsql::Function::kCoalesce:
      return plain("COALESCE");
    case tsql::Function::kNullIf:
      Text("NULLIF(");
      Collated(first);
      Text(",");
      Expression(*node.arguments[1]);
      Text(")");
      return;
    case tsql::Function::kRound:
      return self.type.IsExact() ? Round(node, self) : plain("ts_round_float");
    case tsql::Function::kAbs:
      return Abs(first, self);
    case tsql::Function::kIsNumeric:
      if (first.type.IsText()) return plain("ts_isnumeric");
      if (!first.type.IsNumeric()) return void(Text("0"));
      Text("(");
      Expression(first);
      Text(" IS NOT NULL)");
      return;
    case tsql::Function::kIdentCurrent:
      return plain("ts_ident_current");
    case tsql::Function::kRight:
      return plain("ts_right");
    case tsql::Function::kLeft:
      return plain("ts_left");
    case tsql::Function::kLen:
      return plain("ts_len");
    case tsql::Function::kRtrim:
      return plain("ts_rtrim");
    case tsql::Function::kLtrim:
      return plain("ts_ltrim");
    case tsql::Function::kUpper:
      return plain("ts_upper");
    case tsql::Function::kLower:
      return plain("ts_lower");
    case tsql::Function::kLike:
      return plain("ts_like");
    case tsql::Function::kLikeUnicode:
      return plain("ts_like_unicode");
    // Dates are ISO text: its first digits are the year.
    case tsql::Function::kYear:
      Text("CAST(");
      Expression(first);
      Text(" AS INTEGER)");
      return;
    case tsql::Function::kMonth:
    case tsql::Function::kDay:
      Text("CAST(substr(");
      Expression(first);
      Text(node.function == tsql::Function::kMonth ? ",6,2" : ",9,2").Text(") AS INTEGER)");
      return;
  }
}

// The result has the type of the number, and may have outgrown it.
void Emitter::Round(const BoundCall& node, const BoundExpression& self) {
  const bool money = self.type.kind == TypeKind::kMoney;
  if (money) Text("ts_exact_money(");
  if (self.type.IsInteger()) Text("ts_int_range(");
  Text("ts_round(");
  Expression(*node.arguments.front());
  Text(",").Number(self.type.scale).Text(",");
  Expression(*node.arguments[1]);
  Text(",")
      .Number(self.type.kind == TypeKind::kDecimal ? self.type.precision : Type::kMaxPrecision)
      .Text(")");
  if (self.type.IsInteger()) Text(",").Number(static_cast<int>(self.type.kind)).Text(")");
  if (money) Text(")");
}

void Emitter::Abs(const BoundExpression& number, const BoundExpression& self) {
  if (IsWide(number)) return Function("ts_exact_abs", number);
  const bool unsure = self.type.IsInteger() && number.limit >= LimitOf(self.type);
  if (unsure) Text("ts_int_range(");
  Function("abs", number);
  if (unsure) Text(",").Number(static_cast<int>(self.type.kind)).Text(")");
}

void Emitter::AggregateCall(std::string_view name, const BoundAggregate& node, bool collated) {
  Text(name).Text(node.distinct ? "(DISTINCT " : "(");
  if (collated)
    Collated(*node.argument);
  else
    Expression(*node.argument);
  Text(")");
}

void Emitter::Node(const BoundAggregate& node, const BoundExpression& self) {
  switch (node.function) {
    case Aggregate::kCountRows:
      return void(Text("COUNT(*)"));
    case Aggregate::kCount:
      return AggregateCall("COUNT", node, node.distinct);
    case Aggregate::kSum:
      return Sum(node, self);
    case Aggregate::kAvg:
      return Average(node, self);
    case Aggregate::kMin:
      return AggregateCall(IsWide(*node.argument) ? "ts_exact_min" : "MIN", node, true);
    case Aggregate::kMax:
      return AggregateCall(IsWide(*node.argument) ? "ts_exact_max" : "MAX", node, true);
  }
}

std::string_view Emitter::SumFunction(const BoundAggregate& node) {
  const bool wide =
      node.argument->type.kind == TypeKind::kDecimal && node.argument->limit * kMostRows >= kNarrowLimit;
  return wide ? "ts_exact_sum" : "SUM";
}

void Emitter::Sum(const BoundAggregate& node, const BoundExpression& self) {
  if (self.type.kind != TypeKind::kInt) return AggregateCall(SumFunction(node), node);
  Text("ts_int_range(");
  AggregateCall("SUM", node);
  Text(",").Number(static_cast<int>(TypeKind::kInt)).Text(")");
}

void Emitter::Average(const BoundAggregate& node, const BoundExpression& self) {
  if (!self.type.IsExact()) return AggregateCall("AVG", node);
  const bool decimal = self.type.kind == TypeKind::kDecimal;
  Text(decimal ? "ts_exact_div(" : "(");
  AggregateCall(SumFunction(node), node);
  Text(decimal ? "," : "/");
  AggregateCall("COUNT", node);
  if (decimal) Text(",").Number(self.type.scale - node.argument->type.scale);
  Text(")");
}

}  // namespace tarvoni::tsql

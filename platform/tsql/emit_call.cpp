#include "platform/tsql/emitter.h"
#include "platform/tsql/public/runtime.h"

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
      if (!self.type.IsExact()) return plain("ts_round_float");
      Text("ts_round(");
      Expression(first);
      Text(",").Number(self.type.scale).Text(",");
      Expression(*node.arguments[1]);
      Text(")");
      return;
    case tsql::Function::kAbs:
      return plain("abs");
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

void Emitter::Sum(const BoundAggregate& node, const BoundExpression& self) {
  if (self.type.kind != TypeKind::kInt)
    return AggregateCall(IsWide(*node.argument) ? "ts_exact_sum" : "SUM", node);
  Text("ts_int_range(");
  AggregateCall("SUM", node);
  Text(",").Number(static_cast<int>(TypeKind::kInt)).Text(")");
}

void Emitter::Average(const BoundAggregate& node, const BoundExpression& self) {
  if (!self.type.IsExact()) return AggregateCall("AVG", node);
  const bool decimal = self.type.kind == TypeKind::kDecimal;
  Text(decimal ? "ts_exact_div(" : "(");
  AggregateCall(IsWide(*node.argument) ? "ts_exact_sum" : "SUM", node);
  Text(decimal ? "," : "/");
  AggregateCall("COUNT", node);
  if (decimal) Text(",").Number(self.type.scale - node.argument->type.scale);
  Text(")");
}

}  // namespace tarvoni::tsql

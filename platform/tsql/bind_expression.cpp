#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/tsql/convert.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/query_binder.h"
#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

bool IsComparison(BinaryOperator op) {
  return op >= BinaryOperator::kEqual && op <= BinaryOperator::kGreaterEqual;
}

// Of a text in UTF-8.
int CountCharacters(std::string_view text) {
  return static_cast<int>(
      std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// An unsigned type becomes a signed one.
Type NegatedType(const Type& type) {
  return type.kind == TypeKind::kTinyInt ? Type{TypeKind::kSmallInt, 5, 0, 0} : type;
}

bool IsLogical(BinaryOperator op) {
  return op == BinaryOperator::kAnd || op == BinaryOperator::kOr;
}

}  // namespace

BoundPtr WithoutFolding(BoundPtr value) {
  while (auto* call = value->As<BoundCall>()) {
    const bool folds = call->function == Function::kUpper || call->function == Function::kLower ||
                       call->function == Function::kRtrim;
    if (!folds) break;
    BoundPtr argument = std::move(call->arguments.front());
    value = std::move(argument);
  }
  return value;
}

BoundPtr MakeComparison(BinaryOperator op, BoundPtr left, BoundPtr right, Position at) {
  const Type common = CommonType(left->type, right->type);
  if (common.IsText())
    return MakeCondition(at,
                         BoundCompare{op, WithoutFolding(std::move(left)), WithoutFolding(std::move(right))});
  // Without room for the digits of both they are compared as they are.
  const int places = std::max(left->type.scale, right->type.scale);
  if (common.kind == TypeKind::kDecimal && common.scale < places && left->type.IsExact() &&
      right->type.IsExact())
    return MakeCondition(at, BoundCompare{op, std::move(left), std::move(right)});
  left = ConvertTo(std::move(left), common);
  right = ConvertTo(std::move(right), common);
  return MakeCondition(at, BoundCompare{op, std::move(left), std::move(right)});
}

BoundPtr ExpressionBinder::Value(const Expression& expression) {
  BoundPtr value = Bind(expression);
  if (value->condition)
    throw Error(kSyntax, "Incorrect syntax: a condition stands where a value is due.", value->at);
  return value;
}

BoundPtr ExpressionBinder::Condition(const Expression& expression) {
  BoundPtr condition = Bind(expression);
  if (!condition->condition)
    throw Error(kNoCondition,
                "An expression of non-boolean type specified in a context where a condition is expected.",
                condition->at);
  return condition;
}

BoundPtr ExpressionBinder::Bind(const Expression& expression) {
  return std::visit([&](const auto& node) { return BindNode(node, expression.at); }, expression.node);
}

BoundPtr ExpressionBinder::BindNode(const Literal& literal, Position at) {
  if (literal.kind == Literal::Kind::kNull)
    return MakeValue(at, {}, 0, BoundConstant{"", Literal::Kind::kNull});
  const BoundParameter parameter{literal.index, literal.kind};
  const Type type = state_->NaturalType(parameter);
  auto value = MakeValue(at, type, LimitOf(type), parameter);
  const bool pinned = rules_.pin_literals || (rules_.pin_texts && literal.kind == Literal::Kind::kText);
  if (pinned) PinLiteral(*value);
  return value;
}

// From here on the literal's digits may decide types and limits; a text its length.
void ExpressionBinder::PinLiteral(BoundExpression& value) {
  const auto* parameter = value.As<BoundParameter>();
  if (parameter == nullptr) return;
  const std::string& text = state_->LiteralText(parameter->literal);
  if (value.type != state_->NaturalType(*parameter)) return;
  if (parameter->kind == Literal::Kind::kInteger)
    std::from_chars(text.data(), text.data() + text.size(), value.limit);
  if (parameter->kind == Literal::Kind::kText) value.type.length = CountCharacters(text);
  value.node = state_->Pin(*parameter);
}

BoundPtr ExpressionBinder::BindNode(const ColumnName& name, Position at) {
  return scope_->Resolve(name, at);
}

BoundPtr ExpressionBinder::BindNode(const Star&, Position at) {
  throw Error(kSyntax, "Incorrect syntax near '*'.", at);
}

BoundPtr ExpressionBinder::BindNode(const Unary& unary, Position at) {
  if (unary.op == UnaryOperator::kNot) return MakeCondition(at, BoundNot{Condition(*unary.operand)});
  BoundPtr operand = Value(*unary.operand);
  if (unary.op == UnaryOperator::kPlus) return operand;
  const Type& type = operand->type;
  if (type.IsText() || type.IsDate() || type.kind == TypeKind::kBit)
    throw Error(kOperandType, "Operand data type " + NameOf(type) + " is invalid for minus operator.", at);
  const double limit = operand->limit;
  return MakeValue(at, NegatedType(type), limit, BoundNegate{std::move(operand)});
}

BoundPtr ExpressionBinder::BindNode(const Binary& binary, Position at) {
  if (IsLogical(binary.op)) return BindLogical(binary, at);
  BoundPtr left = Value(*binary.left);
  BoundPtr right = Value(*binary.right);
  // `1 = 1` is decided once, not for each row.
  if (left->As<BoundParameter>() && right->As<BoundParameter>()) PinLiteral(*left), PinLiteral(*right);
  if (IsComparison(binary.op)) return MakeComparison(binary.op, std::move(left), std::move(right), at);
  return BindArithmetic(binary.op, std::move(left), std::move(right), at);
}

// A chain of the same operator becomes one node, however long it is.
BoundPtr ExpressionBinder::BindLogical(const Binary& binary, Position at) {
  BoundLogical logical{binary.op, {}};
  AddOperands(binary, logical);
  return MakeCondition(at, std::move(logical));
}

void ExpressionBinder::AddOperands(const Binary& chain, BoundLogical& logical) {
  const auto* inner = std::get_if<Binary>(&chain.left->node);
  if (inner != nullptr && inner->op == chain.op)
    AddOperands(*inner, logical);
  else
    logical.operands.push_back(Condition(*chain.left));
  logical.operands.push_back(Condition(*chain.right));
}

BoundPtr ExpressionBinder::BindNode(const IsNull& test, Position at) {
  return MakeCondition(at, BoundIsNull{Value(*test.operand), test.negated});
}

BoundPtr ExpressionBinder::BindNode(const Between& between, Position at) {
  BoundLogical both{BinaryOperator::kAnd, {}};
  both.operands.push_back(
      MakeComparison(BinaryOperator::kGreaterEqual, Value(*between.operand), Value(*between.low), at));
  both.operands.push_back(
      MakeComparison(BinaryOperator::kLessEqual, Value(*between.operand), Value(*between.high), at));
  BoundPtr condition = MakeCondition(at, std::move(both));
  return between.negated ? MakeCondition(at, BoundNot{std::move(condition)}) : std::move(condition);
}

BoundPtr ExpressionBinder::BindNode(const InList& list, Position at) {
  BoundIn in{Value(*list.operand), {}, list.negated};
  in.items.reserve(list.items.size());
  Type common = in.operand->type;
  for (const ExpressionPtr& item : list.items) {
    in.items.push_back(Value(*item));
    common = CommonType(common, in.items.back()->type);
  }
  const auto align = [&](BoundPtr value) {
    return common.IsText() ? WithoutFolding(std::move(value)) : ConvertTo(std::move(value), common);
  };
  in.operand = align(std::move(in.operand));
  for (BoundPtr& item : in.items) item = align(std::move(item));
  return MakeCondition(at, std::move(in));
}

BoundQueryPtr ExpressionBinder::Subquery(const Query& query, int columns) {
  if (inside_aggregate_)
    throw Error(
        kAggregateInAggregate,
        "Cannot perform an aggregate function on an expression containing an aggregate or a subquery.",
        query.at);
  if (!rules_.queries)
    throw Error(
        kAggregateInGroupBy,
        "Cannot use an aggregate or a subquery in an expression used for the group by list of a GROUP BY "
        "clause.",
        query.at);
  ExpressionBinder* const before = std::exchange(scope_->asking, this);
  BoundQueryPtr bound = BindSubquery(*state_, *scope_, query, columns);
  scope_->asking = before;
  return bound;
}

BoundPtr ExpressionBinder::BindNode(const InQuery& in, Position at) {
  BoundPtr operand = Value(*in.operand);
  BoundQueryPtr query = Subquery(*in.query, 1);
  const Type common = CommonType(operand->type, query->selects.front().items.front().value->type);
  if (common.IsText())
    operand = WithoutFolding(std::move(operand));
  else
    operand = ConvertTo(std::move(operand), common);
  ConvertColumn(*query, 0, common);
  return MakeCondition(at, BoundInQuery{std::move(operand), std::move(query), in.negated});
}

BoundPtr ExpressionBinder::BindNode(const Like& like, Position at) {
  BoundPtr operand = Value(*like.operand);
  BoundPtr pattern = Value(*like.pattern);
  const auto wide = [](const Type& type) { return type.IsText() && !type.ansi; };
  const bool unicode = wide(operand->type) || wide(pattern->type);
  BoundCall call{unicode ? Function::kLikeUnicode : Function::kLike, {}};
  call.arguments.push_back(ConvertTo(std::move(operand), Type::VarChar(Type::kMaxLength)));
  call.arguments.push_back(ConvertTo(std::move(pattern), Type::VarChar(Type::kMaxLength)));
  BoundPtr condition = MakeCondition(at, std::move(call));
  return like.negated ? MakeCondition(at, BoundNot{std::move(condition)}) : std::move(condition);
}

BoundPtr ExpressionBinder::BindNode(const Exists& exists, Position at) {
  return MakeCondition(at, BoundExists{Subquery(*exists.query, 0)});
}

BoundPtr ExpressionBinder::BindNode(const ScalarQuery& scalar, Position at) {
  BoundQueryPtr query = Subquery(*scalar.query, 1);
  double limit = 0;
  for (const BoundSelect& select : query->selects) limit = std::max(limit, select.items.front().value->limit);
  const Type column = query->selects.front().items.front().value->type;
  const Type type = column.IsNull() ? Type::Int() : column;
  const bool single = HasOneRowAtMost(*query);
  return MakeValue(at, type, limit, BoundScalarQuery{std::move(query), single});
}

BoundPtr ExpressionBinder::BindNode(const Cast& cast, Position at) {
  BoundPtr operand = Value(*cast.operand);
  operand->at = at;
  return ConvertTo(std::move(operand), cast.type, BoundConvert::Mode::kCast);
}

BoundPtr ExpressionBinder::BindNode(const Case& branches, Position at) {
  BoundCase bound;
  Type type;
  Type compared;
  bound.branches.reserve(branches.branches.size());
  if (branches.operand) bound.operand = Value(*branches.operand);
  for (const Case::Branch& branch : branches.branches) {
    BoundPtr when = branches.operand ? Value(*branch.when) : Condition(*branch.when);
    compared = CommonType(compared, when->type);
    bound.branches.push_back({std::move(when), Value(*branch.then)});
    type = CommonType(type, bound.branches.back().then->type);
  }
  if (branches.otherwise) {
    bound.otherwise = Value(*branches.otherwise);
    type = CommonType(type, bound.otherwise->type);
  }
  if (type.IsNull())
    throw Error(kCaseOfNulls,
                "At least one of the result expressions in a CASE must be an expression other than the NULL "
                "constant.",
                at);
  if (bound.operand) {
    compared = CommonType(compared, bound.operand->type);
    const auto align = [&](BoundPtr& value) {
      value = compared.IsText() ? WithoutFolding(std::move(value)) : ConvertTo(std::move(value), compared);
    };
    align(bound.operand);
    for (BoundCase::Branch& branch : bound.branches) align(branch.when);
  }
  double limit = 0;
  const auto convert = [&](BoundPtr& value) {
    value = ConvertTo(std::move(value), type);
    limit = std::max(limit, value->limit);
  };
  for (BoundCase::Branch& branch : bound.branches) convert(branch.then);
  if (bound.otherwise) convert(bound.otherwise);
  return MakeValue(at, type, limit, std::move(bound));
}

}  // namespace tarvoni::tsql

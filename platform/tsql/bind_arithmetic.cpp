#include <algorithm>
#include <cmath>

#include "platform/tsql/convert.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

std::string_view NameOf(BinaryOperator op) {
  switch (op) {
    case BinaryOperator::kAdd:
      return "add";
    case BinaryOperator::kSubtract:
      return "subtract";
    case BinaryOperator::kMultiply:
      return "multiply";
    case BinaryOperator::kDivide:
      return "divide";
    default:
      return "modulo";
  }
}

// A whole-number literal beside a decimal counts with the digits it has, not with the ten of an INT.
Type OperandType(const BoundExpression& operand, const Type& other) {
  const auto* constant = operand.As<BoundConstant>();
  if (constant && !constant->converted && constant->kind == Literal::Kind::kInteger &&
      other.kind == TypeKind::kDecimal)
    return Type::Decimal(static_cast<int>(ScaledDigits(constant->text, 0).size()), 0);
  return operand.type;
}

double OwnLimit(const BoundExpression& operand) {
  return operand.type.IsExact() ? std::min(operand.limit, LimitOf(operand.type)) : 0;
}

double QuotientLimit(const BoundExpression& left, const BoundExpression& right, const Type& type) {
  const int shift = type.scale - left.type.scale + right.type.scale;
  const double divisor = right.As<BoundConstant>() ? std::max(1.0, right.limit) : 1.0;
  return OwnLimit(left) * PowerOfTenLimit(shift) / divisor;
}

double ResultLimit(BinaryOperator op, const BoundExpression& left, const BoundExpression& right,
                   const Type& type) {
  if (!type.IsExact()) return 0;
  const auto aligned = [&](const BoundExpression& operand) {
    return OwnLimit(operand) * PowerOfTenLimit(type.scale - operand.type.scale);
  };
  switch (op) {
    case BinaryOperator::kMultiply: {
      const int dropped = left.type.scale + right.type.scale - type.scale;
      return OwnLimit(left) * OwnLimit(right) / PowerOfTenLimit(dropped);
    }
    case BinaryOperator::kDivide:
      return QuotientLimit(left, right, type);
    case BinaryOperator::kModulo:
      return OwnLimit(right);
    default:
      return aligned(left) + aligned(right);
  }
}

[[noreturn]] void Incompatible(const Type& left, const Type& right, BinaryOperator op, Position at) {
  throw Error(kIncompatibleTypes,
              "The data types " + NameOf(left) + " and " + NameOf(right) + " are incompatible in the " +
                  std::string(NameOf(op)) + " operator.",
              at);
}

[[noreturn]] void InvalidOperand(const Type& type, BinaryOperator op, Position at) {
  throw Error(
      kOperandType,
      "Operand data type " + NameOf(type) + " is invalid for " + std::string(NameOf(op)) + " operator.", at);
}

// What an operator does not take at all, of one type or of two.
[[noreturn]] void RefuseOperands(const Type& left, const Type& right, BinaryOperator op, Position at) {
  if (NameOf(left) != NameOf(right)) Incompatible(left, right, op, at);
  InvalidOperand(left, op, at);
}

// A server does not pad what ISNULL puts in the place of a CHAR where that becomes part of a Unicode text.
void LeaveUnpadded(BoundExpression& text) {
  if (auto* concat = text.As<BoundConcat>()) LeaveUnpadded(*concat->left), LeaveUnpadded(*concat->right);
  auto* call = text.As<BoundCall>();
  if (call == nullptr || call->function != Function::kIsNull || text.type.kind != TypeKind::kChar) return;
  BoundPtr& second = call->arguments[1];
  if (second->As<BoundConvert>()) second->type.kind = TypeKind::kVarChar;
}

// A DATE knows no arithmetic.
[[noreturn]] void RefuseDay(const Type& left, const Type& right, BinaryOperator op, Position at) {
  const Type& other = left.IsDay() ? right : left;
  if (!other.IsNumeric()) RefuseOperands(left, right, op, at);
  throw Error(kTypeClash, "Operand type clash: " + NameOf(other) + " is incompatible with date.", at);
}

}  // namespace

BoundPtr ExpressionBinder::BindArithmetic(BinaryOperator op, BoundPtr left, BoundPtr right, Position at) {
  const Type common = CommonType(left->type, right->type);
  if (common.IsDate()) return BindDateArithmetic(op, std::move(left), std::move(right), at);
  if (common.IsText()) {
    if (op != BinaryOperator::kAdd) RefuseOperands(left->type, right->type, op, at);
    const Type type = ConcatenationType(left->type, right->type);
    if (!type.ansi) LeaveUnpadded(*left), LeaveUnpadded(*right);
    return MakeValue(at, type, 0, BoundConcat{std::move(left), std::move(right)});
  }
  if (common.kind == TypeKind::kBit && left->type == right->type) InvalidOperand(common, op, at);
  if (common.kind == TypeKind::kFloat && op == BinaryOperator::kModulo)
    RefuseOperands(left->type, right->type, op, at);
  if (left->type.IsText()) left = ConvertTo(std::move(left), common);
  if (right->type.IsText()) right = ConvertTo(std::move(right), common);
  PinLiteral(*left);
  PinLiteral(*right);
  const Type type = ArithmeticType(op, OperandType(*left, right->type), OperandType(*right, left->type));
  if (op == BinaryOperator::kModulo && !type.IsInteger() && !type.IsNull())
    throw Error(kUnsupported, "The operator % is supported on whole numbers only.", at);
  if (!type.IsExact()) {
    left = ConvertTo(std::move(left), type);
    right = ConvertTo(std::move(right), type);
  }
  const double limit = ResultLimit(op, *left, *right, type);
  return MakeValue(at, type, limit, BoundArithmetic{op, std::move(left), std::move(right)});
}

BoundPtr ExpressionBinder::BindDateArithmetic(BinaryOperator op, BoundPtr left, BoundPtr right, Position at) {
  if (left->type.IsDay() || right->type.IsDay()) RefuseDay(left->type, right->type, op, at);
  if (op != BinaryOperator::kAdd && op != BinaryOperator::kSubtract) InvalidOperand(Type::DateTime(), op, at);
  if (!left->type.IsDate() && op == BinaryOperator::kAdd) std::swap(left, right);
  if (!left->type.IsDate() || !(right->type.IsNumeric() || right->type.IsNull()))
    throw Error(kUnsupported, "Of a date only a number of days can be added or subtracted.", at);
  right = ConvertTo(std::move(right), Type::Float());
  const bool subtract = op == BinaryOperator::kSubtract;
  const Type type = left->type;
  return MakeValue(at, type, 0, BoundDateAdd{std::move(left), std::move(right), subtract});
}

}  // namespace tarvoni::tsql

#include <algorithm>

#include "platform/tsql/convert.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

std::string_view Symbol(BinaryOperator op) {
  switch (op) {
    case BinaryOperator::kAdd:
      return "+";
    case BinaryOperator::kSubtract:
      return "-";
    case BinaryOperator::kMultiply:
      return "*";
    case BinaryOperator::kDivide:
      return "/";
    default:
      return "%";
  }
}

std::string PowerOfTenDigits(int exponent) {
  return "1" + std::string(static_cast<size_t>(exponent), '0');
}

double OwnLimit(const BoundExpression& value) {
  return std::min(value.limit, LimitOf(value.type));
}

// A divisor that is known and not zero needs no test.
bool IsKnownDivisor(const BoundExpression& value) {
  const auto* constant = value.As<BoundConstant>();
  return constant && constant->kind != Literal::Kind::kNull &&
         constant->text.find_first_of("123456789") != std::string::npos &&
         (!value.type.IsExact() || ScaledDigits(constant->text, value.type.scale) != "0");
}

bool FitsScaled(const BoundExpression& value, int places) {
  return !IsWide(value) && (places <= 0 || OwnLimit(value) * PowerOfTenLimit(places) < kNarrowLimit);
}

}  // namespace

void Emitter::Node(const BoundNegate& node, const BoundExpression& self) {
  if (IsWide(self)) return Function("ts_exact_neg", *node.operand);
  Text("(-");
  Expression(*node.operand);
  Text(")");
}

void Emitter::Node(const BoundArithmetic& node, const BoundExpression& self) {
  const bool divides = node.op == BinaryOperator::kDivide;
  if (self.type.IsInteger()) return IntegerArithmetic(node, self);
  if (!self.type.IsExact()) {
    if (divides && !IsKnownDivisor(*node.right)) return Function("ts_float_div", *node.left, *node.right);
    return Infix(*node.left, Symbol(node.op), *node.right);
  }
  if (divides) return ExactQuotient(node, self);
  if (node.op == BinaryOperator::kMultiply) return ExactProduct(node, self);
  ExactSum(node, self);
}

void Emitter::IntegerArithmetic(const BoundArithmetic& node, const BoundExpression& self) {
  const bool divides = node.op == BinaryOperator::kDivide || node.op == BinaryOperator::kModulo;
  const bool unsure = self.limit > LimitOf(self.type) || self.type.kind == TypeKind::kTinyInt;
  if (divides) {
    const std::string_view function = node.op == BinaryOperator::kDivide ? "ts_int_div" : "ts_int_mod";
    if (!IsKnownDivisor(*node.right)) return Function(function, *node.left, *node.right);
  } else if (unsure) {
    Text("ts_int_range(");
    Infix(*node.left, Symbol(node.op), *node.right);
    Text(",").Number(static_cast<int>(self.type.kind)).Text(")");
    return;
  }
  Infix(*node.left, Symbol(node.op), *node.right);
}

void Emitter::Scaled(const BoundExpression& operand, int scale) {
  const int places = scale - operand.type.scale;
  const auto* constant = operand.As<BoundConstant>();
  if (constant && constant->kind != Literal::Kind::kNull && constant->kind != Literal::Kind::kText) {
    Text(ScaledDigits(constant->text, scale));
  } else if (places == 0) {
    Expression(operand);
  } else if (places > 0 && FitsScaled(operand, places)) {
    Text("(");
    Expression(operand);
    Text("*").Text(PowerOfTenDigits(places)).Text(")");
  } else {
    Function("ts_exact_rescale", operand, {operand.type.scale, scale, Type::kMaxPrecision});
  }
}

// Sums of money stay native: beyond 64 bits SQLite's result is a REAL, which is found where the value is
// used.
void Emitter::ExactSum(const BoundArithmetic& node, const BoundExpression& self) {
  const int scale = self.type.scale;
  const bool fits = FitsScaled(*node.left, scale - node.left->type.scale) &&
                    FitsScaled(*node.right, scale - node.right->type.scale);
  const bool native = fits && (self.type.kind == TypeKind::kMoney || self.limit < kNarrowLimit);
  const bool add = node.op == BinaryOperator::kAdd;
  if (!native) Text(add ? "ts_exact_add" : "ts_exact_sub");
  Text("(");
  Scaled(*node.left, scale);
  Text(native ? Symbol(node.op) : ",");
  Scaled(*node.right, scale);
  Text(")");
}

void Emitter::ExactProduct(const BoundArithmetic& node, const BoundExpression& self) {
  const int dropped = node.left->type.scale + node.right->type.scale - self.type.scale;
  const bool money = self.type.kind == TypeKind::kMoney;
  const bool narrow = !IsWide(*node.left) && !IsWide(*node.right);
  if (narrow && dropped == 0 && (money || self.limit < kNarrowLimit))
    return Infix(*node.left, "*", *node.right);
  if (money) Text("ts_exact_money(");
  Text("ts_exact_mul(");
  Expression(*node.left);
  Text(",");
  Expression(*node.right);
  Text(",").Number(dropped).Text(money ? "))" : ")");
}

void Emitter::ExactQuotient(const BoundArithmetic& node, const BoundExpression& self) {
  const int shift = self.type.scale - node.left->type.scale + node.right->type.scale;
  if (IsKnownDivisor(*node.right) && shift >= 0 && FitsScaled(*node.left, shift)) {
    Text("(");
    Scaled(*node.left, node.left->type.scale + shift);
    Text("/");
    Expression(*node.right);
    Text(")");
    return;
  }
  const bool money = self.type.kind == TypeKind::kMoney;
  if (money) Text("ts_exact_money(");
  Text("ts_exact_div(");
  Expression(*node.left);
  Text(",");
  Expression(*node.right);
  Text(",").Number(shift).Text(money ? "))" : ")");
}

}  // namespace tarvoni::tsql

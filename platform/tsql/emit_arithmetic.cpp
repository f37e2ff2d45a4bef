#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "platform/tsql/convert.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/public/lexer.h"
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

// Whole numbers whose result may leave its type.
bool IsUnsure(const BoundExpression& value) {
  return value.limit > LimitOf(value.type) || value.type.kind == TypeKind::kTinyInt;
}

bool IsSum(BinaryOperator op) {
  return op == BinaryOperator::kAdd || op == BinaryOperator::kSubtract;
}

// How a sum or a product is worked out: by SQLite's operators, by them with a test of the range, by a function over
// wide values, or in a way of its own.
enum class Way { kOwn, kNative, kChecked, kWide };

// Sums of money stay native: beyond 64 bits SQLite's result is a REAL, which is found where the value is used.
Way ExactWay(const BoundArithmetic& node, const BoundExpression& self) {
  const int scale = self.type.scale;
  const bool narrow = self.type.kind == TypeKind::kMoney || self.limit < kNarrowLimit;
  if (IsSum(node.op)) {
    const bool fits = FitsScaled(*node.left, scale - node.left->type.scale) &&
                      FitsScaled(*node.right, scale - node.right->type.scale);
    return fits && narrow ? Way::kNative : Way::kWide;
  }
  const bool keeps_places = node.left->type.scale + node.right->type.scale == scale;
  return narrow && keeps_places && !IsWide(*node.left) && !IsWide(*node.right) ? Way::kNative : Way::kOwn;
}

Way WayOf(const BoundExpression& self) {
  const auto* node = self.As<BoundArithmetic>();
  if (node == nullptr || (!IsSum(node->op) && node->op != BinaryOperator::kMultiply)) return Way::kOwn;
  if (self.type.IsInteger()) return IsUnsure(self) ? Way::kChecked : Way::kNative;
  if (self.type.IsExact()) return ExactWay(*node, self);
  return self.type.IsReal() ? Way::kOwn : Way::kNative;
}

// Whether `left` is worked out in one chain with the operator of `self` behind it.
bool Continues(const BoundExpression& self, const BoundExpression& left) {
  const auto* inner = left.As<BoundArithmetic>();
  return inner != nullptr && IsSum(inner->op) == IsSum(self.As<BoundArithmetic>()->op) &&
         WayOf(left) == WayOf(self) && left.type.kind == self.type.kind && left.type.scale == self.type.scale;
}

constexpr std::uint64_t kHighestNarrow = std::numeric_limits<std::int64_t>::max();

// Digits as a value of the file: beyond 64 bits a BLOB of 16 bytes.
std::string ExactText(const std::string& digits) {
  __extension__ unsigned __int128 number = 0;
  for (const char digit : digits) number = number * 10 + static_cast<unsigned>(digit - '0');
  if (number <= kHighestNarrow) return digits;
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string text = "x'";
  for (int shift = 124; shift >= 0; shift -= 4) text += kHex[static_cast<size_t>(number >> shift) & 0xF];
  return text + "'";
}

}  // namespace

void Emitter::Digits(const BoundConstant& constant, int scale) {
  const std::string digits = ScaledDigits(constant.text, scale);
  if (digits.size() <= Type::kMaxPrecision) {
    Text(ExactText(digits));
    return;
  }
  const int own = DecimalType(constant.text).scale;
  Text("ts_exact_rescale(").Text(ExactText(ScaledDigits(constant.text, own))).Text(",").Number(own);
  Text(",").Number(scale).Text(",").Number(Type::kMaxPrecision).Text(")");
}

void Emitter::Node(const BoundNegate& node, const BoundExpression& self) {
  if (IsWide(self)) return Function("ts_exact_neg", *node.operand);
  const bool unsure = self.type.IsInteger() && self.type.kind != TypeKind::kBigInt &&
                      node.operand->limit >= LimitOf(self.type) && !node.operand->As<BoundParameter>();
  Text(unsure ? "ts_int_range(-" : "(-");
  Expression(*node.operand);
  if (unsure) Text(",").Number(static_cast<int>(self.type.kind));
  Text(")");
}

void Emitter::Node(const BoundArithmetic& node, const BoundExpression& self) {
  if (WayOf(self) != Way::kOwn) return Chain(self);
  if (self.type.IsExact()) {
    if (node.op == BinaryOperator::kMultiply) return ExactProduct(node, self);
    return self.type.IsInteger() ? IntegerQuotient(node) : ExactQuotient(node, self);
  }
  const bool real = self.type.IsReal();
  if (real) Text("ts_real(");
  if (node.op == BinaryOperator::kDivide && !IsKnownDivisor(*node.right)) {
    Function("ts_float_div", *node.left, *node.right);
  } else {
    Infix(*node.left, Symbol(node.op), *node.right);
  }
  if (real) Text(")");
}

void Emitter::Chain(const BoundExpression& self) {
  std::vector<Operand> operands;
  const BoundExpression* left = &self;
  do {
    const auto* node = left->As<BoundArithmetic>();
    operands.push_back({node->right.get(), node->op == BinaryOperator::kSubtract});
    left = node->left.get();
  } while (Continues(self, *left));
  operands.push_back({left, false});
  std::ranges::reverse(operands);

  const BinaryOperator op = self.As<BoundArithmetic>()->op;
  const std::string kind = std::to_string(static_cast<int>(self.type.kind));
  const bool checked = WayOf(self) == Way::kChecked;
  if (WayOf(self) == Way::kWide) return Fold("ts_exact_add(", "ts_exact_neg(", operands, self.type.scale);
  // Each step is tested; that of a BIGINT becomes a REAL, and stays one.
  if (checked && operands.size() > 2 && self.type.kind != TypeKind::kBigInt)
    return Fold((IsSum(op) ? "ts_int_sum(" : "ts_int_product(") + kind + ",", "(-", operands, 0);
  Text(checked ? "ts_int_range(" : "").Text("(");
  for (size_t i = 0; i < operands.size(); ++i) {
    if (i > 0) Text(operands[i].subtracted ? "-" : IsSum(op) ? "+" : "*");
    if (self.type.IsExact() && IsSum(op))
      Scaled(*operands[i].value, self.type.scale);
    else
      Expression(*operands[i].value);
  }
  Text(")");
  if (checked) Text(",").Text(kind).Text(")");
}

// SQLite takes 127 arguments: the result of a hundred is the first of the next.
void Emitter::Fold(std::string_view begin, std::string_view negate, std::span<const Operand> operands,
                   int scale) {
  constexpr size_t kMostArguments = 100;
  const size_t calls = (operands.size() - 2) / kMostArguments + 1;
  for (size_t call = 0; call < calls; ++call) Text(begin);
  for (size_t i = 0; i < operands.size(); ++i) {
    if (i > 1 && (i - 1) % kMostArguments == 0) Text(")");
    if (i > 0) Text(",");
    if (operands[i].subtracted) Text(negate);
    Scaled(*operands[i].value, scale);
    if (operands[i].subtracted) Text(")");
  }
  Text(")");
}

void Emitter::IntegerQuotient(const BoundArithmetic& node) {
  const bool divides = node.op == BinaryOperator::kDivide;
  if (IsKnownDivisor(*node.right)) return Infix(*node.left, Symbol(node.op), *node.right);
  Function(divides ? "ts_int_div" : "ts_int_mod", *node.left, *node.right);
}

void Emitter::Scaled(const BoundExpression& operand, int scale) {
  const int places = scale - operand.type.scale;
  const auto* constant = operand.As<BoundConstant>();
  if (constant && constant->kind != Literal::Kind::kNull && constant->kind != Literal::Kind::kText) {
    Digits(*constant, scale);
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

void Emitter::ExactProduct(const BoundArithmetic& node, const BoundExpression& self) {
  const int dropped = node.left->type.scale + node.right->type.scale - self.type.scale;
  const bool money = self.type.kind == TypeKind::kMoney;
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

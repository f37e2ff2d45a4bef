#include <algorithm>

#include "platform/tsql/emitter.h"
#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

double OwnLimit(const BoundExpression& value) {
  return std::min(value.limit, LimitOf(value.type));
}

bool IsUnsigned(const Type& type) {
  return type.kind == TypeKind::kTinyInt || type.kind == TypeKind::kBit;
}

// A number is no DATE, whether the statement says CAST or not.
[[noreturn]] void NoConversion(const BoundExpression& from, const Type& to, BoundConvert::Mode mode) {
  if (mode == BoundConvert::Mode::kCast)
    throw Error(
        kNoCast,
        "Explicit conversion from data type " + NameOf(from.type) + " to " + NameOf(to) + " is not allowed.",
        from.at);
  throw Error(kTypeClash, "Operand type clash: " + NameOf(from.type) + " is incompatible with " + NameOf(to),
              from.at);
}

// A DATE is no number either; a DATETIME is one only where the statement says so.
[[noreturn]] void NoNumber(const BoundExpression& from, const Type& to, BoundConvert::Mode mode) {
  if (from.type.IsDay()) NoConversion(from, to, mode);
  const std::string types =
      "onversion from data type " + NameOf(from.type) + " to " + NameOf(to) + " is not ";
  if (mode == BoundConvert::Mode::kCast) throw Error(kUnsupported, "A c" + types + "supported.", from.at);
  throw Error(kNoImplicitConversion,
              "Implicit c" + types + "allowed. Use the CONVERT function to run this query.", from.at);
}

}  // namespace

void Emitter::Node(const BoundConvert& node, const BoundExpression& self) {
  const BoundExpression& from = *node.operand;
  const Type& to = self.type;
  if (from.type.IsNull()) return Expression(from);
  if (from.type.IsDate() && to.IsNumeric()) NoNumber(from, to, node.mode);
  if (to.IsInteger()) return ToInteger(from, to);
  if (to.IsExact()) return ToExact(from, to);
  if (to.IsReal()) return ToReal(from);
  if (to.kind == TypeKind::kFloat) return ToFloat(from);
  if (to.IsDate()) return ToDate(from, to, node.mode);
  ToText(from, to, node.mode);
}

void Emitter::ToInteger(const BoundExpression& from, const Type& to) {
  const auto kind = static_cast<int>(to.kind);
  if (from.type.IsText()) return Function("ts_int_from_text", from, {kind});
  if (to.kind == TypeKind::kBit) {
    Text("(");
    Expression(from);
    Text("<>0)");
    return;
  }
  if (from.type.IsInteger()) {
    const bool fits = OwnLimit(from) <= LimitOf(to) && (!IsUnsigned(to) || IsUnsigned(from.type));
    return fits ? Expression(from) : Function("ts_int_cast", from, {kind});
  }
  if (!from.type.IsExact()) return Function("ts_int_from_float", from, {kind});
  const bool rounds = from.type.kind == TypeKind::kMoney;
  Function("ts_int_from_exact", from, {from.type.scale, kind, rounds ? 1 : 0});
}

void Emitter::ToExact(const BoundExpression& from, const Type& to) {
  const bool money = to.kind == TypeKind::kMoney;
  if (from.type.IsText())
    return money ? Function("ts_money_from_text", from)
                 : Function("ts_exact_from_text", from, {to.precision, to.scale});
  if (!from.type.IsExact()) return Function("ts_exact_from_float", from, {to.precision, to.scale});
  const int places = to.scale - from.type.scale;
  if (places >= 0 && OwnLimit(from) * PowerOfTenLimit(places) <= LimitOf(to)) return Scaled(from, to.scale);
  if (money) Text("ts_exact_money(");
  Function("ts_exact_rescale", from, {from.type.scale, to.scale, money ? Type::kMaxPrecision : to.precision});
  if (money) Text(")");
}

void Emitter::ToFloat(const BoundExpression& from) {
  if (from.type.kind == TypeKind::kFloat) return Expression(from);
  if (from.type.IsText()) return Function("ts_float_from_text", from);
  if (IsWide(from)) return Function("ts_float_from_exact", from, {from.type.scale});
  if (from.type.scale == 0) {
    Text("CAST(");
    Expression(from);
    Text(" AS REAL)");
    return;
  }
  Text("(");
  Expression(from);
  Text("/1e").Number(from.type.scale).Text(")");
}

// The digits or letters of any value, of whatever length they are.
void Emitter::TextOf(const BoundExpression& from) {
  if (from.type.IsText()) return Expression(from);
  if (from.type.IsDay()) return Expression(from);
  if (from.type.IsDate()) return Function("ts_text_from_date", from);
  if (from.type.kind == TypeKind::kMoney) return Function("ts_text_from_money", from);
  if (from.type.kind == TypeKind::kDecimal) return Function("ts_text_from_exact", from, {from.type.scale});
  if (from.type.kind == TypeKind::kFloat) return Function("ts_text_from_float", from);
  Text("CAST(");
  Expression(from);
  Text(" AS TEXT)");
}

void Emitter::ToText(const BoundExpression& from, const Type& to, BoundConvert::Mode mode) {
  const int fixed = to.kind == TypeKind::kChar ? 1 : 0;
  const bool number = from.type.IsNumeric();
  if (!number || mode != BoundConvert::Mode::kStore) {
    if (to.length >= Type::kMaxLength && fixed == 0) return TextOf(from);
  }
  // Only CHAR and VARCHAR have the asterisk for digits that do not fit.
  if (from.type.IsInteger() && to.ansi) return Function("ts_int_text_cast", from, {to.length, fixed});
  Text(number                               ? "ts_number_text_cast("
       : mode == BoundConvert::Mode::kStore ? "ts_text_store("
                                            : "ts_text_cast(");
  TextOf(from);
  Text(",").Number(to.length).Text(",").Number(fixed).Text(")");
}

// The time that a DATE or a SMALLDATETIME has no room for goes.
void Emitter::ToDate(const BoundExpression& from, const Type& to, BoundConvert::Mode mode) {
  if (to.IsDay() && from.type.IsNumeric()) NoConversion(from, to, mode);
  const bool minutes = to == Type::SmallDateTime();
  Text(to.IsDay() ? "substr(" : minutes ? "ts_date_minutes(" : "");
  if (from.type.IsDate()) {
    Expression(from);
  } else if (from.type.IsText()) {
    Function("ts_date_from_text", from);
  } else {
    Text("ts_date_from_days(");
    ToFloat(from);
    Text(")");
  }
  Text(to.IsDay() ? ",1," + std::to_string(Type::kDayPrecision) + ")" : minutes ? ")" : "");
}

void Emitter::ToReal(const BoundExpression& from) {
  Text("ts_real(");
  ToFloat(from);
  Text(")");
}

}  // namespace tarvoni::tsql

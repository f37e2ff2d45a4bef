#include "platform/sqlite/function_layer.h"
#include "platform/sqlite/number_text.h"
#include "platform/sqlite/whole.h"

// Whole numbers and floats.
namespace tarvoni::sqlite {
namespace {

double DivideFloat(double a, double b) {
  if (b == 0) Raise(kDivisionByZero);
  return a / b;
}

double FloatFromExact(Int128 value, int scale) {
  return Decimal(value, scale).ToDouble();
}

// The arguments behind the kind, one after the other; each result must fit.
template <Int128 (*kStep)(Int128, Int128)>
std::int64_t FoldWhole(ArgumentList arguments) {
  const auto kind = ReadArgument<tsql::TypeKind>(arguments[0]);
  std::int64_t result = ReadArgument<std::int64_t>(arguments[1]);
  for (sqlite3_value* argument : arguments.subspan(2)) {
    const Int128 next = kStep(result, ReadArgument<std::int64_t>(argument));
    if (!FitsKind(next, kind)) RaiseOverflow(kind);
    result = static_cast<std::int64_t>(next);
  }
  return result;
}

Int128 Plus(Int128 a, Int128 b) {
  return a + b;
}

Int128 Times(Int128 a, Int128 b) {
  return a * b;
}

// What leaves its range is infinite, and an error where a result is returned.
double FloatInRange(double value) {
  return value;
}

double RealOf(double value) {
  return static_cast<double>(static_cast<float>(value));
}

// Numbers are numeric whatever their value; only of a text it is asked.
std::int64_t IsNumeric(Raw value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return 0;
    case SQLITE_TEXT:
      return IsNumericText(ReadArgument<std::string_view>(value));
    default:
      return 1;
  }
}

}  // namespace

void RegisterNumberFunctions(sqlite3* db, FunctionContext& context) {
  Register<&RequireRange>(db, context, "ts_int_range");
  RegisterList<&FoldWhole<&Plus>>(db, context, "ts_int_sum");
  RegisterList<&FoldWhole<&Times>>(db, context, "ts_int_product");
  Register<&FloatInRange>(db, context, "ts_float_range");
  Register<&RealOf>(db, context, "ts_real");
  Register<&CastWhole>(db, context, "ts_int_cast");
  Register<&WholeFromText>(db, context, "ts_int_from_text");
  Register<&WholeFromExact>(db, context, "ts_int_from_exact");
  Register<&WholeFromFloat>(db, context, "ts_int_from_float");
  Register<&DivideWhole>(db, context, "ts_int_div");
  Register<&Modulo>(db, context, "ts_int_mod");
  Register<&DivideFloat>(db, context, "ts_float_div");
  Register<&FloatFromText>(db, context, "ts_float_from_text");
  Register<&FloatFromExact>(db, context, "ts_float_from_exact");
  Register<&RoundFloat>(db, context, "ts_round_float");
  Register<&IsNumeric>(db, context, "ts_isnumeric");
}

}  // namespace tarvoni::sqlite

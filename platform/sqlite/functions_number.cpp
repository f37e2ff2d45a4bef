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

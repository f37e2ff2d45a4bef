#include "platform/sqlite/function_layer.h"

namespace tarvoni::sqlite {
namespace {

DateTime DateOfText(FunctionContext& context, std::string_view text) {
  return DateFromText(text, context.date_format);
}

DateTime PlusDays(ArgumentList arguments) {
  auto date = ReadArgument<DateTime>(arguments[0]);
  for (sqlite3_value* days : arguments.subspan(1)) date = AddDays(date, ReadArgument<double>(days));
  return date;
}

DateTime InMinutes(DateTime date) {
  return ToMinutes(date);
}

std::string TextOfDate(DateTime date) {
  return TextFromDate(date);
}

}  // namespace

void RegisterDateFunctions(sqlite3* db, FunctionContext& context) {
  Register<&DateOfText>(db, context, "ts_date_from_text", kImpure | SQLITE_INNOCUOUS);
  Register<&DateFromDays>(db, context, "ts_date_from_days");
  RegisterList<&PlusDays>(db, context, "ts_date_add");
  Register<&InMinutes>(db, context, "ts_date_minutes");
  Register<&TextOfDate>(db, context, "ts_text_from_date");
}

}  // namespace tarvoni::sqlite

#include "platform/sqlite/function_layer.h"

namespace tarvoni::sqlite {
namespace {

DateTime DateOfText(FunctionContext& context, std::string_view text) {
  return DateFromText(text, context.date_format);
}

DateTime PlusDays(DateTime date, double days) {
  return AddDays(date, days);
}

std::string TextOfDate(DateTime date) {
  return TextFromDate(date);
}

}  // namespace

void RegisterDateFunctions(sqlite3* db, FunctionContext& context) {
  Register<&DateOfText>(db, context, "ts_date_from_text", kImpure | SQLITE_INNOCUOUS);
  Register<&DateFromDays>(db, context, "ts_date_from_days");
  Register<&PlusDays>(db, context, "ts_date_add");
  Register<&TextOfDate>(db, context, "ts_text_from_date");
}

}  // namespace tarvoni::sqlite

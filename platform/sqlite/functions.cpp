#include "platform/sqlite/functions.h"

#include "platform/sqlite/function_layer.h"

namespace tarvoni::sqlite {
namespace {

std::int64_t RaiseNumber(std::int64_t number) {
  Raise(static_cast<int>(number));
}

std::int64_t NextIdentity(FunctionContext& context, std::string_view table) {
  const auto value = context.next_identity ? context.next_identity(table) : std::nullopt;
  if (!value) RaiseOverflow(tsql::TypeKind::kInt);
  return *value;
}

std::optional<std::int64_t> CurrentIdentity(FunctionContext& context, std::string_view table) {
  return context.current_identity ? context.current_identity(table) : std::nullopt;
}

}  // namespace

void RegisterStatementFunctions(sqlite3* db, FunctionContext& context) {
  Register<&RaiseNumber>(db, context, "ts_raise", kImpure);
  Register<&NextIdentity>(db, context, "ts_next_identity", kImpure);
  Register<&CurrentIdentity>(db, context, "ts_ident_current", kImpure);
}

void RegisterFunctions(sqlite3* db, FunctionContext& context) {
  RegisterNumberFunctions(db, context);
  RegisterExactFunctions(db, context);
  RegisterTextFunctions(db, context);
  RegisterDateFunctions(db, context);
  RegisterStatementFunctions(db, context);
  RegisterPartFunction(db, context);
  RegisterCollation(db);
}

}  // namespace tarvoni::sqlite

#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/date_text.h"

namespace tarvoni::sqlite {

class PreparedParts;

struct FunctionError {
  int number = 0;
  std::string message;
};

// What the functions of one connection share with the one who runs the statements.
struct FunctionContext {
  DateFormat date_format = DateFormat::kMdy;
  // Why the last function failed: SQLite itself passes on no number. Whoever runs a statement clears it before.
  std::optional<FunctionError> error;
  // Identity values by table; nothing for a table without one, or when they are used up.
  std::function<std::optional<std::int64_t>(std::string_view table)> next_identity;
  std::function<std::optional<std::int64_t>(std::string_view table)> current_identity;
  // The parts of the statement that runs.
  PreparedParts* parts = nullptr;
};

// Registers the functions of platform/tsql/runtime.h and the collation. `context` outlives the database.
void RegisterFunctions(sqlite3* db, FunctionContext& context);

// Its parts.
void RegisterNumberFunctions(sqlite3* db, FunctionContext& context);
void RegisterExactFunctions(sqlite3* db, FunctionContext& context);
void RegisterTextFunctions(sqlite3* db, FunctionContext& context);
void RegisterDateFunctions(sqlite3* db, FunctionContext& context);
void RegisterPartFunction(sqlite3* db, FunctionContext& context);
void RegisterStatementFunctions(sqlite3* db, FunctionContext& context);
void RegisterCollation(sqlite3* db);

}  // namespace tarvoni::sqlite

#include "platform/sqlite/handle.h"

#include <algorithm>

#include "platform/sqlite/error_map.h"
#include "platform/sqlite/statement.h"
#include "platform/tsql/public/catalogue.h"

namespace tarvoni::sqlite {

namespace {

// Whether what a message names is refused by an index alone, not by a key of the table: "UNIQUE constraint failed:
// index 'KONTO.NR'" or, by its columns, "UNIQUE constraint failed: KONTO.A, KONTO.B".
bool IsIndex(sqlite3* db, std::string_view message) {
  const std::string_view named = message.substr(std::min(message.find(": ") + 2, message.size()));
  if (named.starts_with("index '")) return !tsql::IsConstraintIndex(named.substr(7, named.size() - 8));
  const std::string_view table = named.substr(0, named.find('.'));
  sqlite3_stmt* query = nullptr;
  sqlite3_prepare_v2(
      db,
      "SELECT 1 FROM pragma_index_list(?1) AS list WHERE list.origin <> 'c' AND "
      "(SELECT group_concat(?1 || '.' || info.name, ', ') FROM pragma_index_info(list.name) AS info) = ?2",
      -1, &query, nullptr);
  sqlite3_bind_text(query, 1, table.data(), static_cast<int>(table.size()), SQLITE_TRANSIENT);
  sqlite3_bind_text(query, 2, named.data(), static_cast<int>(named.size()), SQLITE_TRANSIENT);
  const bool index = sqlite3_step(query) == SQLITE_DONE;
  sqlite3_finalize(query);
  return index;
}

}  // namespace

Handle::Handle(const std::string& path, int flags, std::chrono::milliseconds busy_timeout) {
  const int code = sqlite3_open_v2(path.c_str(), &db_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code != SQLITE_OK) {
    const DatabaseError error = ErrorOf(code, sqlite3_errstr(code));
    sqlite3_close_v2(db_);
    throw error;
  }
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_timeout(db_, static_cast<int>(busy_timeout.count()));
  // A misspelt name must never become a text.
  sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  RegisterFunctions(db_, functions_);
}

Handle::~Handle() {
  sqlite3_close_v2(db_);
}

void Handle::Execute(const char* sql) {
  functions_.error.reset();
  const int code = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(code);
}

std::int64_t Handle::QueryInteger(const char* sql) {
  Statement statement(*this, sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

void Handle::Fail(int code) {
  if (functions_.error) throw DatabaseError(functions_.error->number, functions_.error->message);
  const std::string message = sqlite3_errmsg(db_);
  const DatabaseError error = ErrorOf(code, message);
  if (code == SQLITE_CONSTRAINT_UNIQUE && IsIndex(db_, message))
    throw DatabaseError(kDuplicateInIndex, error.what());
  throw error;
}

std::string Quoted(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted += '"';
}

}  // namespace tarvoni::sqlite

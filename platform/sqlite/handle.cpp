#include "platform/sqlite/handle.h"

#include "platform/sqlite/error_map.h"
#include "platform/sqlite/statement.h"

namespace tarvoni::sqlite {

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
  throw ErrorOf(code, sqlite3_errmsg(db_));
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

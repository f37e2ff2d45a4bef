#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/sqlite/convert.h"
#include "platform/sqlite/handle.h"

namespace tarvoni::sqlite {

// A prepared statement. The handle outlives it.
class Statement {
 public:
  enum class Use { kOnce, kOften };

  Statement() = default;
  Statement(Handle& handle, std::string_view sql, Use use = Use::kOnce);
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  ~Statement();

  explicit operator bool() const { return statement_ != nullptr; }

  // Parameters count from 1.
  void Bind(int parameter, const StoredValue& value);
  void BindText(int parameter, std::string_view text);
  void BindInteger(int parameter, std::int64_t number);

  // True when a row is there. At the end, and on an error, which it throws, the statement is reset.
  bool Step();
  // Runs to the end.
  void Run();
  void Reset();

  // Whether SQLite has prepared it again since the last question, because tables had changed.
  bool WasPreparedAnew() { return sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_REPREPARE, 1) > 0; }

  std::int64_t Integer(int column) const { return sqlite3_column_int64(statement_, column); }
  std::string Text(int column) const;
  bool IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
  sqlite3_stmt* Raw() const { return statement_; }

 private:
  void Check(int code);

  Handle* handle_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
};

// Resets a statement that is kept, also when its rows are not read to the end.
class StatementScope {
 public:
  explicit StatementScope(Statement& statement) : statement_(&statement) {}
  StatementScope(const StatementScope&) = delete;
  StatementScope& operator=(const StatementScope&) = delete;
  ~StatementScope() { statement_->Reset(); }

 private:
  Statement* statement_;
};

}  // namespace tarvoni::sqlite

#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <string>

#include "platform/sqlite/functions.h"

namespace tarvoni::sqlite {

// An optimization that no statement may use: SQLite 3.38 to 3.40 take a text's length into their Bloom filters'
// hashes, so that texts that are equal under a collation but differ in length ('Nord' and 'nord ') miss each other
// in a join. SQLITE_BloomFilter in SQLite's own sources.
inline constexpr int kBloomFilter = 0x00080000;

// An open SQLite file that knows the functions and the collation of T-SQL. What fails in it throws
// DatabaseError.
class Handle {
 public:
  // `flags` are those of sqlite3_open_v2.
  Handle(const std::string& path, int flags, std::chrono::milliseconds busy_timeout);
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle();

  sqlite3* Raw() const { return db_; }
  FunctionContext& Functions() { return functions_; }

  // Runs statements that give no rows.
  void Execute(const char* sql);
  void Execute(const std::string& sql) { Execute(sql.c_str()); }
  // The first value of a query, 0 when it gives no row.
  std::int64_t QueryInteger(const char* sql);

  bool InTransaction() const { return sqlite3_get_autocommit(db_) == 0; }
  bool IsReadOnly() const { return sqlite3_db_readonly(db_, "main") == 1; }

  // Throws what the call that just gave `code` means; a T-SQL function that failed tells it itself.
  [[noreturn]] void Fail(int code);

 private:
  sqlite3* db_ = nullptr;
  FunctionContext functions_;
};

// A name as SQLite takes it: "NAME".
std::string Quoted(std::string_view name);

}  // namespace tarvoni::sqlite

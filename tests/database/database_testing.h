#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <string_view>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "platform/tsql/public/runtime.h"
#include "tests/support/database_testing.h"
#include "tests/support/file_bytes.h"

namespace tarvoni::sqlite {

using dbtest::BytesOf;
using dbtest::ErrorIn;
using dbtest::ErrorNumber;
using dbtest::Rows;
using dbtest::TempFolder;
using dbtest::WriteBytes;

// The file as another program without our functions sees it.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string& path) {
    sqlite3_open(path.c_str(), &db_);
    // Enough of the collation to let it write.
    const auto compare = [](void*, int a_size, const void* a, int b_size, const void* b) {
      return std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(a_size))
          .compare({static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
    };
    sqlite3_create_collation(db_, tsql::kCollation, SQLITE_UTF8, nullptr, compare);
  }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;
  ~OtherProgram() { sqlite3_close(db_); }

  int Run(const std::string& sql) { return sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr); }
  // The first value as text; "-" when there is none.
  std::string Ask(const std::string& sql) {
    std::string answer = "-";
    const auto keep = [](void* to, int, char** values, char**) {
      *static_cast<std::string*>(to) = values[0] == nullptr ? "NULL" : values[0];
      return 1;
    };
    sqlite3_exec(db_, sql.c_str(), keep, &answer, nullptr);
    return answer;
  }
  sqlite3* Raw() { return db_; }

 private:
  sqlite3* db_ = nullptr;
};

inline Database& SharedOf(const std::shared_ptr<Connection>& connection) {
  return dynamic_cast<SqliteConnection&>(*connection).Shared();
}

}  // namespace tarvoni::sqlite

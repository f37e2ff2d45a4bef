#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/tsql/runtime.h"

namespace tarvoni::sqlite {

// A folder of its own for a test, gone after it.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tarvoni-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string File(const std::string& name) const { return (path_ / name).string(); }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
  }

 private:
  std::filesystem::path path_;
};

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

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// The number of the DatabaseError that an action ends in; 0 without one.
inline int ErrorNumber(const std::function<void()>& action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return error.Number();
  }
  return 0;
}

inline std::optional<DatabaseError> ErrorIn(const std::function<void()>& action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return error;
  }
  return std::nullopt;
}

// All rows of a query: "1,Holz;2,NULL".
inline std::string Rows(Connection& connection, std::string_view query) {
  Recordset rows = connection.Open(query);
  std::string text;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    if (!text.empty()) text += ';';
    for (int i = 0; i < rows.Fields().Count(); ++i) {
      text += (i == 0 ? "" : ",") + ToDisplayText(rows.Fields()[i].Value());
    }
  }
  return text;
}

inline Database& SharedOf(const std::shared_ptr<Connection>& connection) {
  return dynamic_cast<SqliteConnection&>(*connection).Shared();
}

}  // namespace tarvoni::sqlite

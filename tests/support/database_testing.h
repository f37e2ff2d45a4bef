#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "src/context/data/database.h"
#include "tests/support/sql.h"

// What tests of every backend need.
namespace tarvoni::dbtest {

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

inline std::optional<DatabaseError> ErrorIn(const std::function<void()>& action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return error;
  }
  return std::nullopt;
}

// The number of the DatabaseError that an action ends in; 0 without one.
inline int ErrorNumber(const std::function<void()>& action) {
  const auto error = ErrorIn(action);
  return error ? error->Number() : 0;
}

inline void ExpectField(const Recordset& rows, std::string_view name, FieldType type, int size,
                        const Value& value) {
  const Field field = rows.Fields()[name];
  EXPECT_EQ(field.Type(), type) << name;
  EXPECT_EQ(field.DefinedSize(), size) << name;
  EXPECT_EQ(field.Value(), value) << name;
}

// All rows of a query: "1,Holz;2,NULL".
inline std::string Rows(Connection& connection, std::string_view query) {
  std::string text;
  for (Recordset rows = connection.Open(Sql(query)); !rows.EndOfFile(); rows.MoveNext()) {
    if (!text.empty()) text += ';';
    for (int i = 0; i < rows.Fields().Count(); ++i)
      text += (i == 0 ? "" : ",") + ToDisplayText(rows.Fields()[i].Value());
  }
  return text;
}

}  // namespace tarvoni::dbtest

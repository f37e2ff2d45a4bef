#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <array>
#include <charconv>
#include <string>

#include "platform/sqlite/exact.h"
#include "platform/sqlite/functions.h"
#include "src/context/data/database_error.h"
#include "src/context/values/decimal.h"

namespace tarvoni::sqlite {

// A database in memory with nothing but the functions and the collation.
class FunctionDatabase {
 public:
  FunctionDatabase() {
    sqlite3_open(":memory:", &db_);
    RegisterFunctions(db_, context);
  }
  FunctionDatabase(const FunctionDatabase&) = delete;
  FunctionDatabase& operator=(const FunctionDatabase&) = delete;
  ~FunctionDatabase() { sqlite3_close(db_); }

  sqlite3* Raw() const { return db_; }

  void Run(const std::string& sql) {
    ASSERT_EQ(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db_);
  }

  // The values of a query's first row, joined by blanks: NULL, 5, 2.5e0 (a float), 'text', wide 5 (an exact value
  // beyond 64 bits); or "error 8115".
  std::string Ask(const std::string& sql) {
    context.error.reset();
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr);
    std::string answer = sqlite3_step(statement) == SQLITE_ROW ? Row(statement) : ErrorText();
    sqlite3_finalize(statement);
    return answer;
  }
  std::string Value(const std::string& expression) { return Ask("SELECT " + expression); }

  FunctionContext context;

 private:
  std::string ErrorText() {
    return context.error ? "error " + std::to_string(context.error->number) : sqlite3_errmsg(db_);
  }

  static std::string Row(sqlite3_stmt* statement) {
    std::string row;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) row += (i > 0 ? " " : "") + Cell(statement, i);
    return row;
  }

  static std::string Cell(sqlite3_stmt* statement, int column) {
    const auto text = [=] { return reinterpret_cast<const char*>(sqlite3_column_text(statement, column)); };
    switch (sqlite3_column_type(statement, column)) {
      case SQLITE_NULL:
        return "NULL";
      case SQLITE_INTEGER:
        return text();
      case SQLITE_FLOAT:
        return Float(sqlite3_column_double(statement, column));
      case SQLITE_TEXT:
        return "'" + std::string(text()) + "'";
      default:
        return "wide " + Decimal(DecodeWide(sqlite3_column_blob(statement, column)), 0).ToString();
    }
  }

  static std::string Float(double value) {
    std::array<char, 64> buffer;
    const auto end = std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::scientific).ptr;
    const std::string text(buffer.begin(), end);
    const auto exponent = text.find('e');
    return text.substr(0, exponent + 1) + std::to_string(std::stoi(text.substr(exponent + 1)));
  }

  sqlite3* db_ = nullptr;
};

struct Case {
  std::string expression;
  std::string expected;
};

inline void Check(FunctionDatabase& database, std::initializer_list<Case> cases) {
  for (const auto& [expression, expected] : cases) {
    EXPECT_EQ(database.Value(expression), expected) << expression;
  }
}

// The number of the DatabaseError that an action throws; 0 without one.
template <typename Action>
int NumberOf(Action action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace tarvoni::sqlite

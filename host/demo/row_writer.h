#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "src/context/data/database.h"

namespace tarvoni::demo {

// Appends a value as a T-SQL literal.
void AppendLiteral(std::string& sql, long long number);
void AppendLiteral(std::string& sql, bool flag);
void AppendLiteral(std::string& sql, const Decimal& number);
void AppendLiteral(std::string& sql, const DateTime& day);
void AppendLiteral(std::string& sql, std::string_view text);
void AppendLiteral(std::string& sql, Null);
inline void AppendLiteral(std::string& sql, int number) {
  AppendLiteral(sql, static_cast<long long>(number));
}
inline void AppendLiteral(std::string& sql, const char* text) {
  AppendLiteral(sql, std::string_view(text));
}
inline void AppendLiteral(std::string& sql, const std::string& text) {
  AppendLiteral(sql, std::string_view(text));
}
template <class T>
void AppendLiteral(std::string& sql, const std::optional<T>& value) {
  if (value)
    AppendLiteral(sql, *value);
  else
    AppendLiteral(sql, Null{});
}

// An id, or NULL for 0.
inline std::optional<int> OrNull(int id) {
  return id == 0 ? std::nullopt : std::optional(id);
}

template <class T>
bool IsNullCell(const T&) {
  return false;
}
inline bool IsNullCell(Null) {
  return true;
}
template <class T>
bool IsNullCell(const std::optional<T>& value) {
  return !value;
}

// Gathers rows of one table and inserts many with one statement. Rows with their NULLs in the same columns go
// together: statements that differ in nothing but literals share a plan.
class RowWriter {
 public:
  enum class Keys { kFromDatabase, kGiven };  // whether the rows bring the values of the identity column

  RowWriter(Connection& connection, std::string_view table, std::string_view columns,
            Keys keys = Keys::kFromDatabase);
  RowWriter(const RowWriter&) = delete;
  RowWriter& operator=(const RowWriter&) = delete;
  ~RowWriter();

  // The cells of a row. Those of one column are of one type in all rows.
  template <class... Cells>
  void Add(const Cells&... cells) {
    std::uint64_t nulls = 0;
    ((nulls = nulls << 1U | (IsNullCell(cells) ? 1U : 0U)), ...);
    Rows& rows = rows_[nulls];
    rows.sql += rows.cells == 0 ? "(" : ",\n(";
    bool first = true;
    ((rows.sql += std::exchange(first, false) ? "" : ",", AppendLiteral(rows.sql, cells)), ...);
    rows.sql += ')';
    rows.cells += static_cast<int>(sizeof...(Cells));
    if (rows.cells >= kCellsAtOnce) Write(rows);
  }

  // Writes what is left; must be called before the writer goes.
  void Finish();

 private:
  static constexpr int kCellsAtOnce = 160;  // more cost the embedded database more than they save
  struct Rows {
    std::string sql;
    int cells = 0;
  };
  void Write(Rows& rows);

  Connection& connection_;
  std::string head_;
  std::string tail_;
  std::map<std::uint64_t, Rows> rows_;  // by the columns that are NULL
};

}  // namespace tarvoni::demo

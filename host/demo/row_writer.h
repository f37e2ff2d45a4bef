#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/context/database.h"

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

// Gathers rows of one table and inserts many with one statement.
class RowWriter {
 public:
  enum class Keys { kFromDatabase, kGiven };  // whether the rows bring the values of the identity column

  RowWriter(Connection& connection, std::string_view table, std::string_view columns,
            Keys keys = Keys::kFromDatabase);
  RowWriter(const RowWriter&) = delete;
  RowWriter& operator=(const RowWriter&) = delete;
  ~RowWriter();

  template <class... Values>
  void Add(const Values&... values) {
    sql_ += rows_ == 0 ? "(" : ",\n(";
    std::size_t place = 0;
    ((sql_ += place++ == 0 ? "" : ",", AppendLiteral(sql_, values)), ...);
    sql_ += ')';
    if (++rows_ == kRowsAtOnce) Finish();
  }

  // Writes what is left; must be called before the writer goes.
  void Finish();

 private:
  static constexpr int kRowsAtOnce = 200;  // a server takes at most 1000

  Connection& connection_;
  std::string head_;
  std::string tail_;
  std::string sql_;
  int rows_ = 0;
};

}  // namespace tarvoni::demo

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "src/context/data/sql_pattern.h"

namespace tarvoni {

// Text that a database may be sent, a statement or a piece of one. It is a literal of this program, or made of
// literals and checked values by the functions of statement.h; a text made at run time does not become one.
class SqlText {
 public:
  SqlText() = default;
  // A literal with its quotes and parentheses closed; a line break before the first line is left out.
  template <std::size_t N>
  consteval SqlText(const char (&literal)[N]) : literal_(detail::CheckedLiteral({literal, N - 1})) {}

  // The one door for whole statements that come from outside of the code: the command line, scripts, files of
  // the schema and tests. Nobody else calls it; tools/check-house sees to that.
  static SqlText Verbatim(std::string text) { return SqlText(std::move(text)); }

  std::string_view Text() const { return made_ ? std::string_view(*made_) : literal_; }
  bool Empty() const { return Text().empty(); }

 private:
  explicit SqlText(std::string made) : made_(std::move(made)) {}
  friend class SqlWriter;

  std::string_view literal_;
  std::optional<std::string> made_;
};

// A text that stands between quotes: "WHERE NUMBER = '{}'". One with a quote in it fails as an unclosed
// quotation mark would (DatabaseError 105).
class Quoted {
 public:
  explicit Quoted(std::string_view text);
  std::string_view Text() const { return text_; }

 private:
  std::string text_;
};

// Digits or nothing, behind a literal 0: "WHERE ID = 0{}". Anything else is a syntax error (102).
class Digits {
 public:
  explicit Digits(std::string_view text);
  std::string_view Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace tarvoni

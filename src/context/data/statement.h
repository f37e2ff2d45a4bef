#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "src/context/values/date_time.h"
#include "src/context/values/decimal.h"

// The only door for values into statements. What a user typed becomes a literal or an error, never part of
// the command: a text with a single quote fails as an unclosed quotation mark (DatabaseError 105), a text
// that is no number as a syntax error (102), and nothing is sent.
namespace tarvoni {

// A piece of a statement. Made by the functions below only, so that a bare string does not compile as a
// value.
class SqlText {
 public:
  const std::string& Text() const { return text_; }

 private:
  explicit SqlText(std::string text) : text_(std::move(text)) {}
  std::string text_;

  friend SqlText Number(std::int64_t);
  friend SqlText Number(double);
  friend SqlText Number(const Decimal&);
  friend SqlText Number(std::string_view);
  friend SqlText NumberOrNull(std::string_view);
  friend SqlText TextOrNull(std::string_view);
  friend SqlText Typed(std::string_view);
  friend SqlText Id(std::int64_t);
  friend SqlText Id(std::string_view);
  friend SqlText IdOrNull(std::int64_t);
  friend SqlText IdOrNull(std::string_view);
  friend SqlText Digits(std::string_view);
  friend SqlText Flag(bool);
  friend SqlText DateOrNull(const std::optional<DateTime>&, std::string_view);
  friend SqlText Fragment(std::string);
};

// A numeric literal with a point, shortest form.
SqlText Number(std::int64_t number);
SqlText Number(double number);
SqlText Number(const Decimal& number);
// A number typed in the current locale; "" is an error here and NULL in NumberOrNull. Blanks around it are
// dropped.
SqlText Number(std::string_view typed);
SqlText NumberOrNull(std::string_view typed);
// '…', or NULL for "".
SqlText TextOrNull(std::string_view text);
// The text as it stands, for a pattern that holds the quotes: "WHERE NUMBER = '{}'".
SqlText Typed(std::string_view text);
// A key: digits. "" is an error in Id, NULL in IdOrNull, as is 0 as a number there.
SqlText Id(std::int64_t id);
SqlText Id(std::string_view tag);
SqlText IdOrNull(std::int64_t id);
SqlText IdOrNull(std::string_view tag);
// Digits or nothing, for a pattern with a literal 0 before it: "WHERE ID = 0{}".
SqlText Digits(std::string_view text);
// 1 or 0.
SqlText Flag(bool flag);
// A quoted literal in the context record's date format, or NULL.
SqlText DateOrNull(const std::optional<DateTime>& date, std::string_view sql_date_format);
// Text made by this program: names of tables and columns, other statements.
SqlText Fragment(std::string text);

namespace detail {

constexpr std::size_t CountPlaces(std::string_view pattern) {
  std::size_t places = 0;
  for (std::size_t at = pattern.find("{}"); at != std::string_view::npos; at = pattern.find("{}", at + 2))
    ++places;
  return places;
}

template <typename... Values>
class Pattern {
 public:
  template <std::size_t N>
  consteval Pattern(const char (&text)[N]) : text_(text, N - 1) {
    if (CountPlaces(text_) != sizeof...(Values)) throw "the pattern has not as many {} as there are values";
  }
  std::string_view Text() const { return text_; }

 private:
  std::string_view text_;
};

std::string Fill(std::string_view pattern, std::initializer_list<std::string_view> values);

}  // namespace detail

// The pattern with each {} replaced by a value, in order. The pattern is a literal.
template <std::same_as<SqlText>... Values>
std::string Compose(std::type_identity_t<detail::Pattern<Values...>> pattern, const Values&... values) {
  return detail::Fill(pattern.Text(), {std::string_view(values.Text())...});
}

}  // namespace tarvoni

#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"
#include "src/context/values/decimal.h"

// The only door for values into statements. What a user typed becomes a literal or an error, never part of
// the command: a text with a single quote fails as an unclosed quotation mark (DatabaseError 105), a text
// that is no number as a syntax error (102), and nothing is sent.
namespace tarvoni {

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
// A key: digits. "" is an error in Id, NULL in IdOrNull, as is 0 as a number there.
SqlText Id(std::int64_t id);
SqlText Id(std::string_view tag);
SqlText IdOrNull(std::int64_t id);
SqlText IdOrNull(std::string_view tag);
// 1 or 0.
SqlText Flag(bool flag);
// A quoted literal in the context record's date format, or NULL.
SqlText DateOrNull(const std::optional<DateTime>& date, std::string_view sql_date_format);
// The name of a table or column, with a point if it is qualified; a syntax error for anything but letters,
// digits and underscores.
SqlText Name(std::string_view name);
// What stands between the parentheses of an IN: "1,2,3" and "'a','b'". Nothing for no values, which no IN
// takes. A quote in a text is an error.
SqlText IdList(std::span<const std::int32_t> ids);
SqlText TextList(std::span<const std::string> texts);

namespace detail {

template <typename Value>
inline constexpr Place kPlaceOf = std::same_as<Value, Quoted>   ? Place::kQuoted
                                  : std::same_as<Value, Digits> ? Place::kDigits
                                                                : Place::kBare;

template <typename Value>
concept Spliced = std::same_as<Value, SqlText> || std::same_as<Value, Quoted> || std::same_as<Value, Digits>;

template <typename... Values>
class Pattern {
 public:
  template <std::size_t N>
  consteval Pattern(const char (&text)[N]) : text_(WithoutFirstLineBreak({text, N - 1})) {
    constexpr std::array<Place, sizeof...(Values)> places = {kPlaceOf<Values>...};
    RequireNoFault(PatternFault(text_, places));
  }
  std::string_view Text() const { return text_; }

 private:
  std::string_view text_;
};

SqlText Fill(std::string_view pattern, std::initializer_list<std::string_view> values);

}  // namespace detail

// The pattern with each {} replaced by a value, in order. The pattern is a literal, and the compiler checks
// that each value suits its place: a Quoted between quotes, Digits behind a literal 0, all else bare.
template <detail::Spliced... Values>
SqlText Compose(std::type_identity_t<detail::Pattern<Values...>> pattern, const Values&... values) {
  return detail::Fill(pattern.Text(), {values.Text()...});
}

}  // namespace tarvoni

#include "src/context/data/statement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "src/context/data/database_error.h"
#include "src/context/services/environment.h"
#include "src/context/values/date_text.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr int kSyntaxError = 102;
constexpr int kUnclosedQuote = 105;

[[noreturn]] void RefuseSyntax(std::string_view text) {
  throw DatabaseError(kSyntaxError, "Incorrect syntax near '" + std::string(text) + "'.");
}

std::string RequireNoQuote(std::string_view text) {
  const auto quote = text.find_first_of(std::string_view("'\0", 2));
  if (quote == std::string_view::npos) return std::string(text);
  throw DatabaseError(kUnclosedQuote, "Unclosed quotation mark after the character string '" +
                                          std::string(text.substr(quote + 1)) + "'.");
}

std::string RequireDigits(std::string_view text) {
  const bool digits = std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
  if (!digits) RefuseSyntax(text);
  return std::string(text);
}

}  // namespace

SqlText Number(std::int64_t number) {
  return SqlText(std::to_string(number));
}

SqlText Number(double number) {
  if (!std::isfinite(number)) RefuseSyntax("?");
  std::array<char, 400> buffer;
  const auto [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
  return SqlText(std::string(buffer.data(), end));
}

SqlText Number(const Decimal& number) {
  return SqlText(number.ToShortString());
}

SqlText Number(std::string_view typed) {
  const auto number = ParseNumber(typed, CurrentLocale());
  if (!number) RefuseSyntax(typed);
  return SqlText(number->ToString());
}

SqlText NumberOrNull(std::string_view typed) {
  return utf8::Trim(typed).empty() ? SqlText("NULL") : Number(typed);
}

SqlText TextOrNull(std::string_view text) {
  return SqlText(text.empty() ? "NULL" : "'" + RequireNoQuote(text) + "'");
}

SqlText Typed(std::string_view text) {
  return SqlText(RequireNoQuote(text));
}

SqlText Id(std::int64_t id) {
  return Number(id);
}

SqlText Id(std::string_view tag) {
  if (tag.empty()) RefuseSyntax(tag);
  return SqlText(RequireDigits(tag));
}

SqlText IdOrNull(std::int64_t id) {
  return id == 0 ? SqlText("NULL") : Number(id);
}
SqlText IdOrNull(std::string_view tag) {
  return tag.empty() ? SqlText("NULL") : Id(tag);
}
SqlText Digits(std::string_view text) {
  return SqlText(RequireDigits(text));
}
SqlText Flag(bool flag) {
  return SqlText(flag ? "1" : "0");
}

SqlText DateOrNull(const std::optional<DateTime>& date, std::string_view sql_date_format) {
  if (!date) return SqlText("NULL");
  const std::string literal = FormatDate(*date, sql_date_format, Locale::English());
  return SqlText(literal.find('\'') != std::string::npos ? literal : "'" + literal + "'");
}

SqlText Fragment(std::string text) {
  return SqlText(std::move(text));
}

std::string detail::Fill(std::string_view pattern, std::initializer_list<std::string_view> values) {
  std::string text;
  for (const std::string_view value : values) {
    const auto place = pattern.find("{}");
    text.append(pattern.substr(0, place)).append(value);
    pattern.remove_prefix(place + 2);
  }
  return text.append(pattern);
}

}  // namespace tarvoni

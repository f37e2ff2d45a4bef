#include "src/context/data/statement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "src/context/data/bracketed_name.h"
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

bool IsName(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, detail::IsWordCharacter);
}

}  // namespace

// Makes texts of what was checked.
class SqlWriter {
 public:
  static SqlText Made(std::string text) { return SqlText(std::move(text)); }
};

namespace {

SqlText Made(std::string text) {
  return SqlWriter::Made(std::move(text));
}

// The items with commas between them.
template <typename Items, typename Write>
SqlText List(const Items& items, Write write) {
  std::string list;
  for (const auto& item : items) {
    if (!list.empty()) list += ',';
    list += write(item);
  }
  return Made(std::move(list));
}

}  // namespace

Quoted::Quoted(std::string_view text) : text_(RequireNoQuote(text)) {}

Digits::Digits(std::string_view text) : text_(RequireDigits(text)) {}

SqlText Number(std::int64_t number) {
  return Made(std::to_string(number));
}

SqlText Number(double number) {
  if (!std::isfinite(number)) RefuseSyntax("?");
  std::array<char, 400> buffer;
  const auto [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
  return Made(std::string(buffer.data(), end));
}

SqlText Number(const Decimal& number) {
  return Made(number.ToShortString());
}

SqlText Number(std::string_view typed) {
  const auto number = ParseNumber(typed, CurrentLocale());
  if (!number) RefuseSyntax(typed);
  return Made(number->ToString());
}

SqlText NumberOrNull(std::string_view typed) {
  return utf8::Trim(typed).empty() ? SqlText("NULL") : Number(typed);
}

SqlText TextOrNull(std::string_view text) {
  return Made(text.empty() ? "NULL" : "'" + RequireNoQuote(text) + "'");
}

SqlText Id(std::int64_t id) {
  return Number(id);
}

SqlText Id(std::string_view tag) {
  if (tag.empty()) RefuseSyntax(tag);
  return Made(RequireDigits(tag));
}

SqlText IdOrNull(std::int64_t id) {
  return id == 0 ? SqlText("NULL") : Number(id);
}
SqlText IdOrNull(std::string_view tag) {
  return tag.empty() ? SqlText("NULL") : Id(tag);
}
SqlText Flag(bool flag) {
  return flag ? SqlText("1") : SqlText("0");
}

SqlText DateOrNull(const std::optional<DateTime>& date, std::string_view sql_date_format) {
  if (!date) return "NULL";
  const std::string literal = FormatDate(*date, sql_date_format, Locale::English());
  return Made(literal.find('\'') != std::string::npos ? literal : "'" + literal + "'");
}

SqlText Name(std::string_view name) {
  if (!IsName(name)) RefuseSyntax(name);
  return Made(std::string(name));
}

SqlText BracketedName(std::string_view name) {
  std::string text = "[";
  for (const char c : name) text.append(c == ']' ? 2 : 1, c);
  return Made(text + "]");
}

SqlText IdList(std::span<const std::int32_t> ids) {
  return List(ids, [](std::int32_t id) { return std::to_string(id); });
}

SqlText TextList(std::span<const std::string> texts) {
  return List(texts, [](const std::string& text) { return "'" + RequireNoQuote(text) + "'"; });
}

SqlText detail::Fill(std::string_view pattern, std::initializer_list<std::string_view> values) {
  std::string text;
  for (const std::string_view value : values) {
    const auto place = pattern.find("{}");
    text.append(pattern.substr(0, place)).append(value);
    pattern.remove_prefix(place + 2);
  }
  return Made(std::move(text.append(pattern)));
}

}  // namespace tarvoni

#include "suite/code_list.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "src/context/values/utf8.h"

namespace tarvoni::suite {
namespace {

constexpr std::size_t kLongestCode = 300;  // bytes; longer texts can be no code
constexpr SqlText kNothing = "1 = 0";

bool IsDigits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// A text that is no number equals none; compared by the database it would be a failed conversion.
SqlText NumberIs(const SqlText& column, std::string_view typed) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (!IsDigits(typed) || error != std::errc()) return kNothing;
  return Compose("{} = {}", column, Id(number));
}

SqlText TextIs(const SqlText& column, std::size_t width, std::string_view typed) {
  if (!IsDigits(typed) || typed.size() >= width) return Compose("{} = '{}'", column, Quoted(typed));
  const std::string zeros(width - typed.size(), '0');
  return Compose("{} IN ('{}','{}')", column, Quoted(typed), Quoted(zeros + std::string(typed)));
}

// "a/b" is "a/ b".
std::string NormalPath(std::string_view path) {
  std::string normal;
  for (std::size_t slash = 0; slash != std::string_view::npos;) {
    slash = path.find('/');
    normal.append(normal.empty() ? "" : "/ ").append(utf8::Trim(path.substr(0, slash)));
    if (slash != std::string_view::npos) path.remove_prefix(slash + 1);
  }
  return normal;
}

// The path alone, or with the location's name behind a colon.
SqlText PathIs(const SqlText& column, std::string_view typed) {
  return Compose("{} IN ('{}','{}')", column, Quoted(NormalPath(typed)),
                 Quoted(NormalPath(typed.substr(0, typed.rfind(':')))));
}

SqlText CodeIs(const CodeList& list, std::string_view typed) {
  (void)Quoted(typed);  // a quote is an error, also where the text is never sent
  if (typed.empty() || typed.size() > kLongestCode) return kNothing;
  const SqlText& column = list.code;
  if (list.kind == CodeKind::kNumber) return NumberIs(column, typed);
  if (list.kind == CodeKind::kPath) return PathIs(column, typed);
  return TextIs(column, list.width, typed);
}

SqlText RowsOf(const CodeList& list, const StatementValues& given) {
  return list.rows ? list.rows(given) : list.fixed_rows;
}

}  // namespace

bool CodeList::IsKey(std::string_view key, std::string_view suffix) const {
  return !suffix.empty() && key.starts_with(stem) && key.substr(stem.size()) == suffix;
}

SqlText CodeList::Offer(const NamedValues& given) const {
  const StatementValues taken(given, values, takes_condition);
  return Compose(R"(
SELECT {} AS {},{} AS NAME{}
FROM {}{}
ORDER BY 1)",
                 code, code_heading, name, further, RowsOf(*this, taken), taken.Condition());
}

SqlText CodeList::Check(const NamedValues& given) const {
  const StatementValues taken(given, values, takes_condition);
  return Compose(R"(
SELECT {} AS ID,{} AS {},{} AS {}
FROM {}{} AND {})",
                 id, code, code_heading, name, checked_name, RowsOf(*this, taken), taken.Condition(),
                 CodeIs(*this, taken.TypedCode()));
}

}  // namespace tarvoni::suite

#include "suite/code_list.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "src/context/values/utf8.h"

namespace tarvoni::suite {
namespace {

constexpr std::size_t kLongestCode = 300;  // bytes; longer texts can be no code
constexpr std::string_view kNothing = "1 = 0";

SqlText Part(std::string_view text) {
  return Fragment(std::string(text));
}

bool IsDigits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// A text that is no number equals none; compared by the database it would be a failed conversion.
std::string NumberIs(const SqlText& column, std::string_view typed) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (!IsDigits(typed) || error != std::errc()) return std::string(kNothing);
  return Compose("{} = {}", column, Id(number));
}

std::string TextIs(const SqlText& column, std::size_t width, std::string_view typed) {
  if (!IsDigits(typed) || typed.size() >= width) return Compose("{} = '{}'", column, Typed(typed));
  const std::string zeros(width - typed.size(), '0');
  return Compose("{} IN ('{}','{}')", column, Typed(typed), Typed(zeros + std::string(typed)));
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
std::string PathIs(const SqlText& column, std::string_view typed) {
  return Compose("{} IN ('{}','{}')", column, Typed(NormalPath(typed)),
                 Typed(NormalPath(typed.substr(0, typed.rfind(':')))));
}

std::string CodeIs(const CodeList& list, std::string_view typed) {
  (void)Typed(typed);  // a quote is an error, also where the text is never sent
  if (typed.empty() || typed.size() > kLongestCode) return std::string(kNothing);
  const SqlText column = Part(list.code);
  if (list.kind == CodeKind::kNumber) return NumberIs(column, typed);
  if (list.kind == CodeKind::kPath) return PathIs(column, typed);
  return TextIs(column, list.width, typed);
}

SqlText RowsOf(const CodeList& list, const StatementValues& given) {
  return list.rows ? Fragment(list.rows(given)) : Part(list.fixed_rows);
}

}  // namespace

bool CodeList::IsKey(std::string_view key, std::string_view suffix) const {
  return !suffix.empty() && key.starts_with(stem) && key.substr(stem.size()) == suffix;
}

std::string CodeList::Offer(StatementValues given) const {
  if (!condition.empty()) given.TakeCondition(condition, values.least);
  given.Require(values);
  return Compose("SELECT {} AS {},{} AS NAME{} FROM {}{}{} ORDER BY 1", Part(code), Part(code_heading),
                 Part(name), Part(further), RowsOf(*this, given), given.Condition(),
                 Part(given.Fits() ? "" : " AND 1 = 0"));
}

std::string CodeList::Check(StatementValues given) const {
  if (!condition.empty()) given.TakeCondition(condition, values.least + 1);
  given.TakeTyped(typed_first);
  given.Require(values);
  return Compose("SELECT {} AS ID,{} AS {},{} AS {} FROM {}{} AND {}", Part(id), Part(code),
                 Part(code_heading), Part(name), Part(checked_name), RowsOf(*this, given), given.Condition(),
                 given.Fits() ? Fragment(CodeIs(*this, given.TypedCode())) : Part(kNothing));
}

}  // namespace tarvoni::suite

#include "suite/statement_values.h"

#include <algorithm>
#include <charconv>

#include "src/context/data/database_error.h"
#include "src/context/values/call_error.h"
#include "src/context/values/utf8.h"

namespace tarvoni::suite {
namespace {

constexpr std::string_view kAnd = " AND ";
constexpr int kSyntaxError = 102;

// One expression and no more: all parentheses opened and closed in it, and nothing that hides the end of one.
bool StandsAlone(std::string_view condition) {
  int depth = 0;
  bool quoted = false;
  for (std::size_t i = 0; i < condition.size(); ++i) {
    const char c = condition[i];
    if (c == '\'') quoted = !quoted;
    if (quoted) continue;
    const std::string_view two = condition.substr(i, 2);
    if (two == "--" || two == "/*" || c == '[' || c == '"' || c == '\0') return false;
    depth += c == '(' ? 1 : c == ')' ? -1 : 0;
    if (depth < 0) return false;
  }
  return depth == 0 && !quoted;
}

}  // namespace

StatementValues::StatementValues(std::string_view parameter) {
  for (std::size_t tab = 0; tab != std::string_view::npos;) {
    tab = parameter.find('\t');
    values_.emplace_back(parameter.substr(0, tab));
    if (tab != std::string_view::npos) parameter.remove_prefix(tab + 1);
  }
}

void StatementValues::TakeCondition(std::string_view beginning, std::size_t least) {
  const auto begins = [&](const std::string& value) { return value.starts_with(beginning); };
  const auto condition = std::ranges::find_if(values_, begins);
  if (condition == values_.end() || values_.size() <= least) return;
  condition_ = std::move(*condition);
  const auto rest = values_.erase(condition);
  const auto second = std::find_if(rest, values_.end(), begins);
  if (second == values_.end()) return;
  second->clear();
  condition_.clear();
  fits_ = false;
}

void StatementValues::TakeTyped(bool stands_first) {
  if (values_.empty()) return;
  const auto typed = stands_first ? values_.begin() : values_.end() - 1;
  typed_ = utf8::Trim(*typed);
  typed_first_ = stands_first;
  values_.erase(typed);
}

void StatementValues::Require(ValueCount count) {
  if (values_.size() < count.least) throw CallError("Der Anweisung fehlen Werte.");
  while (values_.size() > count.most) {
    const auto surplus = typed_first_ ? values_.begin() : values_.end() - 1;
    fits_ = fits_ && surplus->empty();
    values_.erase(surplus);
  }
}

const std::string& StatementValues::At(std::size_t index) const {
  static const std::string kNone;
  return index < values_.size() ? values_[index] : kNone;
}

SqlText StatementValues::Key(std::size_t index) const {
  const std::string& value = At(index);
  std::int64_t key = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), key);
  const bool whole = error == std::errc() && end == value.data() + value.size();
  return value.empty() || whole ? Id(key) : Id(value);
}

SqlText StatementValues::Quoted(std::size_t index) const {
  return Typed(At(index));
}

SqlText StatementValues::Condition() const {
  if (condition_.empty()) return Fragment("");
  if (!StandsAlone(condition_))
    throw DatabaseError(kSyntaxError, "Incorrect syntax near '" + condition_ + "'.");
  const std::string_view text = condition_;
  const std::string expression(text.starts_with(kAnd) ? text.substr(kAnd.size()) : text);
  return Fragment(" AND (" + expression + ")");
}

}  // namespace tarvoni::suite

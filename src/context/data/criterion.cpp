#include "src/context/data/criterion.h"

#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "src/context/data/database_error.h"
#include "src/context/values/text.h"

namespace tarvoni {
namespace {

using Comparison = Criterion::Comparison;

std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

[[noreturn]] void Refuse(std::string_view criterion) {
  throw DatabaseError(kErrorInvalidArgument, "Das Suchkriterium ist ungültig: " + std::string(criterion));
}

// The number of a cell or a literal as a decimal; nothing if it is a float or no number.
std::optional<Decimal> AsDecimal(const Value& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return Decimal(*flag, 0);
  if (const auto* number = std::get_if<std::int64_t>(&value)) return Decimal(*number, 0);
  if (const auto* number = std::get_if<Decimal>(&value)) return *number;
  return std::nullopt;
}

template <typename T>
int Order(const T& a, const T& b) {
  return a < b ? -1 : b < a ? 1 : 0;
}

int CompareNumbers(const Value& a, const Value& b) {
  const auto x = AsDecimal(a), y = AsDecimal(b);
  if (x && y) return Order(*x, *y);
  return Order(x ? x->ToDouble() : std::get<double>(a), y ? y->ToDouble() : std::get<double>(b));
}

bool IsNumber(const Value& value) {
  return AsDecimal(value) || std::holds_alternative<double>(value);
}

// The number that a text spells; the text itself if it is none.
Value ReadNumber(const std::string& text) {
  if (const auto number = Decimal::Parse(text)) return *number;
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && end == text.data() + text.size()) return number;
  return text;
}

// A literal in the kind of the cell it is compared with.
Value Adapted(const Value& literal, const Value& cell) {
  const auto* text = std::get_if<std::string>(&literal);
  if (!text) return std::holds_alternative<std::string>(cell) ? Value(ToDisplayText(literal)) : literal;
  if (IsNumber(cell)) return ReadNumber(*text);
  if (!std::holds_alternative<DateTime>(cell)) return literal;
  if (const auto date = DateTime::FromIso(*text)) return *date;
  return literal;
}

std::optional<std::string> Unquoted(std::string_view text) {
  if (text.size() < 2 || !text.ends_with('\'')) return std::nullopt;
  std::string content;
  for (std::size_t i = 1; i + 1 < text.size(); ++i) {
    content += text[i];
    if (text[i] != '\'') continue;
    if (i + 2 >= text.size() || text[++i] != '\'') return std::nullopt;
  }
  return content;
}

std::optional<Value> ReadLiteral(std::string_view text) {
  if (CompareText(text, "NULL") == 0) return Value(Null{});
  if (text.starts_with('\'')) {
    if (auto content = Unquoted(text)) return Value(std::move(*content));
    return std::nullopt;
  }
  Value number = ReadNumber(std::string(text));
  if (!IsNumber(number)) return std::nullopt;
  return number;
}

// Takes the comparison that `text` begins with.
std::optional<Comparison> TakeComparison(std::string_view& text) {
  static constexpr std::array<std::pair<std::string_view, Comparison>, 6> kComparisons = {{
      {"<>", Comparison::kUnequal},
      {"<=", Comparison::kLessOrEqual},
      {">=", Comparison::kGreaterOrEqual},
      {"=", Comparison::kEqual},
      {"<", Comparison::kLess},
      {">", Comparison::kGreater},
  }};
  for (const auto& [sign, comparison] : kComparisons) {
    if (!text.starts_with(sign)) continue;
    text.remove_prefix(sign.size());
    return comparison;
  }
  return std::nullopt;
}

bool Holds(Comparison comparison, int order) {
  switch (comparison) {
    case Comparison::kEqual:
      return order == 0;
    case Comparison::kUnequal:
      return order != 0;
    case Comparison::kLess:
      return order < 0;
    case Comparison::kLessOrEqual:
      return order <= 0;
    case Comparison::kGreater:
      return order > 0;
    case Comparison::kGreaterOrEqual:
      return order >= 0;
  }
  return false;
}

}  // namespace

int CompareValues(const Value& a, const Value& b) {
  if (IsNull(a) || IsNull(b)) return Order(!IsNull(a), !IsNull(b));
  if (IsNumber(a) && IsNumber(b)) return CompareNumbers(a, b);
  if (a.index() != b.index()) return Order(a.index(), b.index());
  if (const auto* date = std::get_if<DateTime>(&a)) return Order(*date, std::get<DateTime>(b));
  return CompareText(std::get<std::string>(a), std::get<std::string>(b));
}

std::string_view BareName(std::string_view name) {
  name = Trimmed(name);
  return name.starts_with('[') && name.ends_with(']') ? name.substr(1, name.size() - 2) : name;
}

Criterion Criterion::Parse(std::string_view text) {
  std::string_view rest = Trimmed(text);
  const std::size_t name_end = rest.starts_with('[') ? rest.find(']') : 0;
  const std::size_t sign = rest.find_first_of("<>=", name_end);
  if (sign == std::string_view::npos || sign == 0) Refuse(text);
  Criterion criterion;
  criterion.column = BareName(rest.substr(0, sign));
  rest.remove_prefix(sign);
  criterion.comparison = TakeComparison(rest).value();
  auto value = ReadLiteral(Trimmed(rest));
  if (!value) Refuse(text);
  criterion.value = std::move(*value);
  return criterion;
}

bool Criterion::Matches(const Value& cell) const {
  if (IsNull(cell) || IsNull(value)) {
    const bool both = IsNull(cell) && IsNull(value);
    if (comparison == Comparison::kEqual) return both;
    return comparison == Comparison::kUnequal && IsNull(value) && !both;
  }
  const Value adapted = Adapted(value, cell);
  const bool comparable = adapted.index() == cell.index() || (IsNumber(adapted) && IsNumber(cell));
  return comparable && Holds(comparison, CompareValues(cell, adapted));
}

}  // namespace tarvoni

#include "suite/statement_values.h"

#include <charconv>

#include "src/context/values/call_error.h"
#include "src/context/values/utf8.h"

namespace tarvoni::suite {

StatementValues::StatementValues(const NamedValues& values, ValueCount count, bool takes_condition) {
  for (const NamedValue& value : values) {
    switch (value.What()) {
      case NamedValue::Kind::kGiven:
        given_.push_back(value.Text());
        break;
      case NamedValue::Kind::kTyped:
        typed_ = utf8::Trim(value.Text());
        break;
      case NamedValue::Kind::kCondition:
        condition_ = value.Condition();
        break;
    }
  }
  if (given_.size() < count.least) throw CallError("Der Anweisung fehlen Werte.");
  if (given_.size() > count.most) throw CallError("Die Anweisung hat zu viele Werte.");
  if (!takes_condition && !condition_.Empty()) throw CallError("Die Anweisung nimmt keine Bedingung.");
}

const std::string& StatementValues::At(std::size_t index) const {
  static const std::string kNone;
  return index < given_.size() ? given_[index] : kNone;
}

SqlText StatementValues::Key(std::size_t index) const {
  const std::string& value = At(index);
  std::int64_t key = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), key);
  const bool whole = error == std::errc() && end == value.data() + value.size();
  return value.empty() || whole ? Id(key) : Id(value);
}

Quoted StatementValues::Text(std::size_t index) const {
  return Quoted(At(index));
}

SqlText StatementValues::Condition() const {
  return condition_.Empty() ? SqlText() : Compose(" AND ({})", condition_);
}

}  // namespace tarvoni::suite

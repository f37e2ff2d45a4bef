#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// One value of a named statement. Which one the user typed is said by the caller, never read from the text.
class NamedValue {
 public:
  enum class Kind { kGiven, kTyped, kCondition };

  Kind What() const { return kind_; }
  // Of a given or a typed value.
  const std::string& Text() const { return text_; }
  const SqlText& Condition() const { return condition_; }

 private:
  NamedValue(Kind kind, std::string text, SqlText condition)
      : kind_(kind), text_(std::move(text)), condition_(std::move(condition)) {}

  Kind kind_;
  std::string text_;
  SqlText condition_;

  friend NamedValue Given(std::string_view);
  friend NamedValue TypedCode(std::string_view);
  friend NamedValue Condition(SqlText);
};

using NamedValues = std::vector<NamedValue>;

// What the program knows: a key, a forest year, the number of a cost centre.
inline NamedValue Given(std::string_view text) {
  return {NamedValue::Kind::kGiven, std::string(text), {}};
}
inline NamedValue Given(std::int64_t key) {
  return Given(std::to_string(key));
}
// The code that is checked.
inline NamedValue TypedCode(std::string_view text) {
  return {NamedValue::Kind::kTyped, std::string(text), {}};
}
// Narrows the rows: "PRODUKT_ID = 5".
inline NamedValue Condition(SqlText condition) {
  return {NamedValue::Kind::kCondition, {}, std::move(condition)};
}

}  // namespace tarvoni

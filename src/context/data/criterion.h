#pragma once

#include <string>
#include <string_view>

#include "src/context/values/value.h"

namespace tarvoni {

// Negative, 0, positive: NULL comes first, numbers compare by value, text without regard to case.
int CompareValues(const Value& a, const Value& b);

// One comparison of a column with a value, as Recordset::Find takes it.
struct Criterion {
  enum class Comparison { kEqual, kUnequal, kLess, kLessOrEqual, kGreater, kGreaterOrEqual };

  std::string column;
  Comparison comparison = Comparison::kEqual;
  Value value;

  // Reads "COLUMN = value" (also <>, <, >, <=, >=; [COLUMN]; 'text', a number, NULL); else error 3001.
  static Criterion Parse(std::string_view text);
  // NULL matches nothing but "= NULL"; a text beside a number or a date counts as one if it reads as one.
  bool Matches(const Value& cell) const;
};

// "[NAME]" or "NAME" without brackets and the blanks around it.
std::string_view BareName(std::string_view name);

}  // namespace tarvoni

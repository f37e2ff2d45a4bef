#pragma once

#include <cstdint>
#include <string>

#include "src/context/values/number_text.h"
#include "suite/reading.h"

// What papers tell of a row.
namespace tarvoni::suite {

// A key, a count or a flag; 0 for NULL.
inline std::int32_t NumberIn(const Value& value) {
  const auto number = NumberOf(value, CurrentLocale());
  return number ? ToInt32(number->ToDouble()) : 0;
}

// "1100 Revier Ahornboden"; either may be missing.
inline std::string NumberAndName(const FieldList& row, const char* number, const char* name) {
  const std::string first = TextOf(row[number]), second = TextOf(row[name]);
  return first.empty() || second.empty() ? first + second : first + " " + second;
}

// "04.2024" of two columns; "" without a month.
inline std::string ShortMonth(const FieldList& row, const char* month, const char* year) {
  if (IsNull(row[month].Value())) return "";
  return FieldText(row[month].Value(), "00", CurrentLocale()) + "." + TextOf(row[year]);
}

}  // namespace tarvoni::suite

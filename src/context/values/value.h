#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "src/context/values/date_time.h"
#include "src/context/values/decimal.h"

namespace tarvoni {

// Data type numbers of ADO, as Field.Type gives them.
enum class FieldType : int {
  kEmpty = 0,
  kSmallInt = 2,
  kInteger = 3,
  kSingle = 4,
  kDouble = 5,
  kCurrency = 6,
  kBoolean = 11,
  kUnsignedTinyInt = 17,
  kBigInt = 20,
  kChar = 129,
  kWChar = 130,
  kNumeric = 131,
  kDbTimeStamp = 135,
  kVarChar = 200,
  kVarWChar = 202,
};

struct Null {
  friend bool operator==(Null, Null) { return true; }
};

// The value of one field: NULL, flag, whole number, floating point, exact decimal (amounts too), text in UTF-8, date.
using Value = std::variant<Null, bool, std::int64_t, double, Decimal, std::string, DateTime>;

inline bool IsNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}

// The value as scripts and the command line show it, independent of any locale: NULL as "NULL", flags 0 or 1,
// decimals without trailing zeros, floats with at most 15 significant digits, dates in ISO form.
std::string ToDisplayText(const Value& value);

}  // namespace tarvoni

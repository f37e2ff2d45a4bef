#include "platform/odbc/column_type.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "src/context/values/keywords.h"

namespace tarvoni::odbc {
namespace {

constexpr std::pair<std::string_view, FieldType> kNamed[] = {
    {"MONEY", FieldType::kCurrency},    {"SMALLMONEY", FieldType::kCurrency},
    {"DECIMAL", FieldType::kNumeric},   {"NUMERIC", FieldType::kNumeric},
    {"CHAR", FieldType::kChar},         {"NCHAR", FieldType::kWChar},
    {"NVARCHAR", FieldType::kVarWChar}, {"NTEXT", FieldType::kVarWChar},
};

}  // namespace

FieldType FieldTypeOf(SQLSMALLINT sql_type, std::string_view type_name) {
  const auto named = std::find_if(std::begin(kNamed), std::end(kNamed),
                                  [&](const auto& entry) { return EqualsKeyword(type_name, entry.first); });
  if (named != std::end(kNamed)) return named->second;
  switch (sql_type) {
    case SQL_BIT:
      return FieldType::kBoolean;
    case SQL_TINYINT:
      return FieldType::kUnsignedTinyInt;
    case SQL_SMALLINT:
      return FieldType::kSmallInt;
    case SQL_INTEGER:
      return FieldType::kInteger;
    case SQL_BIGINT:
      return FieldType::kBigInt;
    case SQL_REAL:
      return FieldType::kSingle;
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return FieldType::kDouble;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return FieldType::kNumeric;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return FieldType::kDbTimeStamp;
    case SQL_CHAR:
      return FieldType::kChar;
    case SQL_WCHAR:
      return FieldType::kWChar;
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
      return FieldType::kVarWChar;
    default:
      return FieldType::kVarChar;
  }
}

bool IsText(FieldType type) {
  return type == FieldType::kChar || type == FieldType::kWChar || type == FieldType::kVarChar ||
         type == FieldType::kVarWChar;
}

}  // namespace tarvoni::odbc

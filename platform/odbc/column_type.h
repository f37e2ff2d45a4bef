#pragma once

#include <sql.h>

#include <string_view>

#include "src/context/values/value.h"

namespace tarvoni::odbc {

// ADO's number for a result column. The type's name decides where one ODBC type stands for several: money is
// a decimal there, and SQLite's driver gives decimals as texts.
FieldType FieldTypeOf(SQLSMALLINT sql_type, std::string_view type_name);

bool IsText(FieldType type);

}  // namespace tarvoni::odbc

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/data/database.h"
#include "src/context/data/tvn_var_dll.h"

// Reading single values. Errors of the database leave every function.
namespace tarvoni {

// The context record's connection; a CallError if the host gave none.
Connection& DbOf(const TvnVar_Dll& context);

// First column of the first row; NULL if there is no row.
Value ReadValue(Connection& connection, const SqlText& statement);
// As ValueHelper reads it, rounded to a Long; 0 for NULL and for no row.
std::int32_t ReadNumber(Connection& connection, const SqlText& statement);
// As ValueHelper reads it; "" for NULL and for no row.
std::string ReadText(Connection& connection, const SqlText& statement);
bool HasRow(Connection& connection, const SqlText& statement);

std::int32_t ToLong(const Value& value);
std::string ToText(const Value& value);

}  // namespace tarvoni

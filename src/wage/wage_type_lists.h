#pragma once

#include <string_view>

#include "src/context/data/sql_text.h"

// The list of wage types that a Screen offers and the check of a typed one. `allowed` are FROM and WHERE of both.
namespace tarvoni {

SqlText WageTypesOffered(const SqlText& allowed);
SqlText WageTypeTyped(const SqlText& allowed, std::string_view typed);

}  // namespace tarvoni

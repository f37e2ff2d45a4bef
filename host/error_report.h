#pragma once

#include <string>

#include "src/context/data/database_error.h"

namespace tarvoni::host {

// Number and message, and, where the place is known, the line of the statement with a caret under it,
// unless a password stands in the statement. `lines_before`
// is how many lines of the user's text come before the statement.
std::string DescribeError(const DatabaseError& error, int lines_before = 0);

}  // namespace tarvoni::host

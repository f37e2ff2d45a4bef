#pragma once

#include <string>

#include "platform/odbc/diagnostics.h"
#include "platform/odbc/driver_traits.h"

namespace tarvoni::odbc {

// The number a T-SQL server gives for it: its own if it speaks here, else from the driver's SQLSTATE and
// words.
int ErrorNumber(const Diagnostic& diagnostic, Dialect dialect);

// Without the names in brackets that drivers and manager put in front.
std::string PlainMessage(const Diagnostic& diagnostic);

}  // namespace tarvoni::odbc

#pragma once

#include "src/context/call_error.h"
#include "src/context/tvn_var_dll.h"

namespace tarvoni::suite {

// The context record's connection; a CallError if the host gave none.
inline Connection& DatabaseOf(const TvnVar_Dll& context) {
  if (!context.dbAdo) throw CallError("Es ist keine Datenbank geöffnet.");
  return *context.dbAdo;
}

}  // namespace tarvoni::suite

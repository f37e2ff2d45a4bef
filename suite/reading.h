#pragma once

#include <string>

#include "src/context/call_error.h"
#include "src/context/environment.h"
#include "src/context/field_text.h"
#include "src/context/tvn_var_dll.h"

namespace tarvoni::suite {

// The context record's connection; a CallError if the host gave none.
inline Connection& DatabaseOf(const TvnVar_Dll& context) {
  if (!context.dbAdo) throw CallError("Es ist keine Datenbank geöffnet.");
  return *context.dbAdo;
}

// The value as a box shows it.
inline std::string TextOf(const Field& field) {
  return FieldText(field.Value(), "", CurrentLocale());
}

}  // namespace tarvoni::suite

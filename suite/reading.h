#pragma once

#include <string>

#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/environment.h"
#include "src/context/values/call_error.h"
#include "src/context/values/field_text.h"

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

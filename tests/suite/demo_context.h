#pragma once

#include <memory>

#include "src/context/data/tvn_var_dll.h"

namespace tarvoni::suite {

// A context record over a connection that outlives it.
inline TvnVar_Dll ContextOf(Connection& connection) {
  TvnVar_Dll context;
  context.dbAdo = std::shared_ptr<Connection>(std::shared_ptr<void>(), &connection);
  return context;
}

}  // namespace tarvoni::suite

#include "src/context/database.h"

#include <utility>

namespace tarvoni {

void HandlerScope::Finish() {
  if (Connection* connection = std::exchange(connection_, nullptr)) connection->EndHandler();
}

HandlerScope::~HandlerScope() {
  try {
    Finish();
  } catch (...) {
    // The error that unwinds is the one the user is to see.
  }
}

}  // namespace tarvoni

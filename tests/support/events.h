#pragma once

#include "src/context/controls/event.h"

namespace tarvoni::test {

// Puts a listener in the place of those that an event has.
template <typename... Args, typename Listener>
void Replace(Event<Args...>& event, Listener listener) {
  event = Event<Args...>();
  event = std::move(listener);
}

}  // namespace tarvoni::test

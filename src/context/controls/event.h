#pragma once

#include <algorithm>
#include <cassert>
#include <concepts>
#include <functional>
#include <utility>
#include <vector>

namespace tarvoni {

// When several listen to one event they run in this order, whatever order they were set up in.
enum class Turn {
  kFilter,  // refuses keys
  kFormat,  // rewrites the text on leaving
  kCheck,   // looks up what was typed
  kOwn,     // the Screen's own rule
};

// An event of a control or Screen. Raising an event without a listener does nothing. Calling it is also how a Screen
// runs a control's logic by itself: `txtLohnart[0].LostFocus()`.
template <typename... Args>
class Event {
 public:
  using Listener = std::function<void(Args...)>;

  // Sets the one listener. A second one is a mistake; several are added with their turns.
  template <std::invocable<Args...> Handler>
  Event& operator=(Handler handler) {
    assert(listeners_.empty() && "the event has a listener already");
    Add(Turn::kOwn, std::move(handler));
    return *this;
  }

  // Listeners of the same turn run in the order they were added. Not while the event is raised.
  void Add(Turn turn, Listener listener) {
    const auto behind = std::ranges::upper_bound(listeners_, turn, {}, &Entry::turn);
    listeners_.insert(behind, {turn, std::move(listener)});
  }

  explicit operator bool() const { return !listeners_.empty(); }

  void operator()(Args... args) const {
    for (const Entry& entry : listeners_) entry.listener(args...);
  }

 private:
  struct Entry {
    Turn turn;
    Listener listener;
  };
  std::vector<Entry> listeners_;
};

}  // namespace tarvoni

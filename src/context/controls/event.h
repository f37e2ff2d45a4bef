#pragma once

#include <concepts>
#include <functional>
#include <utility>

namespace tarvoni {

// An event of a control or Screen. The Screen assigns its handler; raising an event without one does nothing.
// Calling it is also how a Screen runs a control's logic by itself: `txtLohnart[0].LostFocus()`.
template <typename... Args>
class Event {
 public:
  template <std::invocable<Args...> Handler>
  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }

  explicit operator bool() const { return static_cast<bool>(handler_); }

  void operator()(Args... args) const {
    if (handler_) handler_(args...);
  }

 private:
  std::function<void(Args...)> handler_;
};

}  // namespace tarvoni

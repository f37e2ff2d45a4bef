#pragma once

#include <memory>

namespace tarvoni {

// Clears every slot of this thread, for who starts afresh: a script behind one that broke off.
void ClearSlots();

namespace detail {
void RememberSlot(void (*clear)());
}

// The default instance of a Screen class on this thread: the only handle to it between a call's start and its
// end. Whoever calls the Screen keeps what Use gives until the call has returned, for the Screen may clear its
// own slot while it unloads.
template <typename ScreenType>
class Slot {
 public:
  // Makes the instance on first use.
  static std::shared_ptr<ScreenType> Use() {
    if (!Instance()) {
      detail::RememberSlot(&Clear);
      Instance() = std::make_shared<ScreenType>();
    }
    return Instance();
  }
  static bool Holds() { return Instance() != nullptr; }
  static void Clear() { Instance().reset(); }

 private:
  static std::shared_ptr<ScreenType>& Instance() {
    thread_local std::shared_ptr<ScreenType> instance;
    return instance;
  }
};

}  // namespace tarvoni

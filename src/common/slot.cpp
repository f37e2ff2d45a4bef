#include "src/common/slot.h"

#include <set>

namespace tarvoni {
namespace {

std::set<void (*)()>& UsedSlots() {
  thread_local std::set<void (*)()> slots;
  return slots;
}

}  // namespace

void detail::RememberSlot(void (*clear)()) {
  UsedSlots().insert(clear);
}

void ClearSlots() {
  for (const auto clear : UsedSlots()) clear();
}

}  // namespace tarvoni

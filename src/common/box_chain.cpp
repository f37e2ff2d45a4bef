#include "src/common/box_chain.h"

#include <utility>

#include "src/common/box_rules.h"

namespace tarvoni {

void ConnectChain(std::initializer_list<Control*> chain) {
  Control* before = nullptr;
  for (Control* control : chain) {
    Control* const box = std::exchange(before, control);
    if (!box) continue;
    SelectOnFocus(*box);
    OnEnter(*box, FocusOnEnter(*control));
  }
}

}  // namespace tarvoni

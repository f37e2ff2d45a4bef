#pragma once

#include "src/common/slot.h"

namespace tarvoni {

struct Nothing {
  void operator()() const {}
};

// Calls the default instance of a Screen and clears its slot; after an error the instance stays there. `after` is
// done in between.
template <typename ScreenType, typename Work, typename After = Nothing>
void CallThroughSlot(const Work& work, const After& after = {}) {
  const auto instance = Slot<ScreenType>::Use();
  work(*instance);
  after();
  Slot<ScreenType>::Clear();
}

}  // namespace tarvoni

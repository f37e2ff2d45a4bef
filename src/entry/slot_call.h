#pragma once

#include "src/common/slot.h"
#include "src/entry/neighbours.h"

namespace tarvoni {

struct Nothing {
  void operator()() const {}
};

// Calls the default instance of a Screen and clears its slot; after an error the instance stays there. `after` is
// done in between.
template <typename ScreenType, typename Work, typename After = Nothing>
void CallThroughSlot(const Work& work, const After& after = {}) {
  AnswerNeighbours();
  const auto instance = Slot<ScreenType>::Use();
  work(*instance);
  after();
  Slot<ScreenType>::Clear();
}

}  // namespace tarvoni

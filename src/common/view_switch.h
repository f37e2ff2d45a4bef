#pragma once

#include <initializer_list>
#include <vector>

#include "src/context/controls/control.h"

namespace tarvoni {

// The two states of a Screen with one Boolean: `view` are the controls open in view state (row actions, the
// grid, closing), `edit` those open while editing (save, cancel, the frame of the fields).
class ViewSwitch {
 public:
  ViewSwitch(std::initializer_list<Control*> view, std::initializer_list<Control*> edit)
      : view_(view), edit_(edit) {}

  void Set(bool view) const {
    for (Control* control : view_) control->SetEnabled(view);
    for (Control* control : edit_) control->SetEnabled(!view);
  }

 private:
  std::vector<Control*> view_;
  std::vector<Control*> edit_;
};

}  // namespace tarvoni

#pragma once

#include "src/context/controls/control.h"

namespace tarvoni {

// A control that the user fills in. While it is locked it shows its content and takes the focus, but only the
// program changes it.
class InputControl : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }

  bool Locked() const { return locked_; }
  void SetLocked(bool locked);
  Color BackColor() const { return back_color_; }
  void SetBackColor(Color color);

 private:
  bool locked_ = false;
  Color back_color_ = kWindowBackground;
};

}  // namespace tarvoni

#include "src/context/controls/control.h"

#include "src/context/controls/form.h"
#include "src/context/values/call_error.h"

namespace tarvoni {

Control::Control(Form& form, std::string name, int index)
    : form_(form), name_(std::move(name)), index_(index) {
  form_.Register(*this);
}

Control::~Control() {
  form_.Unregister(*this);
}

std::string Control::FullName() const {
  return index_ == kNoIndex ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::SetEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) == enabled) return;
  Announce(Aspect::kEnabled);
  if (form_.host_) form_.host_->EnabledChanged(*this);
}

bool Control::IsEnabled() const {
  for (const Control* control = this; control; control = control->container_) {
    if (!control->enabled_) return false;
  }
  return true;
}

void Control::SetVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible) Announce(Aspect::kVisible);
}

bool Control::IsVisible() const {
  if (!visible_) return false;
  for (const Control* control = container_; control; control = control->container_) {
    if (!control->visible_ || !control->ShowsContent()) return false;
  }
  return true;
}

void Control::SetTabStop(bool tab_stop) {
  if (std::exchange(tab_stop_, tab_stop) != tab_stop) Announce(Aspect::kLocked);
}

void Control::SetFocus() {
  if (!CanFocus()) throw CallError("Das Feld " + FullName() + " kann den Fokus nicht erhalten.");
  form_.RequestFocus(*this);
}

bool Control::HasFocus() const {
  return form_.ActiveControl() == this;
}

void Control::Announce(Aspect aspect) {
  if (FormObserver* observer = form_.Observer()) observer->ControlChanged(*this, aspect);
}

}  // namespace tarvoni

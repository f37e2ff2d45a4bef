#include "src/context/controls/form.h"

#include <algorithm>

#include "src/context/values/clock.h"
#include "src/context/values/utf8.h"

namespace tarvoni {

Form::~Form() = default;

void Form::SetCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  if (observer_) observer_->FormCaptionChanged();
}

int Form::DateYear() const {
  return Clock::Today().year;
}

void Form::SetSubject(std::string_view subject) {
  if (subject_ == subject) return;
  subject_ = subject;
  if (observer_) observer_->FormCaptionChanged();
}

Control* Form::Find(std::string_view name, int index) const {
  const std::string wanted = utf8::Upper(name);
  const auto found = std::ranges::find_if(controls_, [&](const Control* control) {
    return control->Index() == index && utf8::Upper(control->Name()) == wanted;
  });
  return found == controls_.end() ? nullptr : *found;
}

Control* Form::FindByFullName(std::string_view full_name) const {
  const std::string wanted = utf8::Upper(full_name);
  const auto found = std::ranges::find_if(
      controls_, [&](const Control* control) { return utf8::Upper(control->FullName()) == wanted; });
  return found == controls_.end() ? nullptr : *found;
}

Control* Form::NextInTabOrder(const Control* from, bool backwards) const {
  std::vector<Control*> stops;
  std::ranges::copy_if(controls_, std::back_inserter(stops),
                       [](const Control* control) { return control->TabStop() && control->CanFocus(); });
  if (stops.empty()) return nullptr;
  std::ranges::stable_sort(stops, {}, &Control::TabIndex);
  if (backwards) std::ranges::reverse(stops);
  if (!from) return stops.front();
  const auto next = std::ranges::find_if(stops, [&](const Control* control) {
    return backwards ? control->TabIndex() < from->TabIndex() : control->TabIndex() > from->TabIndex();
  });
  return next == stops.end() ? stops.front() : *next;
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  if (layout_.kind == layout::Kind::kNone) {
    layout_ = BuildLayout();
    layout::AssignTabOrder(layout_);
  }
  Form_Load();
}

bool Form::Unload() {
  if (!loaded_ || unloading_) return true;
  unloading_ = true;
  bool refused = false;
  try {
    Form_Unload(refused);
  } catch (...) {
    unloading_ = false;
    throw;
  }
  unloading_ = false;
  if (refused) return false;
  loaded_ = false;
  active_ = nullptr;
  if (observer_) observer_->FormUnloaded();
  return true;
}

void Form::PostTab() {
  if (host_) host_->PostKey(kKeyTab);
}

void Form::SetActiveControl(Control* control) {
  Control* const previous = std::exchange(active_, control);
  if (!observer_ || previous == control) return;
  if (control) observer_->ControlChanged(*control, Aspect::kFocus);
}

void Form::Unregister(Control& control) {
  std::erase(controls_, &control);
  if (active_ == &control) active_ = nullptr;
}

void Form::RequestFocus(Control& control) {
  if (host_) {
    host_->MoveFocus(control);
  } else {
    active_ = &control;
  }
}

}  // namespace tarvoni

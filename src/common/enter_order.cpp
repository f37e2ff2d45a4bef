#include "src/common/enter_order.h"

#include <algorithm>
#include <utility>

#include "src/common/page_focus.h"

namespace tarvoni {
namespace {

bool IsOpen(const Control* control) {
  const auto* const input = dynamic_cast<const InputControl*>(control);
  return control->IsEnabled() && control->Visible() && !(input && input->Locked());
}

}  // namespace

Control* NextOpen(const Form& form, const std::vector<Control*>& order) {
  const auto here = std::ranges::find(order, form.ActiveControl());
  if (here == order.end()) return nullptr;
  const auto next = std::find_if(here + 1, order.end(), IsOpen);
  return next == order.end() ? nullptr : *next;
}

EnterRule NextOpenOnEnter(const Form& form, std::vector<Control*> order) {
  return [&form, order = std::move(order)] {
    if (Control* const next = NextOpen(form, order)) FocusOnPage(*next);
  };
}

}  // namespace tarvoni

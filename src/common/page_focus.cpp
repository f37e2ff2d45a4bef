#include "src/common/page_focus.h"

#include "src/common/m_common.h"

namespace tarvoni {

void FocusOnPage(Control& control) {
  if (!control.IsEnabled()) return;
  for (Control* around = &control; around; around = around->Container()) {
    const auto* page = dynamic_cast<TabPage*>(around);
    if (!page) continue;
    if (auto* tabs = dynamic_cast<TabControl*>(page->Container())) tabs->SetTab(page->Number());
  }
  SafeSetFocus(control);
}

EnterRule FocusOnPageOnEnter(Control& next) {
  return [&next] { FocusOnPage(next); };
}

}  // namespace tarvoni

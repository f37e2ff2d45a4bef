#pragma once

#include "src/common/box_rules.h"

namespace tarvoni {

// SafeSetFocus for a control that may stand on another page of a tab control: its page comes to the front first. A
// disabled control gets neither.
void FocusOnPage(Control& control);
// What Enter does where the next box may stand on another page.
EnterRule FocusOnPageOnEnter(Control& next);

}  // namespace tarvoni

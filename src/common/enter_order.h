#pragma once

#include <vector>

#include "src/common/box_rules.h"

namespace tarvoni {

// The next control of `order` behind the one that has the focus that is open: enabled, visible and not locked. None
// behind the last, or if the focus stands elsewhere.
Control* NextOpen(const Form& form, const std::vector<Control*>& order);

// What Enter does where the next open control of an order gets the focus, on whichever page it stands.
EnterRule NextOpenOnEnter(const Form& form, std::vector<Control*> order);

}  // namespace tarvoni

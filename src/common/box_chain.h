#pragma once

#include <initializer_list>

#include "src/context/controls/form.h"

namespace tarvoni {

// Boxes in the order in which Enter goes through them, ending at the control where it stops. Each selects its text when
// it gets the focus.
void ConnectChain(std::initializer_list<Control*> chain);

}  // namespace tarvoni

#pragma once

#include <string>

#include "src/context/controls/control.h"

namespace tarvoni {

// A box that is being left does not keep all that was typed: seen and heard at the box, and told in a sentence that
// stands when the focus has gone on.
void TellOnLeaving(Control& box, const std::string& sentence);

}  // namespace tarvoni

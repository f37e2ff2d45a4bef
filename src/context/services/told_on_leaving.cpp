#include "src/context/services/told_on_leaving.h"

#include "src/context/services/environment.h"
#include "src/context/services/toolkit.h"

namespace tarvoni {

// The sentence of a refusal goes with the focus; told once more it belongs to no box.
void TellOnLeaving(Control& box, const std::string& sentence) {
  CurrentToolkit().ShowRefusal(box, sentence);
  CurrentToolkit().Tell(sentence);
}

}  // namespace tarvoni

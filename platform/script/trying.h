#pragma once

#include "platform/script/script_run.h"

namespace tarvoni {

// Plays the rows of `try`: each acts in the columns whose head is an action, then shows what the others ask for.
void TryRows(ScriptRun& run);

}  // namespace tarvoni

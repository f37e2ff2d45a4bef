#pragma once

#include <string>

#include "src/context/data/tvn_var_dll.h"
#include "src/entry/arguments.h"

namespace tarvoni {

// Calls the Run of a Screen by its name, also of one that no method of c_Lohn opens. Gives its by-reference
// arguments. Errors of the Screen leave it; a CallError without a Screen of that name.
Arguments::Values RunScreen(const std::string& screen, const Arguments::Values& arguments,
                            const TvnVar_Dll& tvnvar);

// Empties the slots of this thread, for who starts afresh.
void ForgetScreens();

}  // namespace tarvoni

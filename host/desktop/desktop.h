#pragma once

#include <string>

namespace tarvoni::host {

// The desktop host, until its window is closed. `database` is opened at once, unless it is "". Gives what the program
// returns to the shell.
int RunDesktop(const std::string& database);

}  // namespace tarvoni::host

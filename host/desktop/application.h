#pragma once

namespace tarvoni::host {

// What to do where nobody can see windows.
enum class NoDisplay { kFail, kOffscreen };

bool HasDisplay();

// Makes the process's QApplication in the house style if it has none; it lives to the end of the process. A
// CallError without a display, instead of the end of the process.
void EnsureApplication(NoDisplay no_display = NoDisplay::kFail);

}  // namespace tarvoni::host

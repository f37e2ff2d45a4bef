#pragma once

namespace tarvoni::host {

// Makes the process's QApplication if it has none; it lives to the end of the process.
void EnsureApplication();

}  // namespace tarvoni::host

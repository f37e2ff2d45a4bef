#pragma once

namespace tarvoni::host {

// Sets this thread up for Screens if nobody has: windows (with a QApplication if the process has none), the suite's
// services, German formats, and the way data controls open their connection.
void PrepareComponentThread();

}  // namespace tarvoni::host

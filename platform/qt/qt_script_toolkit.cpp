#include "platform/qt/public/qt_script_toolkit.h"

#include <QTimer>

#include "platform/qt/form_window.h"

namespace tarvoni::qt {

void QtScriptToolkit::Attend(FormWindow& window) {
  window.User().RunTimers();
  StepLater(window);
}

// A line at a time from the window's own event loop, so that the widgets keep up with the script.
void QtScriptToolkit::StepLater(FormWindow& window) {
  QTimer::singleShot(0, &window, [this, &window] {
    window.Guard([&] {
      if (Other().Step(window.Screen())) StepLater(window);
    });
  });
}

}  // namespace tarvoni::qt

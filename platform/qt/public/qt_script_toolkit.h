#pragma once

#include "platform/qt/public/qt_toolkit.h"
#include "platform/script/public/answered_toolkit.h"

namespace tarvoni::qt {

// Screens as real windows, driven by a script that also answers whatever else would open.
class QtScriptToolkit : public AnsweredToolkit<QtToolkit> {
 protected:
  void Attend(FormWindow& window) override;

 private:
  void StepLater(FormWindow& window);
};

}  // namespace tarvoni::qt

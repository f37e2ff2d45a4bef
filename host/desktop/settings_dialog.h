#pragma once

#include <QWidget>

#include "host/desktop/settings.h"

namespace tarvoni::host {

// Lets the user change the settings; true if he accepted.
bool EditSettings(QWidget* parent, Settings& settings);

}  // namespace tarvoni::host

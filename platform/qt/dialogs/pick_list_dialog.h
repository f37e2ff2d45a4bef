#pragma once

#include <QWidget>

#include "src/context/services/toolkit.h"
#include "src/context/values/locale.h"

namespace tarvoni::qt {

// Lets the user pick one row. Typing filters, arrows move while the filter keeps the focus, Enter takes: the row whose
// code was typed, unless the user moved on to another since; Escape cancels.
PickResult ShowPickList(QWidget* parent, const PickRequest& request, const Locale& locale);

}  // namespace tarvoni::qt

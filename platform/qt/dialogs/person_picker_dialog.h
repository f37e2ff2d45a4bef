#pragma once

#include <QWidget>

#include "src/context/services/toolkit.h"
#include "src/context/values/locale.h"

namespace tarvoni::qt {

// Lets the user pick a person by name or number, as ShowPickList does, and shows all that is known of the one chosen.
PickResult ShowPersonPicker(QWidget* parent, const PickRequest& request, const Locale& locale);

}  // namespace tarvoni::qt

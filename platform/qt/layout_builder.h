#pragma once

#include <QWidget>

#include "src/context/controls/layout.h"

namespace tarvoni::qt {

class FormWindow;

// Fills `content` with the views of all controls that the description names: rows of one stack align, tables and lists
// take the free room, buttons at the end stay at the foot. The window gets the views.
void BuildLayout(const layout::Node& root, FormWindow& window, QWidget* content);

}  // namespace tarvoni::qt

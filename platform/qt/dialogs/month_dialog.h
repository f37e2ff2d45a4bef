#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

// Asks for a month, by typing ("3.2024") or among the months of a year. Nothing on cancel.
std::optional<YearMonth> ShowMonthPicker(QWidget* parent, const std::string& caption, const YearMonth& start);

}  // namespace tarvoni::qt

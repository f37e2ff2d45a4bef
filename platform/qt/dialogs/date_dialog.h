#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "src/context/values/date_time.h"

namespace tarvoni::qt {

// Asks for a day, by typing or in a calendar; begins with today where there is no start. Nothing on cancel.
std::optional<DateTime> ShowDatePicker(QWidget* parent, const std::string& caption,
                                       const std::optional<DateTime>& start);

}  // namespace tarvoni::qt

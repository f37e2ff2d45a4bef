#pragma once

#include "host/demo/calendar.h"
#include "src/context/data/database.h"

// The settings that an enterprise of any kind begins with.
namespace tarvoni::demo {

// The options, the forest year that counts as the standard one among them.
void WriteOptions(Connection& connection, int forest_year);
// The wage months from the one to the other; those up to `last_closed`, as 202402, are closed.
void WriteMonths(Connection& connection, Month first, Month last, int last_closed);
// What a whole month's work is: eight hours for each working day.
void WriteTargetHours(Connection& connection, Month first, Month last);
// The standard widths of the list of cost positions.
void WriteLayouts(Connection& connection);

}  // namespace tarvoni::demo

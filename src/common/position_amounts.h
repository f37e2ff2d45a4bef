#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/context/controls/controls.h"

// The amounts of a cost position, as its boxes hold them: texts in the locale, in which a blank counts as 0. Results
// are shown as "#0.00", rounded half away from zero.
namespace tarvoni {

// Basis times unit cost; nothing for a text that is no number or a result beyond 38 digits.
std::optional<std::string> TotalCost(std::string_view basis, std::string_view unit_cost);
// Total by basis; nothing for a basis of 0 and as above.
std::optional<std::string> UnitCost(std::string_view total, std::string_view basis);

// Shows the box's own text as an amount; one that is no number stays.
void FormatAmountBox(TextBox& box);

}  // namespace tarvoni

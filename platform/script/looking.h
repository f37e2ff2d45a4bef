#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/script/script_run.h"

namespace tarvoni {

// What a control shows.
std::string ContentOf(Control& control);
// "txtLohnart", "txtLohnart.Tag", "DataGrid1.Width(NAME)" or the Screen's own name, which shows its title.
std::string ShownBy(const ScriptRun& run, const std::string& subject);
// Whether a control is as a word says; nothing for a word that names no state.
std::optional<bool> IsInState(Control& control, std::string_view state);
// The column that a script means by its name or by its number from 1; a failure without one.
int ColumnNamed(const ScriptRun& run, Grid& grid, const std::string& name);

std::optional<int> WholeNumber(std::string_view text);

}  // namespace tarvoni

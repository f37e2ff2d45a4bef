#pragma once

#include <array>
#include <string_view>

#include "platform/script/script_run.h"

namespace tarvoni {

// The commands that answer what opens, but for the tree of locations.
inline constexpr std::array<std::string_view, 6> kAnswers = {"answer", "input", "pick",
                                                             "date",   "month", "text"};

// Plays the rows of `try`: each acts in the columns whose head is an action, then shows what the others ask for.
void TryRows(ScriptRun& run);

}  // namespace tarvoni

#pragma once

#include <cstdint>

#include "src/context/controls/controls.h"
#include "src/context/data/tvn_var_dll.h"

namespace tarvoni {

// Whether a position can have a natural execution: it has an area or a quantity other than 0, and its work type knows
// one. `activity` is LEISTUNGSART.ID; one beyond 16 bits knows none.
bool HasNaturalExecution(const TvnVar_Dll& context, const TextBox& area, const TextBox& quantity,
                         std::int32_t activity);

}  // namespace tarvoni

#pragma once

#include <string_view>

#include "include/tarvoni_lohn.h"
#include "src/context/data/database.h"

namespace tarvoni {

// Sets a text or number member by its name, for scripts and settings. False if there is none of that name, or
// a number member is given no number.
bool SetMember(TvnVar_Dll& context, std::string_view name, std::string_view value);

}  // namespace tarvoni

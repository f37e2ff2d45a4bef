#pragma once

#include "platform/script/public/script_player.h"

namespace tarvoni::host {

// What scripts of `tarvoni script` can do beyond the Screens: make the demo enterprise, call c_Lohn through the
// component's class factory, call a Screen's Run.
ScriptHooks MakeScriptHooks();

}  // namespace tarvoni::host

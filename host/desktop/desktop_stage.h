#pragma once

#include <memory>
#include <string>

#include "host/script/script_stage.h"

namespace tarvoni::host {

// Scripts through the Qt widgets, with real key and mouse events. Pictures go to the folder `shots`, if there is one.
std::unique_ptr<ScriptStage> MakeDesktopStage(const std::string& shots);

}  // namespace tarvoni::host

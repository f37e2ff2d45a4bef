#pragma once

#include <memory>
#include <string>

#include "platform/headless/driver.h"
#include "platform/headless/script_player.h"
#include "src/context/toolkit.h"

namespace tarvoni::host {

// Where scripts are played: the toolkit, and the hands that drive it.
class ScriptStage {
 public:
  virtual ~ScriptStage() = default;
  virtual Toolkit& ItsToolkit() = 0;
  virtual Driver& ItsDriver() = 0;
  // Who drives each Screen and answers what opens, for the next script.
  virtual void SetPlayer(ScriptPlayer* player) = 0;
};

std::unique_ptr<ScriptStage> MakeHeadlessStage();

}  // namespace tarvoni::host

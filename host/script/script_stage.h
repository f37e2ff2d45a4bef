#pragma once

#include <memory>
#include <string>

#include "platform/script/public/driver.h"
#include "platform/script/public/partner.h"
#include "src/context/services/toolkit.h"

namespace tarvoni::host {

// Where scripts are played: the toolkit, and the hands that drive it.
class ScriptStage {
 public:
  virtual ~ScriptStage() = default;
  virtual Toolkit& ItsToolkit() = 0;
  virtual Driver& ItsDriver() = 0;
  // Who drives each Screen and answers what opens, for the next script.
  virtual void SetPartner(Partner* partner) = 0;
};

std::unique_ptr<ScriptStage> MakeHeadlessStage();

}  // namespace tarvoni::host

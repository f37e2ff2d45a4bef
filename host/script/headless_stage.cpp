#include "host/script/script_stage.h"
#include "platform/headless/public/headless_toolkit.h"

namespace tarvoni::host {
namespace {

class HeadlessStage : public ScriptStage {
 public:
  Toolkit& ItsToolkit() override { return toolkit_; }
  Driver& ItsDriver() override { return toolkit_; }
  void SetPartner(Partner* partner) override { toolkit_.SetPartner(partner); }

 private:
  HeadlessToolkit toolkit_;
};

}  // namespace

std::unique_ptr<ScriptStage> MakeHeadlessStage() {
  return std::make_unique<HeadlessStage>();
}

}  // namespace tarvoni::host

#include "host/desktop/desktop_stage.h"

#include "host/desktop/application.h"
#include "platform/qt/public/qt_driver.h"
#include "platform/qt/public/qt_script_toolkit.h"

namespace tarvoni::host {
namespace {

class DesktopStage : public ScriptStage {
 public:
  explicit DesktopStage(const std::string& shots) : driver_(toolkit_, shots) {}
  Toolkit& ItsToolkit() override { return toolkit_; }
  Driver& ItsDriver() override { return driver_; }
  void SetPartner(Partner* partner) override { toolkit_.SetPartner(partner); }

 private:
  qt::QtScriptToolkit toolkit_;
  qt::QtDriver driver_;
};

}  // namespace

std::unique_ptr<ScriptStage> MakeDesktopStage(const std::string& shots) {
  EnsureApplication(NoDisplay::kOffscreen);
  return std::make_unique<DesktopStage>(shots);
}

}  // namespace tarvoni::host

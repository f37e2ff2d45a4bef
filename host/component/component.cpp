#include "host/component/component.h"

#include <memory>

#include "host/desktop/application.h"
#include "host/open_database.h"
#include "platform/qt/public/qt_toolkit.h"
#include "src/context/services/environment.h"
#include "suite/tarvoni_suite.h"

namespace tarvoni::host {
namespace {

class Surroundings {
 public:
  Surroundings() = default;

 private:
  qt::QtToolkit toolkit_;
  TarvoniSuite suite_;
  Environment environment_{.toolkit = &toolkit_,
                           .suite = &suite_,
                           .connect = [](const std::string& database) { return OpenDatabase(database); }};
  EnvironmentScope in_force_{environment_};
};

}  // namespace

void PrepareComponentThread() {
  thread_local std::unique_ptr<Surroundings> surroundings;
  if (Environment::Installed()) return;
  EnsureApplication();
  surroundings = std::make_unique<Surroundings>();
}

}  // namespace tarvoni::host

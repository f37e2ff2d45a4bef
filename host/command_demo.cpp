#include <fmt/format.h>

#include "host/commands.h"
#include "host/demo_database.h"
#include "host/open_database.h"
#include "host/progress_bar.h"

namespace tarvoni::host {

ExitCode RunDemo(const DemoCommand& command) {
  {
    ProgressBar bar;
    MakeDemoDatabase(command.database,
                     {.scale = command.scale, .progress = [&bar](double done) { bar.Show(done); }});
  }
  fmt::print("Musterbetrieb angelegt: {}\n",
             IsServer(command.database) ? "auf dem Server" : command.database);
  return kOk;
}

}  // namespace tarvoni::host

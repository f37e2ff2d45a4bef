#include <benchmark/benchmark.h>

#include "bench/shown_screen.h"
#include "host/demo/demo.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/machines/f_maschine_stamm.h"

namespace tarvoni::bench {
namespace {

// The Screen reads seven rows and fourteen cost types by their keys, so the usual enterprise does.
void OpenMaster(benchmark::State& state) {
  const auto connection = sqlite::OpenDatabase(":memory:", {.create = true});
  demo::BuildDemo(*connection, {.scale = 1, .progress = {}});
  Shown shown(*connection);
  for (auto _ : state) {
    shown.Next();
    F_MaschineStamm screen;
    screen.Run(shown.context);
  }
}

BENCHMARK(OpenMaster)->Name("F_MaschineStamm öffnen");

}  // namespace
}  // namespace tarvoni::bench

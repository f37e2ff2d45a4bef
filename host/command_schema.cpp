#include <fmt/format.h>

#include <cstdio>

#include "host/commands.h"
#include "src/schema/schema.h"

namespace tarvoni::host {

ExitCode RunSchema() {
  fmt::print("{}", SchemaSql().Text());
  return kOk;
}

}  // namespace tarvoni::host

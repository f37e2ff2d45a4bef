#include "host/demo_database.h"

namespace tarvoni::host {

void MakeDemoDatabase(const std::string& database, const demo::DemoOptions& options) {
  MakeNewDatabase(database, [&](Connection& connection) { demo::BuildDemo(connection, options); });
}

}  // namespace tarvoni::host

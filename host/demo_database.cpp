#include "host/demo_database.h"

namespace tarvoni::host {

void MakeDemoDatabase(const std::string& database, const demo::DemoOptions& options, Existing existing) {
  MakeNewDatabase(
      database, [&](Connection& connection) { demo::BuildDemo(connection, options); }, existing);
}

}  // namespace tarvoni::host

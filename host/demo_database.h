#pragma once

#include <string>

#include "host/demo/demo.h"
#include "host/new_database.h"

namespace tarvoni::host {

// Makes a new database with the demo enterprise, as MakeNewDatabase does; also when `options.progress` throws, all is as
// before.
void MakeDemoDatabase(const std::string& database, const demo::DemoOptions& options);

}  // namespace tarvoni::host

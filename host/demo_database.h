#pragma once

#include <string>

#include "host/demo/demo.h"

namespace tarvoni::host {

// Makes a new database with the demo enterprise: a new file, or an empty database on a server. A CallError if
// it is not empty; a file begun is removed when anything fails, also when `options.progress` throws.
void MakeDemoDatabase(const std::string& database, const demo::DemoOptions& options);

}  // namespace tarvoni::host

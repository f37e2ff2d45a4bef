#pragma once

#include <string>

#include "host/demo/demo.h"

namespace tarvoni::host {

enum class Existing { kRefuse, kReplace };

// Makes a new database with the demo enterprise: a new file, which appears when it is complete, or an empty
// database on a server. A CallError if it is not empty and not to be replaced. When anything fails, also when
// `options.progress` throws, all is as before.
void MakeDemoDatabase(const std::string& database, const demo::DemoOptions& options,
                      Existing existing = Existing::kRefuse);

}  // namespace tarvoni::host

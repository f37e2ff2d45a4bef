#pragma once

#include <functional>
#include <string>

#include "src/context/data/database.h"

namespace tarvoni::host {

// Fills a new database: a new file, or an empty database on a server. A CallError if it is not empty; a file begun is
// removed when `fill` throws.
void MakeNewDatabase(const std::string& database, const std::function<void(Connection&)>& fill);

}  // namespace tarvoni::host

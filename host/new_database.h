#pragma once

#include <functional>
#include <string>

#include "src/context/data/database.h"

namespace tarvoni::host {

// Makes the tables and indexes of the schema in an empty database, in a file also those indexes that no server knows.
void MakeTables(Connection& connection);

// Fills a new database: a new file, which appears when it is complete, or an empty database on a server. A CallError if
// it is not empty: what somebody has entered is never replaced. When anything fails, also when `fill` throws, all is as
// before.
void MakeNewDatabase(const std::string& database, const std::function<void(Connection&)>& fill);

}  // namespace tarvoni::host

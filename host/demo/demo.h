#pragma once

#include <functional>

#include "src/context/data/database.h"

namespace tarvoni::demo {

struct DemoOptions {
  int scale = 1;  // 100 gives 20,000 wage orders a year for one client and a million rows of hours
  std::function<void(double)> progress;  // hears from 0 to 1 how much is done
};

// Creates the schema and fills it with an invented forest enterprise of three clients, in T-SQL alone. The database
// must be empty. The same scale gives the same rows everywhere.
void BuildDemo(Connection& connection, const DemoOptions& options = {});

}  // namespace tarvoni::demo

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "src/context/data/database.h"
#include "tests/support/database_testing.h"

namespace tarvoni::dbtest {

// In what the backends honestly differ; everything else they have in common.
struct BackendTraits {
  bool transact_sql = true;    // takes T-SQL: batches, temporary tables, identity columns
  bool exact_decimals = true;  // stores decimals as they are, not as floating point
  bool folds_case = true;      // texts compare without regard to case
  // Knows the affected rows also after SET NOCOUNT ON, when a server tells none.
  bool counts_in_silence = false;
};

// A way to reach a database of its own for each test.
struct Backend {
  std::string name;
  BackendTraits traits;
  // Makes an empty database, in the folder if it is a file, and gives the text that opens it.
  std::string (*empty_database)(const TempFolder& folder);
  std::shared_ptr<Connection> (*open)(const std::string& connection_string);
  // A text that opens nothing.
  std::string (*nowhere)(const TempFolder& folder);
};

// The embedded database, SQLite's ODBC driver, and a T-SQL server if TARVONI_TEST_SERVER names an empty database
// of one: "odbc:Driver=FreeTDS;…".
std::vector<Backend> Backends();
// Those of them that take T-SQL.
std::vector<Backend> TransactBackends();

inline void PrintTo(const Backend& backend, std::ostream* out) {
  *out << backend.name;
}

}  // namespace tarvoni::dbtest

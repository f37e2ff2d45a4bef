#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "src/context/data/database.h"

// A database behind an ODBC driver: a T-SQL server through FreeTDS, or whatever else has a driver.
namespace tarvoni::odbc {

struct OdbcOptions {
  std::chrono::seconds login_timeout{15};
  std::chrono::seconds query_timeout{60};  // 0 waits without limit
  std::chrono::seconds lock_timeout{10};   // for the other workstations to finish their saves
};

// Opens "odbc:Driver=…;Server=…;…"; what follows "odbc:" goes to the driver manager. The connection belongs
// to one thread. Throws DatabaseError kErrorConnection in German. Once lost, a connection stays lost: nothing
// is sent again, each call says so.
std::shared_ptr<Connection> OpenOdbc(const std::string& connection_string, const OdbcOptions& options = {});

// The tables of the database that such a connection is open on, as every driver can list them.
std::vector<std::string> TableNames(Connection& connection);

}  // namespace tarvoni::odbc

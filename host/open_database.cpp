#include "host/open_database.h"

#include "platform/odbc/public/odbc_database.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/data/password.h"
#include "src/context/values/keywords.h"
#include "src/schema/schema.h"

namespace tarvoni::host {

bool IsServer(const std::string& database) {
  return StartsWithKeyword(database, "ODBC:") || HoldsPassword(database);
}

std::shared_ptr<Connection> OpenDatabase(const std::string& database, OpenMode mode) {
  if (IsServer(database)) return odbc::OpenOdbc(database);
  return sqlite::OpenDatabase(database, {.create = mode == OpenMode::kCreate,
                                         .read_only = mode == OpenMode::kReadOnly,
                                         .schema_version = kSchemaVersion});
}

}  // namespace tarvoni::host

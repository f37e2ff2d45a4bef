#include <fmt/format.h>

#include <cstdio>

#include "host/commands.h"
#include "host/open_database.h"
#include "platform/sqlite/public/sqlite_database.h"

namespace tarvoni::host {

ExitCode RunBackup(const std::string& database, const std::string& target) {
  if (IsServer(database)) {
    fmt::print(stderr, "Eine Datenbank auf einem Server sichert der Server selbst.\n");
    return kUsage;
  }
  sqlite::Backup(*OpenDatabase(database), target);
  fmt::print("Gesichert nach {}.\n", target);
  return kOk;
}

}  // namespace tarvoni::host

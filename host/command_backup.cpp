#include <fmt/format.h>

#include <cstdio>

#include "host/commands.h"
#include "host/open_database.h"
#include "platform/sqlite/public/sqlite_database.h"

namespace tarvoni::host {

ExitCode RunBackup(const BackupCommand& command) {
  if (IsServer(command.database)) {
    fmt::print(stderr, "Eine Datenbank auf einem Server sichert der Server selbst.\n");
    return kUsage;
  }
  if (IsServer(command.target)) {
    fmt::print(stderr, "Eine Sicherung ist eine Datei; auf einen Server führt keine.\n");
    return kUsage;
  }
  sqlite::Backup(*OpenDatabase(command.database), command.target, {.force = command.force});
  fmt::print("Gesichert nach {}.\n", command.target);
  return kOk;
}

}  // namespace tarvoni::host

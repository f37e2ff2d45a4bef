#include "host/open_database.h"

#include "platform/odbc/public/odbc_database.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/data/password.h"
#include "src/context/values/keywords.h"
#include "src/schema/schema.h"

namespace tarvoni::host {
namespace {

// A file of an earlier release gets the indexes that it lacks. One that cannot be made is left for the next time: it
// makes statements faster and changes none. No handler holds them together: its end would commit what another handler
// on the file, which opens a second connection here, has written so far.
void MakeMissingIndexes(Connection& file) {
  const auto names = sqlite::NamesInFile(file);
  for (const SchemaIndex& index : IndexesOfFile()) {
    if (!names.contains(index.table) || names.contains(index.table + "." + index.name)) continue;
    try {
      file.Execute(index.statement);
    } catch (const DatabaseError&) {
      continue;
    }
  }
}

}  // namespace

bool IsServer(const std::string& database) {
  return StartsWithKeyword(database, "ODBC:") || HoldsPassword(database);
}

std::shared_ptr<Connection> OpenDatabase(const std::string& database, OpenMode mode) {
  if (IsServer(database)) return odbc::OpenOdbc(database);
  auto file = sqlite::OpenDatabase(database, {.create = mode == OpenMode::kCreate,
                                              .read_only = mode == OpenMode::kReadOnly,
                                              .schema_version = kSchemaVersion});
  if (mode != OpenMode::kReadOnly) MakeMissingIndexes(*file);
  return file;
}

}  // namespace tarvoni::host

#include "host/new_database.h"

#include <algorithm>
#include <filesystem>

#include "host/open_database.h"
#include "platform/odbc/public/odbc_database.h"
#include "platform/sqlite/public/partial_file.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/data/password.h"
#include "src/context/values/call_error.h"
#include "src/context/values/keywords.h"
#include "src/schema/schema.h"

namespace tarvoni::host {
namespace {

// Whether the database of a server has tables of ours already. A new file has none.
bool HasTables(Connection& connection) {
  const auto names = odbc::TableNames(connection);
  const auto ours = SchemaTables();
  return std::ranges::any_of(names, [&](const std::string& name) {
    return std::ranges::any_of(ours, [&](const std::string& table) { return EqualsKeyword(name, table); });
  });
}

bool HoldsSomething(const std::string& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return false;
  return std::filesystem::file_size(file, error) > 0 || error;
}

[[noreturn]] void Refuse(const std::string& database) {
  throw CallError("„" + WithoutPassword(database) + "“ ist nicht leer; gebraucht wird eine neue Datenbank.");
}

void FillServer(const std::string& database, const std::function<void(Connection&)>& fill) {
  const auto connection = OpenDatabase(database);
  if (HasTables(*connection)) Refuse(database);
  fill(*connection);
}

bool TakeEmptyFile(const sqlite::PartialFile& file, const std::string& target) {
  return !HoldsSomething(target) &&
         sqlite::FillEmptyFile(*OpenDatabase(file.Path(), OpenMode::kReadOnly), target);
}

}  // namespace

void MakeTables(Connection& connection) {
  for (const SqlText& statement : SchemaStatements()) connection.Execute(statement);
  if (IsServer(connection.ConnectionString())) return;
  for (const SqlText& statement : FileIndexes()) connection.Execute(statement);
}

void MakeNewDatabase(const std::string& database, const std::function<void(Connection&)>& fill) {
  if (IsServer(database)) return FillServer(database, fill);
  if (HoldsSomething(database)) Refuse(database);
  sqlite::PartialFile file(std::filesystem::weakly_canonical(std::filesystem::absolute(database)));
  fill(*OpenDatabase(file.Path(), OpenMode::kCreate));
  if (!file.TakeFreeName() && !TakeEmptyFile(file, database)) Refuse(database);
}

}  // namespace tarvoni::host

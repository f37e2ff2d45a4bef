#include "platform/sqlite/table_changes.h"

#include <memory>

#include "platform/sqlite/error_map.h"
#include "platform/sqlite/lineage.h"
#include "platform/sqlite/savepoint.h"

namespace tarvoni::sqlite {
namespace {

bool IsReferredTo(Handle& handle, const std::string& table) {
  Statement query(
      handle,
      "SELECT 1 FROM main.sqlite_schema AS other, pragma_foreign_key_list(other.name, 'main') AS key "
      "WHERE other.type = 'table' AND other.name <> ?1 AND key.\"table\" = ?1 COLLATE NOCASE");
  query.BindText(1, table);
  return query.Step();
}

}  // namespace

void CreateTable(Database& database, const tsql::CreateTableStep& step) {
  if (database.Tables().FindTable(step.table.name)) {
    throw DatabaseError(2714, "There is already an object named '" + step.table.name + "' in the database.");
  }
  Savepoint savepoint(database.File(), "table_change");
  for (const std::string& sql : step.sql) database.File().Execute(sql);
  database.Identities().Note(step.table);
  LayDownMark(database.File());
  savepoint.Keep();
  database.TablesChanged();
}

void CreateIndex(Database& database, const tsql::CreateIndexStep& step) {
  try {
    database.File().Execute(step.sql);
  } catch (const DatabaseError& error) {
    if (!IsDuplicate(error.Number())) throw;
    throw DatabaseError(1505,
                        "The CREATE UNIQUE INDEX statement terminated because a duplicate key was found.");
  }
  database.TablesChanged();
}

void DropTable(Database& database, const std::string& name) {
  const auto table = database.Tables().FindTable(name);
  if (!table) throw DatabaseError(3701, "Cannot drop the table '" + name + "', because it does not exist.");
  if (IsReferredTo(database.File(), table->name)) {
    throw DatabaseError(
        3726, "Could not drop object '" + name + "' because it is referenced by a FOREIGN KEY constraint.");
  }
  Savepoint savepoint(database.File(), "table_change");
  database.File().Execute("DROP TABLE main." + Quoted(table->name));
  database.Identities().Forget(table->name);
  savepoint.Keep();
  database.TablesChanged();
}

}  // namespace tarvoni::sqlite

#include "platform/sqlite/table_changes.h"

#include <memory>

#include "platform/sqlite/lineage.h"

namespace tarvoni::sqlite {
namespace {

// Undoes what was done since unless it is kept.
class Savepoint {
 public:
  explicit Savepoint(Handle& handle) : handle_(handle) { handle.Execute("SAVEPOINT table_change"); }
  Savepoint(const Savepoint&) = delete;
  Savepoint& operator=(const Savepoint&) = delete;
  ~Savepoint() {
    // Some errors have already ended the whole transaction.
    if (kept_ || !handle_.InTransaction()) return;
    sqlite3_exec(handle_.Raw(), "ROLLBACK TO table_change; RELEASE table_change", nullptr, nullptr, nullptr);
  }
  void Keep() {
    handle_.Execute("RELEASE table_change");
    kept_ = true;
  }

 private:
  Handle& handle_;
  bool kept_ = false;
};

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
  Savepoint savepoint(database.File());
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
    if (error.Number() != 2627) throw;
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
  Savepoint savepoint(database.File());
  database.File().Execute("DROP TABLE main." + Quoted(table->name));
  database.Identities().Forget(table->name);
  savepoint.Keep();
  database.TablesChanged();
}

}  // namespace tarvoni::sqlite

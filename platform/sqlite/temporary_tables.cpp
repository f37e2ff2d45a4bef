#include "platform/sqlite/temporary_tables.h"

#include "src/context/data/database_error.h"

namespace tarvoni::sqlite {

TemporaryTables::~TemporaryTables() {
  for (auto& [name, table] : tables_) {
    try {
      Remove(name, table);
    } catch (const DatabaseError&) {
      // What cannot be dropped now goes with the connection.
    }
  }
}

void TemporaryTables::Create(const tsql::CreateTableStep& step) {
  Table& table = tables_[step.stored_name];
  if (table.there) {
    throw DatabaseError(2714, "There is already an object named '" + step.table.name + "' in the database.");
  }
  if (table.made_by != &step) Make(step, table);
  identities_.NoteTemporary(step.table);
  table.there = true;
}

void TemporaryTables::Make(const tsql::CreateTableStep& step, Table& table) {
  Remove(step.stored_name, table);
  for (const std::string& sql : step.sql) handle_.Execute(sql);
  table.clear = Statement(handle_, "DELETE FROM " + step.stored_name, Statement::Use::kOften);
  table.definition = std::make_shared<tsql::TableDefinition>(step.table);
  table.made_by = &step;
}

void TemporaryTables::Remove(const std::string& stored_name, Table& table) {
  table.clear = {};
  table.made_by = nullptr;
  handle_.Execute("DROP TABLE IF EXISTS " + stored_name);
}

void TemporaryTables::Drop(const tsql::DropTableStep& step) {
  const auto found = tables_.find(step.stored_name);
  if (found == tables_.end() || !found->second.there) {
    throw DatabaseError(3701, "Cannot drop the table '" + step.table + "', because it does not exist.");
  }
  Clear(found->second);
}

StoredTable TemporaryTables::Find(std::string_view name) const {
  for (const auto& [stored_name, table] : tables_) {
    if (table.there && tsql::SameName(table.definition->name, name)) return {table.definition, stored_name};
  }
  return {};
}

void TemporaryTables::Empty() {
  for (auto& [name, table] : tables_) {
    if (table.there) Clear(table);
  }
}

void TemporaryTables::Clear(Table& table) {
  identities_.ForgetTemporary(table.definition->name);
  table.there = false;
  try {
    table.clear.Run();
  } catch (const DatabaseError&) {
    // Gone with a transaction that was rolled back: the next run makes it anew.
    table.made_by = nullptr;
  }
}

}  // namespace tarvoni::sqlite

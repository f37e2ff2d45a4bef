#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/sqlite/identity.h"
#include "platform/tsql/public/plan.h"

namespace tarvoni::sqlite {

struct StoredTable {
  std::shared_ptr<const tsql::TableDefinition> definition;  // null if there is no such table
  std::string name;                                         // with its schema, ready to be written
};

// The temporary tables of one plan. Each is made once and kept for the plan's next run: between runs it is
// empty and does not count as being there.
class TemporaryTables {
 public:
  TemporaryTables(Handle& handle, IdentityValues& identities) : handle_(handle), identities_(identities) {}
  TemporaryTables(const TemporaryTables&) = delete;
  TemporaryTables& operator=(const TemporaryTables&) = delete;
  ~TemporaryTables();

  // Throws 2714 if the table is there.
  void Create(const tsql::CreateTableStep& step);
  // Throws 3701 if the table is not there.
  void Drop(const tsql::DropTableStep& step);
  // A table that is there, by its name in the batch.
  StoredTable Find(std::string_view name) const;

  // Empties the tables when a run ends.
  class Run {
   public:
    explicit Run(TemporaryTables& tables) : tables_(tables) {}
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() { tables_.Empty(); }

   private:
    TemporaryTables& tables_;
  };

 private:
  struct Table {
    std::shared_ptr<const tsql::TableDefinition> definition;
    const tsql::CreateTableStep* made_by = nullptr;
    Statement clear;
    bool there = false;
  };

  void Empty();
  void Make(const tsql::CreateTableStep& step, Table& table);
  void Remove(const std::string& stored_name, Table& table);
  void Clear(Table& table);

  Handle& handle_;
  IdentityValues& identities_;
  std::map<std::string, Table, std::less<>> tables_;  // by stored name
};

}  // namespace tarvoni::sqlite

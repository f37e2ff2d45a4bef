#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/statement.h"
#include "platform/tsql/public/catalogue.h"

namespace tarvoni::sqlite {

// The tables of a file, read from the file itself when they are first asked for. Declared types are T-SQL's.
class FileCatalogue : public tsql::Catalogue {
 public:
  explicit FileCatalogue(Handle& handle) : handle_(handle) {}

  std::shared_ptr<const tsql::TableDefinition> FindTable(std::string_view name) const override;

  // The tables of T-SQL in the file, in the order they were made.
  const std::vector<std::string>& Names() const;

  // Forgets what was read.
  void Clear();
  // Forgets what was read if the file's tables have changed since, by this or another process, and tells so.
  bool ClearIfChanged();

 private:
  using TablePtr = std::shared_ptr<const tsql::TableDefinition>;

  std::int64_t Version() const { return handle_.QueryInteger("PRAGMA main.schema_version"); }
  TablePtr Load(const std::string& name) const;
  void LoadColumns(tsql::TableDefinition& table) const;
  void LoadKeys(tsql::TableDefinition& table, const std::vector<int>& primary) const;
  void LoadIndexes(tsql::TableDefinition& table) const;
  void LoadIdentity(tsql::TableDefinition& table) const;

  Handle& handle_;
  mutable std::optional<std::int64_t> version_;
  mutable std::optional<std::vector<std::string>> names_;
  mutable std::map<std::string, TablePtr, std::less<>> tables_;  // by each spelling that was asked for
};

}  // namespace tarvoni::sqlite

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/sqlite/file_catalogue.h"
#include "platform/sqlite/handle.h"
#include "platform/sqlite/identity.h"
#include "platform/sqlite/plan_cache.h"
#include "platform/sqlite/public/sqlite_database.h"

namespace tarvoni::sqlite {

// One open file, shared by all connections of this process to it: its transaction, tables and plans.
class Database {
 public:
  static constexpr std::size_t kPlans = 512;

  // `flags` are those of sqlite3_open_v2; `name` opens the same database again.
  Database(std::string name, const std::string& path, int flags, const OpenOptions& options);
  ~Database();

  const std::string& Name() const { return name_; }
  Handle& File() { return handle_; }
  IdentityValues& Identities() { return identities_; }
  FileCatalogue& Tables() { return catalogue_; }
  PlanCache& Plans() { return plans_; }
  // Refuses a file of a newer schema than `version`; 0 takes every file.
  void CheckSchemaVersion(int version);

  void BeginHandler() { ++handlers_; }
  void EndHandler();
  bool InHandler() const { return handlers_ > 0; }

  // Begins the write transaction; false if it had begun already.
  bool BeginWrite();
  // Commits what is pending. When that fails nothing of it stays, and the connection can be used on.
  void Commit();
  // To be told of each failed statement: when the disk failed, or SQLite gave up the whole transaction by itself, nothing
  // of it stays, which the error that comes back says.
  DatabaseError NoteFailure(const DatabaseError& error);

  // Own changes of tables: plans and what was read of the tables are void.
  void TablesChanged();
  // The same if another process has changed them, which it tells.
  bool NoticeForeignChanges();
  // Makes the stored names of a plan's temporary tables its own.
  std::string NextSuffix() { return std::to_string(++suffixes_); }

 private:
  void EndTransaction(bool rolled_back);
  void Rollback();
  void InstallIdentityHooks();

  std::string name_;
  Handle handle_;
  IdentityValues identities_;
  FileCatalogue catalogue_;
  PlanCache plans_;
  Statement begin_;
  Statement commit_;
  int handlers_ = 0;
  long long suffixes_ = 0;
  bool writing_ = false;
  // Why the writes of the current handler were given up: what it writes from then on must not stay alone.
  std::optional<DatabaseError> given_up_;
};

}  // namespace tarvoni::sqlite

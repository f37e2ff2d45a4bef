#include "platform/sqlite/database.h"

#include <cassert>

namespace tarvoni::sqlite {
namespace {

DatabaseError NothingKept(const DatabaseError& error) {
  return {error.Number(), std::string(error.what()) + " Von diesem Vorgang wurde nichts gespeichert."};
}

// What the disk refused. After a statement that is wrong a handler keeps what it wrote, as on a server; a disk must not
// decide how much of a save there is.
bool IsOfTheDisk(const DatabaseError& error) {
  return error.Number() == kErrorConnection || error.Number() == kErrorDiskFull;
}

void SwitchOffBloomFilters(sqlite3* db) {
  sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, db, kBloomFilter);
}

}  // namespace

Database::Database(std::string name, const std::string& path, int flags, const OpenOptions& options)
    : name_(std::move(name)),
      handle_(path, flags, options.busy_timeout),
      identities_(handle_),
      catalogue_(handle_),
      plans_(kPlans) {
  SwitchOffBloomFilters(handle_.Raw());
  CheckSchemaVersion(options.schema_version);
  // Reads all definitions: a damaged file shows here, before anything could be written to it.
  handle_.QueryInteger("SELECT COUNT(*) FROM sqlite_schema");
  if (!options.read_only) handle_.QueryInteger("PRAGMA journal_mode = DELETE");
  handle_.Execute("PRAGMA synchronous = EXTRA; PRAGMA foreign_keys = ON; PRAGMA temp_store = MEMORY;");
  begin_ = Statement(handle_, "BEGIN IMMEDIATE", Statement::Use::kOften);
  commit_ = Statement(handle_, "COMMIT", Statement::Use::kOften);
  InstallIdentityHooks();
}

Database::~Database() {
  assert(handlers_ == 0);
}

void Database::CheckSchemaVersion(int version) {
  const auto found = handle_.QueryInteger("PRAGMA user_version");
  if (version == 0 || found <= version) return;
  throw DatabaseError(kErrorNewerSchema,
                      "Die Datenbank (Stand " + std::to_string(found) +
                          ") stammt von einer neueren Programmversion; diese kennt nur Stand " +
                          std::to_string(version) + ".");
}

void Database::InstallIdentityHooks() {
  handle_.Functions().next_identity = [this](std::string_view table) { return identities_.Next(table); };
  handle_.Functions().current_identity = [this](std::string_view table) {
    return identities_.Current(table);
  };
}

void Database::EndHandler() {
  assert(handlers_ > 0);
  if (--handlers_ > 0) return;
  Commit();
}

bool Database::BeginWrite() {
  if (writing_) return false;
  if (given_up_) throw DatabaseError(*given_up_);
  begin_.Run();
  writing_ = true;
  return true;
}

void Database::Commit() {
  given_up_.reset();
  if (!writing_) return;
  try {
    identities_.Flush();
    commit_.Run();
  } catch (const DatabaseError& error) {
    Rollback();
    throw NothingKept(error);
  }
  EndTransaction(false);
}

DatabaseError Database::NoteFailure(const DatabaseError& error) {
  if (!writing_ || (handle_.InTransaction() && !IsOfTheDisk(error))) return error;
  Rollback();
  DatabaseError final_error = NothingKept(error);
  if (InHandler()) given_up_ = final_error;
  return final_error;
}

void Database::Rollback() {
  // A rollback that fails is done by whoever opens the file next.
  if (handle_.InTransaction()) sqlite3_exec(handle_.Raw(), "ROLLBACK", nullptr, nullptr, nullptr);
  EndTransaction(true);
}

void Database::EndTransaction(bool rolled_back) {
  writing_ = false;
  identities_.EndTransaction(rolled_back);
  if (rolled_back) TablesChanged();
}

void Database::TablesChanged() {
  catalogue_.Clear();
  plans_.Clear();
}

bool Database::NoticeForeignChanges() {
  if (!catalogue_.ClearIfChanged()) return false;
  plans_.Clear();
  return true;
}

}  // namespace tarvoni::sqlite

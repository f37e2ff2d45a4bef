#include <sqlite3.h>

#include <filesystem>
#include <utility>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/error_map.h"
#include "platform/sqlite/file_check.h"
#include "platform/sqlite/lineage.h"
#include "platform/sqlite/public/partial_file.h"
#include "platform/sqlite/public/system_reason.h"

namespace tarvoni::sqlite {
namespace {

namespace fs = std::filesystem;
using std::chrono::seconds;

[[noreturn]] void Refuse(const fs::path& target, const std::string& reason) {
  throw DatabaseError(kErrorConnection,
                      "Die Sicherung „" + target.string() + "“ wird nicht geschrieben: " + reason);
}

Database& SharedOf(Connection& connection) {
  return dynamic_cast<SqliteConnection&>(connection).Shared();
}

void RequireContent(Database& database) {
  if (!database.Tables().Names().empty()) return;
  throw DatabaseError(kErrorDamaged,
                      "Die Datenbank „" + database.Name() + "“ ist leer, es wurde nichts gesichert.");
}

// A file of an earlier release has no mark yet; one of another program gets none.
Lineage MarkedLineage(Database& database) {
  Lineage lineage = LineageOf(database.File());
  if (!lineage.mark.empty()) return lineage;
  if (!lineage.is_ours) {
    throw DatabaseError(
        kErrorDamaged,
        "„" + database.Name() + "“ ist keine Datenbank dieses Programms, es wurde nichts gesichert.");
  }
  database.BeginWrite();
  LayDownMark(database.File());
  database.Commit();
  return LineageOf(database.File());
}

// None when the file is no database. What a killed program left undone in it is undone here.
Lineage LineageOfFile(const fs::path& path) {
  try {
    Handle file(path.string(), SQLITE_OPEN_READWRITE, seconds(5));
    return LineageOf(file);
  } catch (const DatabaseError& error) {
    if (error.Number() == kErrorBusy) throw;
    return {};
  }
}

// Only an older backup of the same enterprise makes room; anything else that is a file does so when forced to.
void RequireReplaceable(Database& database, const Lineage& source, const fs::path& target,
                        BackupOptions options) {
  std::error_code ignored;
  const fs::file_status status = fs::status(target, ignored);
  if (!fs::exists(status) && fs::is_symlink(fs::symlink_status(target, ignored)))
    Refuse(target, "Das ist ein Verweis auf etwas, das es nicht gibt.");
  if (!fs::exists(status)) return;
  if (fs::is_directory(status)) Refuse(target, "Das ist ein Ordner.");
  if (!fs::is_regular_file(status)) Refuse(target, "Das ist keine gewöhnliche Datei.");
  if (fs::equivalent(target, database.Name(), ignored))
    Refuse(target, "Das ist die geöffnete Datenbank selbst.");
  if (options.force || fs::file_size(target, ignored) == 0) return;
  const Lineage old = LineageOfFile(target);
  if (old.IsOlderCopyOf(source)) return;
  Refuse(target, old.mark.empty()          ? "Dort steht eine Datei, die keine Sicherung ist."
                 : old.mark != source.mark ? "Dort steht die Sicherung einer anderen Datenbank."
                                           : "Was dort steht, ist neuer als die Datenbank.");
}

// A copy under way; what it has not finished is undone.
class Copying {
 public:
  Copying(Handle& source, Handle& target)
      : backup_(sqlite3_backup_init(target.Raw(), "main", source.Raw(), "main")) {
    if (backup_ == nullptr) target.Fail(sqlite3_extended_errcode(target.Raw()));
  }
  Copying(const Copying&) = delete;
  Copying& operator=(const Copying&) = delete;
  ~Copying() { sqlite3_backup_finish(backup_); }

  // Locks both files; from then on nobody else writes into the target.
  void Lock() { sqlite3_backup_step(backup_, 0); }
  void Finish() {
    sqlite3_backup_step(backup_, -1);
    const int code = sqlite3_backup_finish(std::exchange(backup_, nullptr));
    if (code != SQLITE_OK) throw ErrorOf(code, sqlite3_errstr(code));
  }

 private:
  sqlite3_backup* backup_;
};

void WriteCopy(Database& database, const std::string& path) {
  Handle copy(path, SQLITE_OPEN_READWRITE, seconds(5));
  // Until it takes the target's name the copy is nobody's: it is made fast and synced once, at its end.
  copy.QueryInteger("PRAGMA journal_mode = OFF");
  copy.Execute("PRAGMA synchronous = OFF");
  Copying(database.File(), copy).Finish();
  const auto problems = FileProblems(copy);
  if (problems.empty()) return;
  throw DatabaseError(kErrorDamaged,
                      "Die Datenbank ist beschädigt, es wurde nichts gesichert. " + problems.front());
}

void WriteCopyFor(const fs::path& target, Database& database, const std::string& path) {
  try {
    WriteCopy(database, path);
  } catch (const DatabaseError& error) {
    if (error.Number() != kErrorDiskFull) throw;
    throw DatabaseError(kErrorDiskFull, "Auf dem Datenträger der Sicherung „" + target.string() +
                                            "“ ist kein Platz mehr, es wurde nichts gesichert.");
  }
}

}  // namespace

bool FillEmptyFile(Connection& connection, const std::string& target) {
  Handle file(target, SQLITE_OPEN_READWRITE, seconds(5));
  Copying copying(SharedOf(connection).File(), file);
  copying.Lock();
  if (fs::file_size(target) > 0) return false;
  copying.Finish();
  return true;
}

bool IsEmpty(Connection& connection) {
  return SharedOf(connection).Tables().Names().empty();
}

void Backup(Connection& connection, const std::string& target, BackupOptions options) {
  Database& database = SharedOf(connection);
  database.Commit();
  try {
    const fs::path path = fs::weakly_canonical(fs::absolute(target));
    RequireContent(database);
    RequireReplaceable(database, MarkedLineage(database), path, options);
    PartialFile copy(path);
    WriteCopyFor(path, database, copy.Path());
    copy.TakeName();
  } catch (const fs::filesystem_error& error) {
    Refuse(target, "Das System meldet, " + SystemReason(error.code().value()) + ".");
  }
}

std::shared_ptr<Connection> CopyToMemory(Connection& connection) {
  Database& source = SharedOf(connection);
  source.Commit();
  auto copy = OpenDatabase(":memory:");
  Copying(source.File(), SharedOf(*copy).File()).Finish();
  SharedOf(*copy).TablesChanged();
  return copy;
}

}  // namespace tarvoni::sqlite

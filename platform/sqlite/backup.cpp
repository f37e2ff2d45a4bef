#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/error_map.h"

namespace tarvoni::sqlite {
namespace {

namespace fs = std::filesystem;

Database& SharedOf(Connection& connection) {
  return dynamic_cast<SqliteConnection&>(connection).Shared();
}

[[noreturn]] void FailWriting(const fs::path& path, const std::string& reason) {
  throw DatabaseError(kErrorConnection,
                      "Die Sicherung „" + path.string() + "“ lässt sich nicht schreiben: " + reason);
}

// The unfinished copy: gone again unless it became the target.
class PartialFile {
 public:
  explicit PartialFile(const fs::path& target)
      : path_(target.string() + '.' + std::to_string(::getpid()) + ".teil") {
    Remove();
  }
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;
  ~PartialFile() { Remove(); }
  const fs::path& Path() const { return path_; }

 private:
  void Remove() {
    std::error_code ignored;
    fs::remove(path_, ignored);
  }
  fs::path path_;
};

void CopyPages(Handle& source, Handle& target) {
  sqlite3_backup* backup = sqlite3_backup_init(target.Raw(), "main", source.Raw(), "main");
  if (backup == nullptr) target.Fail(sqlite3_extended_errcode(target.Raw()));
  sqlite3_backup_step(backup, -1);
  const int code = sqlite3_backup_finish(backup);
  if (code != SQLITE_OK) throw ErrorOf(code, sqlite3_errstr(code));
}

void CollectProblems(Handle& handle, std::vector<std::string>& problems) {
  Statement check(handle, "PRAGMA integrity_check");
  while (check.Step()) {
    if (auto line = check.Text(0); line != "ok") problems.push_back(std::move(line));
  }
  Statement references(handle, "PRAGMA foreign_key_check");
  while (references.Step()) {
    problems.push_back("row " + references.Text(1) + " of " + references.Text(0) +
                       " refers to a missing row of " + references.Text(2));
  }
}

std::vector<std::string> Problems(Handle& handle) {
  std::vector<std::string> problems;
  try {
    CollectProblems(handle, problems);
  } catch (const DatabaseError& error) {
    // Some damage ends the check itself.
    if (error.Number() != kErrorDamaged) throw;
    problems.emplace_back(error.what());
  }
  return problems;
}

void SyncToDisk(const fs::path& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool synced = file >= 0 && ::fsync(file) == 0;
  const int reason = errno;
  if (file >= 0) ::close(file);
  if (!synced) FailWriting(path, std::strerror(reason));
}

void WriteCopy(Database& database, const fs::path& path) {
  Handle copy(path.string(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, std::chrono::seconds(5));
  // Until it is renamed the copy is nobody's: it is made fast and synced once, at its end.
  copy.QueryInteger("PRAGMA journal_mode = OFF");
  copy.Execute("PRAGMA synchronous = OFF");
  CopyPages(database.File(), copy);
  const auto problems = Problems(copy);
  if (!problems.empty()) {
    throw DatabaseError(kErrorDamaged,
                        "Die Datenbank ist beschädigt, es wurde nichts gesichert: " + problems.front());
  }
}

}  // namespace

void Backup(Connection& connection, const std::string& target) {
  Database& database = SharedOf(connection);
  database.Commit();
  const fs::path path = fs::absolute(target);
  std::error_code ignored;
  if (fs::equivalent(path, database.Name(), ignored))
    FailWriting(path, "Das ist die geöffnete Datenbank selbst.");
  if (fs::is_directory(path)) FailWriting(path, "Das ist ein Ordner.");
  const PartialFile partial(path);
  try {
    WriteCopy(database, partial.Path());
    SyncToDisk(partial.Path());
    fs::rename(partial.Path(), path);
    SyncToDisk(path.parent_path());
  } catch (const fs::filesystem_error& error) {
    FailWriting(path, error.code().message());
  }
}

std::shared_ptr<Connection> CopyToMemory(Connection& connection) {
  Database& source = SharedOf(connection);
  source.Commit();
  auto copy = OpenDatabase(":memory:");
  CopyPages(source.File(), SharedOf(*copy).File());
  SharedOf(*copy).TablesChanged();
  return copy;
}

std::vector<std::string> CheckIntegrity(Connection& connection) {
  return Problems(SharedOf(connection).File());
}

}  // namespace tarvoni::sqlite

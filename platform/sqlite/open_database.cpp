#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/public/system_reason.h"

namespace tarvoni::sqlite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMemory = ":memory:";

// The open databases of this process, by name. A file opened for reading only is another one than the same
// for writing.
std::map<std::string, std::weak_ptr<Database>>& OpenDatabases() {
  static std::map<std::string, std::weak_ptr<Database>> databases;
  return databases;
}

std::shared_ptr<Database> FindOpen(const std::string& key) {
  std::erase_if(OpenDatabases(), [](const auto& entry) { return entry.second.expired(); });
  const auto found = OpenDatabases().find(key);
  return found == OpenDatabases().end() ? nullptr : found->second.lock();
}

std::shared_ptr<Database> OpenMemory(const std::string& name, const OpenOptions& options) {
  if (name != kMemory) {
    if (auto open = FindOpen(name)) return open;
    throw DatabaseError(kErrorConnection, "Die Datenbank „" + name + "“ im Speicher gibt es nicht mehr.");
  }
  static int opened = 0;
  const std::string own_name = name + '#' + std::to_string(++opened);
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY;
  auto database = std::make_shared<Database>(own_name, std::string(kMemory), flags, options);
  OpenDatabases()[own_name] = database;
  return database;
}

bool IsWritable(const fs::path& path) {
  // The administrator may write everywhere; a file marked as protected stays protected all the same.
  constexpr auto kWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return ::access(path.c_str(), W_OK) == 0 && (fs::status(path).permissions() & kWrite) != fs::perms::none;
}

void CheckFile(const fs::path& path, const OpenOptions& options) {
  const std::string shown = "„" + path.string() + "“";
  const fs::file_status status = fs::status(path);
  if (fs::is_directory(status))
    throw DatabaseError(kErrorConnection, shown + " ist ein Ordner, keine Datenbank.");
  if (fs::exists(status) && !fs::is_regular_file(status))
    throw DatabaseError(kErrorConnection, shown + " ist keine gewöhnliche Datei, also keine Datenbank.");
  if (!fs::exists(status)) {
    if (!options.create) throw DatabaseError(kErrorConnection, "Die Datenbank " + shown + " gibt es nicht.");
    if (!fs::is_directory(path.parent_path())) {
      throw DatabaseError(kErrorConnection, "Den Ordner der Datenbank " + shown + " gibt es nicht.");
    }
  } else if (!options.read_only && !IsWritable(path)) {
    throw DatabaseError(kErrorReadOnly, "Die Datenbank " + shown + " ist schreibgeschützt.");
  }
  if (!options.read_only && !IsWritable(path.parent_path())) {
    throw DatabaseError(kErrorReadOnly, "Der Ordner der Datenbank " + shown + " ist schreibgeschützt.");
  }
}

// What a killed program left half done only a program that may write can undo; one that only reads has it done
// before.
void FinishForReading(const fs::path& path) {
  std::error_code ignored;
  if (!fs::exists(path.string() + "-journal", ignored) || !IsWritable(path) ||
      !IsWritable(path.parent_path()))
    return;
  Handle handle(path.string(), SQLITE_OPEN_READWRITE, std::chrono::seconds(5));
  handle.QueryInteger("SELECT COUNT(*) FROM sqlite_schema");
}

std::shared_ptr<Database> OpenFile(const fs::path& path, const OpenOptions& options) {
  const std::string key = (options.read_only ? "r:" : "w:") + path.string();
  if (auto open = FindOpen(key)) {
    open->CheckSchemaVersion(options.schema_version);
    return open;
  }
  CheckFile(path, options);
  const int flags = options.read_only ? SQLITE_OPEN_READONLY
                                      : SQLITE_OPEN_READWRITE | (options.create ? SQLITE_OPEN_CREATE : 0);
  try {
    if (options.read_only) FinishForReading(path);
    auto database = std::make_shared<Database>(path.string(), path.string(), flags, options);
    OpenDatabases()[key] = database;
    return database;
  } catch (const DatabaseError& error) {
    throw DatabaseError(error.Number(), path.string() + ": " + error.what());
  }
}

}  // namespace

std::set<std::string> NamesInFile(Connection& connection) {
  Statement query(dynamic_cast<SqliteConnection&>(connection).Shared().File(),
                  "SELECT name FROM main.sqlite_schema WHERE type IN ('table', 'index')");
  std::set<std::string> names;
  while (query.Step()) names.insert(query.Text(0));
  return names;
}

std::shared_ptr<Connection> OpenDatabase(const std::string& connection_string, const OpenOptions& options) {
  if (connection_string.starts_with(kMemory)) {
    return std::make_shared<SqliteConnection>(OpenMemory(connection_string, options));
  }
  if (connection_string.empty()) throw DatabaseError(kErrorConnection, "Es ist keine Datenbank genannt.");
  try {
    const fs::path path = fs::weakly_canonical(fs::absolute(connection_string));
    return std::make_shared<SqliteConnection>(OpenFile(path, options));
  } catch (const std::system_error& error) {
    throw DatabaseError(kErrorConnection,
                        "Die Datenbank „" + connection_string +
                            "“ lässt sich nicht öffnen: " + SystemReason(error.code().value()) + ".");
  }
}

}  // namespace tarvoni::sqlite

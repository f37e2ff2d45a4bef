#include "host/new_database.h"

#include <filesystem>

#include "host/open_database.h"
#include "src/context/values/call_error.h"

namespace tarvoni::host {
namespace {

constexpr int kNoSuchTable = 208;

// True when the database already has tables of ours.
bool HasTables(Connection& connection) {
  try {
    connection.Open("SELECT TOP 1 ID_PERSONAL FROM PERSONAL");
    return true;
  } catch (const DatabaseError& error) {
    if (error.Number() != kNoSuchTable) throw;
    return false;
  }
}

// Removes a file that was begun here, unless the work was finished.
class NewFile {
 public:
  explicit NewFile(std::filesystem::path path) : path_(std::move(path)) {}
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove(path_, ignored);
  }
  void Keep() { path_.clear(); }

 private:
  std::filesystem::path path_;
};

bool IsEmptyOrMissing(const std::string& file) {
  std::error_code error;
  return !std::filesystem::exists(file, error) || std::filesystem::file_size(file, error) == 0;
}

[[noreturn]] void Refuse(const std::string& database) {
  throw CallError(database + " ist nicht leer; gebraucht wird eine neue Datenbank.");
}

}  // namespace

void MakeNewDatabase(const std::string& database, const std::function<void(Connection&)>& fill) {
  const bool server = IsServer(database);
  if (!server && !IsEmptyOrMissing(database)) Refuse(database);
  NewFile file(server ? std::filesystem::path() : std::filesystem::path(database));
  {
    const auto connection = OpenDatabase(database, OpenMode::kCreate);
    if (HasTables(*connection)) Refuse(database);
    fill(*connection);
  }
  file.Keep();
}

}  // namespace tarvoni::host

#include <fmt/format.h>

#include <cstdio>
#include <filesystem>

#include "host/commands.h"
#include "host/demo/demo.h"
#include "host/open_database.h"
#include "host/progress_bar.h"

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

ExitCode Refuse(const std::string& database) {
  fmt::print(stderr, "{} ist nicht leer; der Musterbetrieb braucht eine neue Datenbank.\n", database);
  return kFailed;
}

}  // namespace

ExitCode RunDemo(const DemoCommand& command) {
  const bool server = IsServer(command.database);
  if (!server && !IsEmptyOrMissing(command.database)) return Refuse(command.database);
  NewFile file(server ? std::filesystem::path() : std::filesystem::path(command.database));
  {
    const auto connection = OpenDatabase(command.database, OpenMode::kCreate);
    if (HasTables(*connection)) return Refuse(command.database);
    ProgressBar bar;
    demo::BuildDemo(*connection,
                    {.scale = command.scale, .progress = [&bar](double done) { bar.Show(done); }});
  }
  file.Keep();
  fmt::print("Musterbetrieb angelegt: {}\n", server ? "auf dem Server" : command.database);
  return kOk;
}

}  // namespace tarvoni::host

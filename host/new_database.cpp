#include "host/new_database.h"

#include <filesystem>

#include "host/open_database.h"
#include "platform/sqlite/public/partial_file.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/data/password.h"
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

bool HoldsSomething(const std::string& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return false;
  return std::filesystem::file_size(file, error) > 0 || error;
}

[[noreturn]] void Refuse(const std::string& database) {
  throw CallError("„" + WithoutPassword(database) + "“ ist nicht leer; gebraucht wird eine neue Datenbank.");
}

void Fill(const std::string& database, const std::function<void(Connection&)>& fill) {
  const auto connection = OpenDatabase(database, OpenMode::kCreate);
  if (HasTables(*connection)) Refuse(database);
  fill(*connection);
}

bool TakeEmptyFile(const sqlite::PartialFile& file, const std::string& target) {
  return !HoldsSomething(target) &&
         sqlite::FillEmptyFile(*OpenDatabase(file.Path(), OpenMode::kReadOnly), target);
}

}  // namespace

void MakeNewDatabase(const std::string& database, const std::function<void(Connection&)>& fill,
                     Existing existing) {
  if (IsServer(database)) return Fill(database, fill);
  const bool replaces = existing == Existing::kReplace;
  if (!replaces && HoldsSomething(database)) Refuse(database);
  sqlite::PartialFile file(std::filesystem::weakly_canonical(std::filesystem::absolute(database)));
  Fill(file.Path(), fill);
  if (replaces) return file.TakeName();
  if (!file.TakeFreeName() && !TakeEmptyFile(file, database)) Refuse(database);
}

}  // namespace tarvoni::host

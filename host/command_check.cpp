#include <fmt/format.h>

#include <cstdio>

#include "host/commands.h"
#include "host/invariants.h"
#include "host/open_database.h"
#include "platform/sqlite/public/sqlite_database.h"

namespace tarvoni::host {
namespace {

constexpr std::size_t kShownRows = 10;

// "ARA_KOPF 17, POSITIONEN 2"
std::string KeysOf(const Recordset& rows) {
  std::string keys;
  for (int i = 0; i < rows.Fields().Count(); ++i) {
    const Field field = rows.Fields()[i];
    keys += fmt::format("{}{} {}", i == 0 ? "" : ", ", field.Name(), ToDisplayText(field.Value()));
  }
  return keys;
}

void ReportRows(Recordset rows) {
  const auto count = rows.RecordCount();
  for (std::size_t i = 0; i < count && i < kShownRows; ++i, rows.MoveNext())
    fmt::print("  {}\n", KeysOf(rows));
  if (count > kShownRows) fmt::print("  … insgesamt {} Zeilen\n", count);
}

// True when the invariant holds.
bool CheckInvariant(Connection& connection, const Invariant& invariant) {
  const Recordset rows = connection.Open(invariant.statement);
  if (rows.RecordCount() == 0) return true;
  fmt::print("Verletzt: {}\n", invariant.sentence);
  ReportRows(rows);
  return false;
}

bool CheckFile(Connection& connection) {
  const auto damages = sqlite::CheckIntegrity(connection);
  for (const std::string& damage : damages) fmt::print("Datei: {}\n", damage);
  return damages.empty();
}

}  // namespace

ExitCode RunCheck(const std::string& database) {
  const auto connection = OpenDatabase(database, OpenMode::kReadOnly);
  bool sound = IsServer(database) || CheckFile(*connection);
  const auto invariants = Invariants();
  for (const Invariant& invariant : invariants) sound = CheckInvariant(*connection, invariant) && sound;
  if (sound) fmt::print("In Ordnung: {} Regeln geprüft.\n", invariants.size());
  return sound ? kOk : kFailed;
}

}  // namespace tarvoni::host

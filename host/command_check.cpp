#include <fmt/format.h>

#include <cstdio>

#include "host/commands.h"
#include "host/invariants.h"
#include "host/open_database.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/schema/schema.h"

namespace tarvoni::host {
namespace {

constexpr std::size_t kShownRows = 10;
constexpr int kNoSuchColumn = 207;
constexpr int kNoSuchTable = 208;

// "ARA_KOPF 17, POSITIONEN 2"
std::string KeysOf(const Recordset& rows) {
  std::string keys;
  for (int i = 0; i < rows.Fields().Count(); ++i) {
    const Field field = rows.Fields()[i];
    keys += fmt::format("{}{} {}", i == 0 ? "" : ", ", field.Name(), ToDisplayText(field.Value()));
  }
  return keys;
}

// What it has otherwise than a new one.
void ReportDifferences(Connection& connection, bool& sound) {
  const auto model = sqlite::OpenDatabase(":memory:");
  model->Execute(SchemaSql());
  const auto differences = sqlite::DifferencesFrom(*model, connection);
  for (std::size_t i = 0; i < differences.size() && i < kShownRows; ++i)
    fmt::print("Datei: {}\n", differences[i]);
  if (differences.size() > kShownRows) fmt::print("  … insgesamt {}\n", differences.size());
  sound = sound && differences.empty();
}

void ReportRows(Recordset rows) {
  const auto count = rows.RecordCount();
  for (std::size_t i = 0; i < count && i < kShownRows; ++i, rows.MoveNext())
    fmt::print("  {}\n", KeysOf(rows));
  if (count > kShownRows) fmt::print("  … insgesamt {} Zeilen\n", count);
}

// Goes through the rules; none hides what another finds.
class RuleCheck {
 public:
  explicit RuleCheck(Connection& connection) : connection_(connection) {}

  void Check(const Invariant& invariant) {
    try {
      Report(invariant, connection_.Open(invariant.statement));
    } catch (const DatabaseError& error) {
      if (error.Number() == kErrorConnection || error.Number() == kErrorBusy) throw;
      NoteUnchecked(invariant, error);
    }
  }

  // Tells what could not be checked; true when all rules hold.
  bool Finish() const {
    if (without_tables_ > 0)
      fmt::print("Nicht prüfbar: {} Regeln, weil ihre Tabellen oder Spalten fehlen ({})\n", without_tables_,
                 missing_);
    return sound_ && without_tables_ == 0;
  }

 private:
  void Report(const Invariant& invariant, const Recordset& rows) {
    if (rows.RecordCount() == 0) return;
    sound_ = false;
    fmt::print("Verletzt: {}\n", invariant.sentence);
    ReportRows(rows);
  }

  void NoteUnchecked(const Invariant& invariant, const DatabaseError& error) {
    if (error.Number() == kNoSuchTable || error.Number() == kNoSuchColumn) {
      if (++without_tables_ == 1) missing_ = error.what();
      return;
    }
    sound_ = false;
    fmt::print("Nicht prüfbar: {}\n  {}\n", invariant.sentence, error.what());
  }

  Connection& connection_;
  bool sound_ = true;
  std::size_t without_tables_ = 0;
  std::string missing_;
};

bool CheckFile(Connection& connection) {
  const auto damages = sqlite::CheckIntegrity(connection);
  for (const std::string& damage : damages) fmt::print("Datei: {}\n", damage);
  bool sound = damages.empty();
  ReportDifferences(connection, sound);
  return sound;
}

}  // namespace

ExitCode RunCheck(const std::string& database) {
  const auto connection = OpenDatabase(database, OpenMode::kReadOnly);
  if (!IsServer(database) && sqlite::IsEmpty(*connection)) {
    fmt::print("Die Datenbank {} ist leer.\n", database);
    return kFailed;
  }
  const bool file_sound = IsServer(database) || CheckFile(*connection);
  RuleCheck rules(*connection);
  const auto invariants = Invariants();
  for (const Invariant& invariant : invariants) rules.Check(invariant);
  const bool sound = rules.Finish() && file_sound;
  if (sound) fmt::print("In Ordnung: {} Regeln geprüft.\n", invariants.size());
  return sound ? kOk : kFailed;
}

}  // namespace tarvoni::host

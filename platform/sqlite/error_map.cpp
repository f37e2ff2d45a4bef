#include "platform/sqlite/error_map.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tarvoni::sqlite {
namespace {

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// "UNIQUE constraint failed: KONTO.ID" names its columns behind the colon.
std::string Detail(std::string_view message) {
  const auto colon = message.find(": ");
  return colon == std::string_view::npos ? std::string() : std::string(message.substr(colon + 2));
}

std::string WithDetail(const std::string& sentence, std::string_view message) {
  const std::string detail = Detail(message);
  return detail.empty() ? sentence + "." : sentence + ": " + detail + ".";
}

DatabaseError ConstraintError(int code, std::string_view message) {
  switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {kDuplicateKey, WithDetail("Diesen Wert gibt es schon, er darf nur einmal vorkommen", message)};
    case SQLITE_CONSTRAINT_NOTNULL:
      return {515, WithDetail("Hier muss ein Wert stehen", message)};
    case SQLITE_CONSTRAINT_CHECK:
      return {547, WithDetail("Der Wert verletzt eine Bedingung der Tabelle", message)};
    default:
      return {547, "Der Datensatz gehört zu einem anderen, der fehlt oder noch gebraucht wird."};
  }
}

// SQLite's own words for its limits.
std::string GermanReason(std::string_view message) {
  static constexpr std::pair<std::string_view, const char*> kReasons[] = {
      {"too many terms in compound SELECT", "sie verbindet zu viele Abfragen mit UNION"},
      {"Expression tree is too large", "ein Ausdruck ist zu tief geschachtelt"},
      {"parser stack overflow", "sie ist zu tief geschachtelt"},
      {"too many columns", "sie hat zu viele Spalten"},
      {"tables in a join", "sie verbindet mehr als 64 Tabellen"},
      {"too many SQL variables", "sie enthält zu viele Werte"},
      {"too many arguments", "ein Aufruf hat zu viele Werte"},
  };
  for (const auto& [words, german] : kReasons) {
    if (Contains(message, words)) return german;
  }
  return "„" + std::string(message) + "“";
}

// SQLite has one code for all that is wrong with a statement; only the message tells them apart.
DatabaseError StatementError(std::string_view message) {
  if (message == "parser stack overflow" || message.starts_with("Expression tree is too large"))
    return {191, "Die Anweisung ist zu tief geschachtelt."};
  if (message == "integer overflow") return {8115, "Arithmetic overflow error converting expression."};
  if (Contains(message, "no such table")) return {208, "Invalid object name '" + Detail(message) + "'."};
  if (Contains(message, "no such column") || Contains(message, "has no column named"))
    return {207, "Invalid column name: " + std::string(message) + "."};
  if (message.starts_with("index ") && Contains(message, "already exists"))
    return {1913, "The operation failed because an " + std::string(message) + "."};
  if (Contains(message, "already exists") || Contains(message, "there is already"))
    return {2714, "There is already an object of that name in the database (" + std::string(message) + ")."};
  return {kErrorNotSupported,
          "Die eingebettete Datenbank lehnt die Anweisung ab: " + GermanReason(message) + "."};
}

constexpr const char* kMustBeFinished =
    "Ein Vorgang wurde mittendrin abgebrochen, und die Datei steht noch im Zwischenstand. Bitte die "
    "Datenbank "
    "einmal mit Schreibrecht öffnen; dabei wird er zurückgenommen.";

}  // namespace

DatabaseError ErrorOf(int extended_code, std::string_view message) {
  switch (extended_code & 0xff) {
    case SQLITE_CONSTRAINT:
      // Only a test refuses a commit (FailCommit).
      if (extended_code == SQLITE_CONSTRAINT_COMMITHOOK) return ErrorOf(SQLITE_FULL, message);
      return ConstraintError(extended_code, message);
    case SQLITE_ERROR:
    case SQLITE_SCHEMA:
      return StatementError(message);
    case SQLITE_MISMATCH:
      return {8114, "Error converting data type."};
    case SQLITE_FULL:
      return {kErrorDiskFull, "Auf dem Datenträger der Datenbank ist kein Platz mehr."};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {kErrorBusy,
              "Ein anderes Programm hält die Datenbank gerade fest. Bitte gleich noch einmal versuchen."};
    case SQLITE_READONLY:
      if (extended_code == SQLITE_READONLY_ROLLBACK || extended_code == SQLITE_READONLY_RECOVERY)
        return {kErrorReadOnly, kMustBeFinished};
      [[fallthrough]];
    case SQLITE_PERM:
      return {kErrorReadOnly, "Die Datenbank oder ihr Ordner ist schreibgeschützt."};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return {kErrorDamaged, "Die Datei ist beschädigt oder keine Datenbank."};
    case SQLITE_TOOBIG:
      return {kErrorNotSupported, "Der Text oder die Anweisung ist zu lang für die eingebettete Datenbank."};
    case SQLITE_CANTOPEN:
      return {kErrorConnection, "Die Datenbankdatei oder eine Datei daneben lässt sich nicht öffnen."};
    case SQLITE_NOMEM:
      return {kErrorConnection, "Der Arbeitsspeicher reicht nicht."};
    case SQLITE_IOERR:
      return {kErrorConnection,
              "Der Datenträger der Datenbank meldet beim Lesen oder Schreiben einen Fehler (" +
                  std::to_string(extended_code) + ")."};
    default:
      return {kErrorConnection, "Die Datenbankdatei lässt sich nicht öffnen, lesen oder schreiben (" +
                                    std::to_string(extended_code) + ")."};
  }
}

DatabaseError ErrorOf(const tsql::Error& error, std::string_view batch) {
  return {error.Number(), error.what(), error.At().line, error.At().column, std::string(batch)};
}

bool EndsBatch(int number) {
  static constexpr std::array kFailedConversions = {208, 235, 241, 242, 244, 245, 248, 8114};
  return number >= kErrorNotSupported ||
         std::ranges::find(kFailedConversions, number) != kFailedConversions.end();
}

}  // namespace tarvoni::sqlite

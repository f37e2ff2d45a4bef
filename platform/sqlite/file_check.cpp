#include "platform/sqlite/file_check.h"

#include <array>
#include <cmath>
#include <limits>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/utf8_text.h"
#include "platform/sqlite/whole.h"
#include "platform/tsql/public/runtime.h"

namespace tarvoni::sqlite {
namespace {

using tsql::TableDefinition;
using tsql::Type;
using tsql::TypeKind;

struct Wording {
  std::string_view begins;
  const char* german;  // what follows stands behind it
};
constexpr std::array kWordings = {
    Wording{"wrong # of entries in index ", "Ein Index hat zu viele oder zu wenige Einträge: "},
    Wording{"non-unique entry in index ",
            "Ein Wert, der nur einmal vorkommen darf, steht mehrmals im Index "},
    Wording{"CHECK constraint failed in ", "Eine Bedingung der Tabelle ist verletzt: "},
};

std::string GermanSentence(const std::string& line) {
  for (const auto& [begins, german] : kWordings) {
    if (line.starts_with(begins)) return german + line.substr(begins.size()) + ".";
  }
  if (line.find(" missing from index ") != std::string::npos)
    return "In einem Index fehlt eine Zeile seiner Tabelle (" + line + ").";
  return "Die Seiten der Datei sind beschädigt (" + line + ").";
}

// The cells are looked at one by one, with their keys, in CellProblems.
bool IsAboutACell(const std::string& line) {
  return line.find(" value in ") != std::string::npos;
}

void CollectProblems(Handle& handle, std::vector<std::string>& problems) {
  Statement check(handle, "PRAGMA integrity_check");
  while (check.Step()) {
    const std::string line = check.Text(0);
    if (line != "ok" && !IsAboutACell(line)) problems.push_back(GermanSentence(line));
  }
  Statement references(handle, "PRAGMA foreign_key_check");
  while (references.Step()) {
    problems.push_back("Die Zeile " + references.Text(1) + " der Tabelle " + references.Text(0) +
                       " verweist auf eine Zeile von " + references.Text(2) + ", die es nicht gibt.");
  }
}

bool HasKind(sqlite3_stmt* row, int column, int kind) {
  return sqlite3_column_type(row, column) == kind;
}

Int128 LimitOf(int precision) {
  Int128 limit = 1;
  for (int i = 0; i < precision; ++i) limit *= 10;
  return limit;
}

const char* FaultOfExact(sqlite3_stmt* row, int column, const Type& type) {
  const bool wide = HasKind(row, column, SQLITE_BLOB) &&
                    sqlite3_column_bytes(row, column) == static_cast<int>(WideExact().size());
  if (!wide && !HasKind(row, column, SQLITE_INTEGER)) return "keine genaue Zahl";
  if (type.kind == TypeKind::kMoney) return wide ? "zu groß" : nullptr;
  const Int128 value =
      wide ? DecodeWide(sqlite3_column_blob(row, column)) : sqlite3_column_int64(row, column);
  const Int128 limit = LimitOf(type.precision);
  return value < limit && value > -limit ? nullptr : "zu groß";
}

const char* FaultOfWhole(sqlite3_stmt* row, int column, TypeKind kind) {
  if (!HasKind(row, column, SQLITE_INTEGER)) return "keine ganze Zahl";
  return FitsKind(sqlite3_column_int64(row, column), kind) ? nullptr : "zu groß";
}

const char* FaultOfFloat(sqlite3_stmt* row, int column) {
  if (!HasKind(row, column, SQLITE_FLOAT) && !HasKind(row, column, SQLITE_INTEGER)) return "keine Zahl";
  return std::isfinite(sqlite3_column_double(row, column)) ? nullptr : "unendlich";
}

const char* FaultOfText(sqlite3_stmt* row, int column, const Type& type) {
  if (!HasKind(row, column, SQLITE_TEXT)) return type.IsDate() ? "kein Datum" : "kein Text";
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  const std::string_view found(text, static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
  if (type.IsDate()) return DateTime::FromIso(found) ? nullptr : "kein gültiges Datum";
  if (!IsUtf8(found)) return "kein gültiges UTF-8";
  return CountCharacters(found) <= static_cast<std::size_t>(type.length) ? nullptr : "zu lang";
}

// What is wrong with the cell, null for nothing.
const char* FaultOf(sqlite3_stmt* row, int column, const tsql::ColumnDefinition& definition) {
  if (HasKind(row, column, SQLITE_NULL))
    return definition.nullable ? nullptr : "leer, obwohl dort ein Wert stehen muss";
  const Type& type = definition.type;
  if (type.IsInteger()) return FaultOfWhole(row, column, type.kind);
  if (type.kind == TypeKind::kDecimal || type.kind == TypeKind::kMoney)
    return FaultOfExact(row, column, type);
  if (type.kind == TypeKind::kFloat) return FaultOfFloat(row, column);
  return FaultOfText(row, column, type);
}

std::string SelectAll(const TableDefinition& table) {
  std::string columns;
  for (const auto& column : table.columns) columns += (columns.empty() ? "" : ", ") + Quoted(column.name);
  return "SELECT " + columns + (table.unique_keys.empty() ? ", rowid" : "") + " FROM main." +
         Quoted(table.name);
}

// "ID 17": the key of the row, or its place in the file.
std::string KeyOf(sqlite3_stmt* row, const TableDefinition& table) {
  if (table.unique_keys.empty()) return "Zeile " + ShownCell(row, static_cast<int>(table.columns.size()));
  std::string key;
  for (const int column : table.unique_keys.front())
    key += (key.empty() ? "" : ", ") + table.columns[static_cast<std::size_t>(column)].name + " " +
           ShownCell(row, column);
  return key;
}

std::string Sentence(sqlite3_stmt* row, const TableDefinition& table, int column, const char* fault) {
  const std::string content = HasKind(row, column, SQLITE_NULL) ? "" : " („" + ShownCell(row, column) + "“)";
  return "Tabelle " + table.name + ", " + KeyOf(row, table) + ", Spalte " +
         table.columns[static_cast<std::size_t>(column)].name + ": " + fault + content + ".";
}

void CheckTable(Handle& handle, const TableDefinition& table, std::size_t limit,
                std::vector<std::string>& problems) {
  Statement rows(handle, SelectAll(table));
  const int columns = static_cast<int>(table.columns.size());
  while (problems.size() < limit && rows.Step()) {
    for (int i = 0; i < columns; ++i) {
      const char* fault = FaultOf(rows.Raw(), i, table.columns[static_cast<std::size_t>(i)]);
      if (fault != nullptr && problems.size() < limit)
        problems.push_back(Sentence(rows.Raw(), table, i, fault));
    }
  }
}

// The last number noted as given.
std::int64_t LastGiven(Handle& handle, const TableDefinition& table, const tsql::ColumnDefinition& identity) {
  Statement query(handle,
                  std::string("SELECT last FROM main.") + tsql::kIdentityTable + " WHERE table_name = ?1");
  query.BindText(1, table.name);
  return query.Step() && !query.IsNull(0) ? query.Integer(0) : identity.seed - identity.step;
}

// Tables that hold a number beyond the last one noted as given: it would be given again.
void CheckIdentities(Handle& handle, const FileCatalogue& catalogue, std::vector<std::string>& problems) {
  for (const std::string& name : catalogue.Names()) {
    const auto table = catalogue.FindTable(name);
    const int column = table->IdentityColumn();
    if (column < 0) continue;
    const auto& identity = table->columns[static_cast<std::size_t>(column)];
    Statement query(handle, std::string("SELECT ") + (identity.step > 0 ? "max(" : "min(") +
                                Quoted(identity.name) + ") FROM main." + Quoted(name));
    if (!query.Step() || query.IsNull(0)) continue;
    const std::int64_t last = LastGiven(handle, *table, identity);
    const bool beyond = identity.step > 0 ? query.Integer(0) > last : query.Integer(0) < last;
    if (!beyond) continue;
    problems.push_back("Tabelle " + name + ": als letzte Nummer ist " + std::to_string(last) +
                       " vermerkt, es gibt aber schon " + std::to_string(query.Integer(0)) + ".");
  }
}

}  // namespace

std::vector<std::string> FileProblems(Handle& handle) {
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

std::vector<std::string> CellProblems(Handle& handle, const FileCatalogue& catalogue,
                                      const std::vector<std::string>& tables, std::size_t limit) {
  std::vector<std::string> problems;
  for (const std::string& name : tables) {
    const auto table = catalogue.FindTable(name);
    if (table) CheckTable(handle, *table, limit, problems);
  }
  return problems;
}

std::vector<std::string> CheckIntegrity(Connection& connection) {
  Database& database = dynamic_cast<SqliteConnection&>(connection).Shared();
  auto problems = FileProblems(database.File());
  if (!problems.empty()) return problems;
  problems = CellProblems(database.File(), database.Tables(), database.Tables().Names(),
                          std::numeric_limits<std::size_t>::max());
  CheckIdentities(database.File(), database.Tables(), problems);
  return problems;
}

}  // namespace tarvoni::sqlite

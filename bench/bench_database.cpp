#include "bench/bench_database.h"

#include <fmt/core.h>

#include <cstdlib>
#include <filesystem>

#include "host/demo/demo.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "tests/schema/statement_blocks.h"
#include "tests/support/sql.h"

namespace tarvoni::bench {
namespace {

constexpr int kScale = 100;

std::string FileName() {
  const char* named = std::getenv("TARVONI_BENCH_DB");
  return named != nullptr ? named : "out/bench.db";
}

void MakeDatabase(const std::string& file) {
  fmt::print(stderr, "{} wird angelegt (Musterbetrieb, Faktor {}) …\n", file, kScale);
  const auto folder = std::filesystem::path(file).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder);
  const std::string unfinished = file + ".unfinished";
  std::filesystem::remove(unfinished);
  {
    const auto connection = sqlite::OpenDatabase(unfinished, {.create = true});
    demo::BuildDemo(*connection, {.scale = kScale, .progress = {}});
  }
  std::filesystem::rename(unfinished, file);
}

long long FirstNumber(const std::string& text) {
  return std::get<std::int64_t>(Database().Open(Sql(text)).GetRows().at(0).at(0));
}

Value ReadCell(sqlite3_stmt* statement, int column, char type) {
  if (sqlite3_column_type(statement, column) == SQLITE_NULL) return Null{};
  const auto text = [&] {
    return std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                       static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
  };
  switch (type) {
    case 't':
      return text();
    case 'd':
      return *DateTime::FromIso(text());
    case 'b':
      return sqlite3_column_int(statement, column) != 0;
    case 'i':
      return std::int64_t{sqlite3_column_int64(statement, column)};
    case 'f':
      return sqlite3_column_double(statement, column);
    default:
      return Decimal(sqlite3_column_int64(statement, column), type - '0');
  }
}

}  // namespace

const std::string& DatabaseFile() {
  static const std::string file = [] {
    std::string name = FileName();
    if (!std::filesystem::exists(name)) MakeDatabase(name);
    return name;
  }();
  return file;
}

Connection& Database() {
  static const auto connection = sqlite::OpenDatabase(DatabaseFile());
  return *connection;
}

const Keys& TheKeys() {
  static const Keys keys = [] {
    Keys found;
    found.client = FirstNumber(
        "SELECT TOP 1 PERSONAL_ID,COUNT(*) AS N FROM ARA_KOPF GROUP BY PERSONAL_ID ORDER BY N DESC");
    found.year = "2024";
    found.log_order = FirstNumber(
        "SELECT TOP 1 LISTENKOPF.ID_ARA_KOPF,COUNT(*) AS N FROM LISTENKOPF INNER JOIN LOGS ON LOGS.LISTE = "
        "LISTENKOPF.LISTE WHERE LISTENKOPF.ID_ARA_KOPF IS NOT NULL GROUP BY LISTENKOPF.ID_ARA_KOPF ORDER BY "
        "N DESC");
    found.rate_owner = FirstNumber(
        "SELECT TOP 1 TABLE_ID,COUNT(*) AS N FROM ONETODATE WHERE TABLE_COLUMN = 'LOHNARTEN.SATZ' GROUP BY "
        "TABLE_ID ORDER BY N DESC");
    return found;
  }();
  return keys;
}

std::string StatementText(const std::string& file, const std::string& name) {
  for (const auto& block : ReadStatementFile(std::filesystem::path(TARVONI_STATEMENTS) / file))
    if (block.title == name) return block.text;
  throw std::runtime_error("no statement '" + name + "' in " + file);
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

sqlite::Handle& HandWritten() {
  static sqlite::Handle handle(DatabaseFile(), SQLITE_OPEN_READWRITE, std::chrono::milliseconds(5000));
  static const bool prepared = [] {
    handle.Execute("PRAGMA synchronous = EXTRA; PRAGMA foreign_keys = ON; PRAGMA temp_store = MEMORY;");
    return true;
  }();
  (void)prepared;
  return handle;
}

RowSet ReadAll(sqlite::Statement& statement, const std::string& types) {
  RowSet rows;
  rows.columns.resize(types.size());
  while (statement.Step())
    for (std::size_t i = 0; i < types.size(); ++i)
      rows.cells.push_back(ReadCell(statement.Raw(), static_cast<int>(i), types[i]));
  return rows;
}

}  // namespace tarvoni::bench

#pragma once

#include <memory>
#include <string>

#include "platform/sqlite/statement.h"
#include "src/context/data/database.h"

namespace tarvoni::bench {

// The large demo enterprise (scale 100) that all measurements share. TARVONI_BENCH_DB names the file, else it is
// out/bench.db; it is made when it does not exist yet, which takes minutes.
const std::string& DatabaseFile();
Connection& Database();

// What the statements ask for: the client with the most wage orders in the standard year, and the order with the
// most logs.
struct Keys {
  long long client = 0;
  std::string year;
  long long log_order = 0;
  long long rate_owner = 0;
};
const Keys& TheKeys();

// A block of the statement files by its name, with one text replaced by another wherever it stands.
std::string StatementText(const std::string& file, const std::string& name);
std::string Replaced(std::string text, const std::string& from, const std::string& to);

// The same file seen by hand-written SQLite code.
sqlite::Handle& HandWritten();

// All rows of a prepared statement as values: texts, whole numbers, and, by the letters of `types`, decimals
// ('0' to '9' places), flags ('b') and dates ('d'); 'i' and 't' for the rest.
RowSet ReadAll(sqlite::Statement& statement, const std::string& types);

}  // namespace tarvoni::bench

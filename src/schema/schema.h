#pragma once

#include <string>
#include <vector>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// Counts the changes of the schema; a file of a higher version belongs to a newer release.
inline constexpr int kSchemaVersion = 1;

// All tables and indexes as one Transact-SQL batch that a database administrator can run as it stands.
SqlText SchemaSql();

// The same, one statement each, every table before its indexes.
std::vector<SqlText> SchemaStatements();

// The indexes that a file gets beside them: over ISNULL(column,''), which no server knows.
std::vector<SqlText> FileIndexes();

struct SchemaIndex {
  std::string table, name;
  SqlText statement;
};

// All indexes of a file: those of the schema and its own.
std::vector<SchemaIndex> IndexesOfFile();

// The names of the tables.
std::vector<std::string> SchemaTables();

}  // namespace tarvoni

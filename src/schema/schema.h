#pragma once

#include <string>
#include <vector>

namespace tarvoni {

// Counts the changes of the schema; a file of a higher version belongs to a newer release.
inline constexpr int kSchemaVersion = 1;

// All tables and indexes as one Transact-SQL batch that a database administrator can run as it stands.
std::string SchemaSql();

// The same, one statement each, every table before its indexes.
std::vector<std::string> SchemaStatements();

}  // namespace tarvoni

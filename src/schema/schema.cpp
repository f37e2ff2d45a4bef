#include "src/schema/schema.h"

#include <array>
#include <string_view>

#include "src/schema/schema_parts.h"

namespace tarvoni {
namespace {

void AppendStatements(std::string_view part, std::vector<std::string>& statements) {
  constexpr std::string_view kBlankLine = "\n\n";
  while (!part.empty()) {
    const auto end = part.find(kBlankLine);
    std::string_view statement = part.substr(0, end);
    part.remove_prefix(end == part.npos ? part.size() : end + kBlankLine.size());
    while (statement.starts_with('\n')) statement.remove_prefix(1);
    while (statement.ends_with('\n')) statement.remove_suffix(1);
    if (!statement.empty()) statements.emplace_back(statement);
  }
}

}  // namespace

std::vector<std::string> SchemaStatements() {
  const std::array parts = {schema::kSettings, schema::kPersons, schema::kCodes,   schema::kNature,
                            schema::kTimber,   schema::kWage,    schema::kOrders,  schema::kPositions,
                            schema::kVouchers, schema::kStores,  schema::kMachines};
  std::vector<std::string> statements;
  for (const std::string_view part : parts) AppendStatements(part, statements);
  return statements;
}

std::string SchemaSql() {
  std::string sql;
  for (const std::string& statement : SchemaStatements()) sql += statement + "\n\n";
  return sql;
}

}  // namespace tarvoni

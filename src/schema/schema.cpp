#include "src/schema/schema.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "src/schema/schema_parts.h"

namespace tarvoni {
namespace {

// Takes a part apart at its blank lines; a line break stands before and behind the whole.
void AppendStatements(std::string_view part, std::vector<SqlText>& statements) {
  constexpr std::string_view kBlankLine = "\n\n";
  part = part.substr(1, part.size() - 2);
  for (std::size_t begin = 0, end = 0; begin < part.size(); begin = end + kBlankLine.size()) {
    end = std::min(part.find(kBlankLine, begin), part.size());
    statements.push_back(SqlText::Verbatim(std::string(part.substr(begin, end - begin))));
  }
}

}  // namespace

std::vector<SqlText> SchemaStatements() {
  const std::array parts = {schema::kSettings, schema::kPersons, schema::kCodes,   schema::kNature,
                            schema::kTimber,   schema::kWage,    schema::kOrders,  schema::kPositions,
                            schema::kVouchers, schema::kStores,  schema::kMachines};
  std::vector<SqlText> statements;
  for (const std::string_view part : parts) AppendStatements(part, statements);
  return statements;
}

SqlText SchemaSql() {
  std::string sql;
  for (const SqlText& statement : SchemaStatements()) sql.append(statement.Text()).append("\n\n");
  return SqlText::Verbatim(sql);
}

std::vector<std::string> SchemaTables() {
  constexpr std::string_view kCreate = "CREATE TABLE ";
  std::vector<std::string> names;
  for (const SqlText& made : SchemaStatements()) {
    const std::string_view statement = made.Text();
    const auto start = statement.find(kCreate);
    if (start == std::string_view::npos) continue;
    const auto name = start + kCreate.size();
    names.emplace_back(statement.substr(name, statement.find_first_of(" (", name) - name));
  }
  return names;
}

}  // namespace tarvoni

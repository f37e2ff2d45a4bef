#include "src/schema/schema.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

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

// The word behind another, up to a blank or parenthesis; empty when that is not in the text.
std::string WordBehind(std::string_view text, std::string_view other) {
  const auto found = text.find(other);
  if (found == std::string_view::npos) return {};
  const auto word = found + other.size();
  return std::string(text.substr(word, text.find_first_of(" (", word) - word));
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

std::vector<SqlText> FileIndexes() {
  std::vector<SqlText> statements;
  AppendStatements(schema::kFileIndexes, statements);
  return statements;
}

SqlText SchemaSql() {
  std::string sql;
  for (const SqlText& statement : SchemaStatements()) sql.append(statement.Text()).append("\n\n");
  return SqlText::Verbatim(sql);
}

std::vector<std::string> SchemaTables() {
  std::vector<std::string> names;
  for (const SqlText& statement : SchemaStatements())
    if (auto name = WordBehind(statement.Text(), "CREATE TABLE "); !name.empty())
      names.push_back(std::move(name));
  return names;
}

std::vector<SchemaIndex> IndexesOfFile() {
  std::vector<SqlText> statements = SchemaStatements();
  std::ranges::move(FileIndexes(), std::back_inserter(statements));
  std::vector<SchemaIndex> indexes;
  for (SqlText& statement : statements) {
    std::string name = WordBehind(statement.Text(), "CREATE INDEX ");
    if (name.empty()) continue;
    std::string table = WordBehind(statement.Text(), name + " ON ");
    indexes.push_back(
        {.table = std::move(table), .name = std::move(name), .statement = std::move(statement)});
  }
  return indexes;
}

}  // namespace tarvoni

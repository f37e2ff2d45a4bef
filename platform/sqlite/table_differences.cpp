#include "platform/sqlite/connection.h"

namespace tarvoni::sqlite {
namespace {

using tsql::ColumnDefinition;
using tsql::TableDefinition;

// What is wrong with a column that should be as `expected`, empty for nothing.
std::string DifferenceOf(const TableDefinition& table, const ColumnDefinition& expected) {
  const int found = table.Find(expected.name);
  if (found < 0) return "In der Tabelle " + table.name + " fehlt die Spalte " + expected.name + ".";
  const ColumnDefinition& column = table.columns[static_cast<std::size_t>(found)];
  const std::string name = "Die Spalte " + column.name + " der Tabelle " + table.name;
  if (column.type != expected.type)
    return name + " ist " + ToSql(column.type) + " statt " + ToSql(expected.type) + ".";
  if (expected.identity && !column.identity) return name + " vergibt keine Nummern.";
  return {};
}

}  // namespace

std::vector<std::string> DifferencesFrom(Connection& model, Connection& connection) {
  const auto& expected = dynamic_cast<SqliteConnection&>(model).Shared().Tables();
  const auto& actual = dynamic_cast<SqliteConnection&>(connection).Shared().Tables();
  std::vector<std::string> differences;
  for (const std::string& name : expected.Names()) {
    const auto table = actual.FindTable(name);
    if (!table) {
      differences.push_back("Die Tabelle " + name + " fehlt.");
      continue;
    }
    for (const ColumnDefinition& column : expected.FindTable(name)->columns) {
      std::string difference = DifferenceOf(*table, column);
      if (!difference.empty()) differences.push_back(std::move(difference));
    }
  }
  return differences;
}

}  // namespace tarvoni::sqlite

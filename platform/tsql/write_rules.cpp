#include "platform/tsql/write_rules.h"

namespace tarvoni::tsql {

int RequireTarget(const TableDefinition& table, const std::string& name, Position at) {
  const int column = table.Find(name);
  if (column < 0) throw Error(kUnknownColumn, "Invalid column name '" + name + "'.", at);
  return column;
}

bool IsRowNumber(const TableDefinition& table, int column) {
  return !table.unique_keys.empty() && table.unique_keys.front() == std::vector<int>{column} &&
         ColumnAt(table, column).type.kind == TypeKind::kInt && !ColumnAt(table, column).nullable;
}

void EmitStored(Emitter& emitter, const BoundExpression& value, bool row_number) {
  if (row_number) emitter.Text("IFNULL(");
  emitter.Finite(value);
  if (row_number) emitter.Text(",ts_raise(").Number(kNullRefused).Text("))");
}

}  // namespace tarvoni::tsql

#pragma once

#include <string>

#include "platform/tsql/emitter.h"
#include "platform/tsql/public/catalogue.h"

// What INSERT and UPDATE have in common.
namespace tarvoni::tsql {

inline constexpr int kNullRefused = 515;

inline const ColumnDefinition& ColumnAt(const TableDefinition& table, int index) {
  return table.columns[static_cast<size_t>(index)];
}

// A column that is written; error 207 if there is none of that name.
int RequireTarget(const TableDefinition& table, const std::string& name, Position at);

// The key that SQLite fills in by itself where a server complains of the missing value.
bool IsRowNumber(const TableDefinition& table, int column);

// A value on its way into a column: NULL is refused for a row's number.
void EmitStored(Emitter& emitter, const BoundExpression& value, bool row_number);

}  // namespace tarvoni::tsql

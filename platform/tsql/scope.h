#pragma once

#include <string_view>
#include <vector>

#include "platform/tsql/bound.h"

namespace tarvoni::tsql {

class ExpressionBinder;

// A table, or a query in place of one, under the name by which its columns are called.
struct VisibleSource {
  int id = 0;
  std::string_view exposed_name;
  const TableDefinition* table = nullptr;  // either this
  const BoundQuery* query = nullptr;       // or this

  int ColumnCount() const;
  int FindColumn(std::string_view name) const;  // -1 if there is none
  BoundPtr Column(int index, Position at) const;
  std::string_view ColumnName(int index) const;
};

// The names one SELECT can use: its own sources first, then those of the queries around it.
struct Scope {
  const Scope* outer = nullptr;
  std::vector<VisibleSource> sources;
  // Who binds the query inside a clause of this SELECT for which this is the outer scope.
  mutable ExpressionBinder* asking = nullptr;

  void Add(VisibleSource source, Position at);
  // Throws Error 207, 209 or 4104.
  BoundPtr Resolve(const ColumnName& name, Position at) const;
  const VisibleSource* FindSource(std::string_view name) const;
  bool Owns(int source) const;
};

}  // namespace tarvoni::tsql

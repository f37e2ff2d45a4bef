#pragma once

#include <string_view>
#include <vector>

#include "platform/tsql/bound.h"

namespace tarvoni::tsql {

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

  void Add(VisibleSource source, Position at);
  // Throws Error 207, 209 or 4104.
  BoundPtr Resolve(const ColumnName& name, Position at) const;
  const VisibleSource* FindSource(std::string_view name) const;
};

}  // namespace tarvoni::tsql

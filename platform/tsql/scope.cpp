#include "platform/tsql/scope.h"

#include <algorithm>

#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

[[noreturn]] void UnknownColumn(std::string_view name, Position at) {
  throw Error(kUnknownColumn, "Invalid column name '" + std::string(name) + "'.", at);
}

}  // namespace

int VisibleSource::ColumnCount() const {
  return static_cast<int>(table ? table->columns.size() : query->selects.front().items.size());
}

std::string_view VisibleSource::ColumnName(int index) const {
  const auto at = static_cast<size_t>(index);
  return table ? table->columns[at].name : query->selects.front().items[at].name;
}

int VisibleSource::FindColumn(std::string_view name) const {
  if (table) return table->Find(name);
  for (int index = 0; index < ColumnCount(); ++index)
    if (SameName(ColumnName(index), name)) return index;
  return -1;
}

BoundPtr VisibleSource::Column(int index, Position at) const {
  const auto place = static_cast<size_t>(index);
  if (table) {
    const ColumnDefinition& column = table->columns[place];
    return MakeValue(at, column.type, LimitOf(column.type), BoundColumn{id, index, column.name, true});
  }
  const BoundItem& item = query->selects.front().items[place];
  double limit = 0;
  for (const BoundSelect& select : query->selects) limit = std::max(limit, select.items[place].value->limit);
  // A column of nothing but NULL is an INT.
  const Type type = item.value->type.IsNull() ? Type::Int() : item.value->type;
  return MakeValue(at, type, limit, BoundColumn{id, index, item.name, false});
}

void Scope::Add(VisibleSource source, Position at) {
  if (FindSource(source.exposed_name) != nullptr)
    throw Error(
        kExposedNames,
        "The objects \"" + std::string(source.exposed_name) +
            "\" in the FROM clause have the same exposed names. Use correlation names to distinguish them.",
        at);
  sources.push_back(source);
}

const VisibleSource* Scope::FindSource(std::string_view name) const {
  for (const VisibleSource& source : sources)
    if (SameName(source.exposed_name, name)) return &source;
  return nullptr;
}

bool Scope::Owns(int source) const {
  return std::ranges::find(sources, source, &VisibleSource::id) != sources.end();
}

BoundPtr Scope::Resolve(const ColumnName& name, Position at) const {
  for (const Scope* scope = this; scope != nullptr; scope = scope->outer) {
    if (!name.table.empty()) {
      const VisibleSource* source = scope->FindSource(name.table);
      if (source == nullptr) continue;
      const int index = source->FindColumn(name.column);
      if (index < 0) UnknownColumn(name.column, at);
      return source->Column(index, at);
    }
    const VisibleSource* found = nullptr;
    int found_index = -1;
    for (const VisibleSource& source : scope->sources) {
      const int index = source.FindColumn(name.column);
      if (index < 0) continue;
      if (found != nullptr) throw Error(kAmbiguousColumn, "Ambiguous column name '" + name.column + "'.", at);
      found = &source;
      found_index = index;
    }
    if (found != nullptr) return found->Column(found_index, at);
  }
  if (name.table.empty()) UnknownColumn(name.column, at);
  throw Error(kUnboundIdentifier,
              "The multi-part identifier \"" + name.table + "." + name.column + "\" could not be bound.", at);
}

}  // namespace tarvoni::tsql

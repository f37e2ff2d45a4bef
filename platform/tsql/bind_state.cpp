#include "platform/tsql/bind_state.h"

#include <algorithm>

#include "platform/tsql/convert.h"

namespace tarvoni::tsql {

std::string QuoteName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::shared_ptr<const TableDefinition> BatchCatalogue::Find(std::string_view name) const {
  if (const Created* created = FindCreated(name)) return created->table;
  return IsTemporary(name) ? nullptr : database_->FindTable(name);
}

std::string BatchCatalogue::StoredName(std::string_view name) const {
  if (const Created* created = FindCreated(name)) return created->stored_name;
  const auto table = database_->FindTable(name);
  return "main." + QuoteName(table ? table->name : name);
}

// A name is created once at a time: DROP TABLE takes it out again.
const BatchCatalogue::Created* BatchCatalogue::FindCreated(std::string_view name) const {
  const auto found = std::ranges::find_if(
      created_, [&](const Created& created) { return SameName(created.table->name, name); });
  return found == created_.end() ? nullptr : &*found;
}

void BatchCatalogue::Create(TableDefinition table) {
  std::string stored = "main." + QuoteName(table.name);
  if (IsTemporary(table.name))
    stored = "temp." + QuoteName(table.name + "$" + suffix_ + "_" + std::to_string(++temporaries_));
  created_.push_back({std::make_shared<const TableDefinition>(std::move(table)), std::move(stored)});
}

void BatchCatalogue::AddKey(std::string_view name, std::vector<int> columns) {
  TableDefinition table = *Find(name);
  std::string stored_name = StoredName(name);
  table.unique_keys.push_back(std::move(columns));
  Drop(name);
  created_.push_back({std::make_shared<const TableDefinition>(std::move(table)), std::move(stored_name)});
}

void BatchCatalogue::Drop(std::string_view name) {
  std::erase_if(created_, [&](const Created& created) { return SameName(created.table->name, name); });
}

Type BindState::NaturalType(const BoundParameter& parameter) const {
  Type type = tsql::NaturalType(parameter.kind, LiteralText(parameter.literal));
  if (lexed->literals[static_cast<size_t>(parameter.literal)].national) type.ansi = false;
  return type;
}

BoundConstant BindState::Pin(const BoundParameter& parameter) {
  const std::string& text = LiteralText(parameter.literal);
  is_pinned.resize(lexed->literals.size());
  auto known = is_pinned[static_cast<size_t>(parameter.literal)];
  if (!known) pinned.push_back({parameter.literal, text});
  known = true;
  return {text, parameter.kind, parameter.converted};
}

}  // namespace tarvoni::tsql

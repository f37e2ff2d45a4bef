#include "platform/tsql/bind_state.h"

#include <algorithm>

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
  for (auto created = created_.rbegin(); created != created_.rend(); ++created)
    if (SameName(created->table->name, name)) return created->table;
  return IsTemporary(name) ? nullptr : database_->FindTable(name);
}

std::string BatchCatalogue::StoredName(std::string_view name) const {
  for (auto created = created_.rbegin(); created != created_.rend(); ++created)
    if (SameName(created->table->name, name)) return created->stored_name;
  const auto table = database_->FindTable(name);
  return "main." + QuoteName(table ? table->name : name);
}

bool BatchCatalogue::CreatedHere(std::string_view name) const {
  return std::any_of(created_.begin(), created_.end(),
                     [&](const Created& created) { return SameName(created.table->name, name); });
}

void BatchCatalogue::Create(TableDefinition table) {
  std::string stored = "main." + QuoteName(table.name);
  if (IsTemporary(table.name))
    stored = "temp." + QuoteName(table.name + "$" + suffix_ + "_" + std::to_string(++temporaries_));
  created_.push_back({std::make_shared<const TableDefinition>(std::move(table)), std::move(stored)});
}

void BatchCatalogue::Drop(std::string_view name) {
  std::erase_if(created_, [&](const Created& created) { return SameName(created.table->name, name); });
}

BoundConstant BindState::Pin(const BoundParameter& parameter) {
  const std::string& text = LiteralText(parameter.literal);
  const bool known = std::any_of(pinned.begin(), pinned.end(),
                                 [&](const PinnedLiteral& pin) { return pin.index == parameter.literal; });
  if (!known) pinned.push_back({parameter.literal, text});
  return {text, parameter.kind};
}

}  // namespace tarvoni::tsql

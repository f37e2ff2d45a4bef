#include "platform/sqlite/file_catalogue.h"

#include <algorithm>

#include "platform/tsql/public/runtime.h"

namespace tarvoni::sqlite {
namespace {

// A type that T-SQL does not know stands in no file of ours; as text it can at least be read.
tsql::Type DeclaredType(const std::string& declared) {
  return tsql::ParseType(declared).value_or(tsql::Type::VarChar(tsql::Type::kMaxLength));
}

}  // namespace

std::shared_ptr<const tsql::TableDefinition> FileCatalogue::FindTable(std::string_view name) const {
  if (const auto known = tables_.find(name); known != tables_.end()) return known->second;
  const auto& names = Names();
  const auto found =
      std::ranges::find_if(names, [&](const auto& each) { return tsql::SameName(each, name); });
  if (found == names.end()) return nullptr;
  // Other spellings of the name share one definition.
  auto table = name == *found ? Load(*found) : FindTable(*found);
  tables_.emplace(name, table);
  return table;
}

void FileCatalogue::Clear() {
  version_.reset();
  names_.reset();
  tables_.clear();
}

bool FileCatalogue::ClearIfChanged() {
  if (!version_ || *version_ == Version()) return false;
  Clear();
  return true;
}

const std::vector<std::string>& FileCatalogue::Names() const {
  if (names_) return *names_;
  version_ = Version();
  Statement query(handle_,
                  "SELECT name FROM main.sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' "
                  "ESCAPE '\\' AND name NOT IN (?1, ?2)");
  query.BindText(1, tsql::kIdentityTable);
  query.BindText(2, tsql::kMarkTable);
  std::vector<std::string> names;
  while (query.Step()) names.push_back(query.Text(0));
  return names_.emplace(std::move(names));
}

FileCatalogue::TablePtr FileCatalogue::Load(const std::string& name) const {
  auto table = std::make_shared<tsql::TableDefinition>();
  table->name = name;
  LoadColumns(*table);
  LoadIdentity(*table);
  return table;
}

void FileCatalogue::LoadColumns(tsql::TableDefinition& table) const {
  Statement query(handle_,
                  "SELECT name, type, \"notnull\", dflt_value IS NOT NULL, pk "
                  "FROM pragma_table_xinfo(?1, 'main') WHERE hidden = 0 ORDER BY cid");
  query.BindText(1, table.name);
  std::vector<std::pair<std::int64_t, int>> primary;
  while (query.Step()) {
    const std::int64_t place = query.Integer(4);
    if (place > 0) primary.emplace_back(place, static_cast<int>(table.columns.size()));
    tsql::ColumnDefinition column;
    column.name = query.Text(0);
    column.type = DeclaredType(query.Text(1));
    column.nullable = query.Integer(2) == 0 && place == 0;
    column.has_default = query.Integer(3) != 0;
    table.columns.push_back(std::move(column));
  }
  std::ranges::sort(primary);
  std::vector<int> key;
  key.reserve(primary.size());
  for (const auto& [place, column] : primary) key.push_back(column);
  LoadKeys(table, key);
  LoadIndexes(table);
}

void FileCatalogue::LoadKeys(tsql::TableDefinition& table, const std::vector<int>& primary) const {
  if (!primary.empty()) table.unique_keys.push_back(primary);
  // Keys over expressions (those of columns that may be NULL) have no column name and drop out.
  Statement query(handle_,
                  "SELECT list.seq, info.name FROM pragma_index_list(?1, 'main') AS list, "
                  "pragma_index_info(list.name, 'main') AS info "
                  "WHERE list.\"unique\" = 1 AND list.partial = 0 AND list.origin <> 'pk' "
                  "ORDER BY list.seq, info.seqno");
  query.BindText(1, table.name);
  std::map<std::int64_t, std::vector<int>> keys;
  while (query.Step()) keys[query.Integer(0)].push_back(query.IsNull(1) ? -1 : table.Find(query.Text(1)));
  for (auto& [place, key] : keys) {
    const bool named = std::ranges::find(key, -1) == key.end();
    if (named) table.unique_keys.push_back(std::move(key));
    table.has_other_keys |= !named;
  }
}

void FileCatalogue::LoadIndexes(tsql::TableDefinition& table) const {
  Statement query(handle_,
                  "SELECT info.name FROM pragma_index_list(?1, 'main') AS list, "
                  "pragma_index_info(list.name, 'main') AS info "
                  "WHERE list.partial = 0 AND info.seqno = 0 AND info.name IS NOT NULL");
  query.BindText(1, table.name);
  while (query.Step()) table.indexed.push_back(table.Find(query.Text(0)));
}

void FileCatalogue::LoadIdentity(tsql::TableDefinition& table) const {
  Statement notes(handle_, "SELECT 1 FROM main.sqlite_schema WHERE name = ?1");
  notes.BindText(1, tsql::kIdentityTable);
  if (!notes.Step()) return;
  Statement query(handle_, std::string("SELECT column_name, seed, step FROM main.") + tsql::kIdentityTable +
                               " WHERE table_name = ?1");
  query.BindText(1, table.name);
  if (!query.Step()) return;
  const int found = table.Find(query.Text(0));
  if (found < 0) return;
  auto& column = table.columns[static_cast<std::size_t>(found)];
  column.identity = true;
  column.seed = query.Integer(1);
  column.step = query.Integer(2);
}

}  // namespace tarvoni::sqlite

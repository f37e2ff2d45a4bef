#include "platform/sqlite/identity.h"

#include "platform/sqlite/statement.h"
#include "platform/tsql/public/runtime.h"

namespace tarvoni::sqlite {
namespace {

// "SELECT … FROM {identity table} …": the table's name stands in one place only.
std::string OnNotes(std::string_view before, std::string_view after) {
  return std::string(before) + ' ' + tsql::kIdentityTable + ' ' + std::string(after);
}

}  // namespace

bool IdentityValues::HasNotes() {
  if (read_) return true;
  Statement query(handle_, "SELECT 1 FROM sqlite_schema WHERE name = ?1");
  query.BindText(1, tsql::kIdentityTable);
  return query.Step();
}

void IdentityValues::Note(const tsql::TableDefinition& table) {
  const int column = table.IdentityColumn();
  if (column < 0) return;
  handle_.Execute(OnNotes("CREATE TABLE IF NOT EXISTS",
                          std::string("(table_name TEXT NOT NULL PRIMARY KEY COLLATE ") + tsql::kCollation +
                              ", column_name TEXT NOT NULL, seed INTEGER NOT NULL, step INTEGER NOT NULL, "
                              "last INTEGER) WITHOUT ROWID"));
  const auto& definition = table.columns[static_cast<std::size_t>(column)];
  Statement insert(handle_, OnNotes("INSERT OR REPLACE INTO", "VALUES (?1, ?2, ?3, ?4, NULL)"));
  insert.BindText(1, table.name);
  insert.BindText(2, definition.name);
  insert.BindInteger(3, definition.seed);
  insert.BindInteger(4, definition.step);
  insert.Run();
  std::erase_if(kept_, [&](const Sequence& sequence) { return tsql::SameName(sequence.table, table.name); });
}

void IdentityValues::Forget(const std::string& table) {
  std::erase_if(kept_, [&](const Sequence& sequence) { return tsql::SameName(sequence.table, table); });
  if (!HasNotes()) return;
  Statement remove(handle_, OnNotes("DELETE FROM", "WHERE table_name = ?1"));
  remove.BindText(1, table);
  remove.Run();
}

void IdentityValues::NoteTemporary(const tsql::TableDefinition& table) {
  ForgetTemporary(table.name);
  const int column = table.IdentityColumn();
  if (column < 0) return;
  const auto& definition = table.columns[static_cast<std::size_t>(column)];
  temporary_.push_front({table.name, definition.seed, definition.step, std::nullopt, false, true});
}

void IdentityValues::ForgetTemporary(std::string_view name) {
  std::erase_if(temporary_, [&](const Sequence& sequence) { return tsql::SameName(sequence.table, name); });
}

std::optional<std::int64_t> IdentityValues::Next(std::string_view table) {
  Sequence* sequence = Find(table);
  if (sequence == nullptr) return std::nullopt;
  std::int64_t next = sequence->seed;
  if (sequence->last && __builtin_add_overflow(*sequence->last, sequence->step, &next)) return std::nullopt;
  sequence->last = next;
  sequence->changed = true;
  return next;
}

std::optional<std::int64_t> IdentityValues::Current(std::string_view table) {
  const Sequence* sequence = Find(table);
  if (sequence == nullptr) return std::nullopt;
  return sequence->last.value_or(sequence->seed);
}

void IdentityValues::RaiseTo(std::string_view table, std::int64_t value) {
  Sequence* sequence = Find(table);
  if (sequence == nullptr) return;
  const bool upwards = sequence->step > 0;
  const bool beyond = !sequence->last ? (upwards ? value >= sequence->seed : value <= sequence->seed)
                                      : (upwards ? value > *sequence->last : value < *sequence->last);
  if (!beyond) return;
  sequence->last = value;
  sequence->changed = true;
}

void IdentityValues::Flush() {
  for (Sequence& sequence : kept_) {
    if (!sequence.changed) continue;
    if (!write_) {
      write_ = Statement(handle_, OnNotes("UPDATE", "SET last = ?2 WHERE table_name = ?1"),
                         Statement::Use::kOften);
    }
    write_.BindText(1, sequence.table);
    write_.BindInteger(2, sequence.last.value_or(sequence.seed));
    write_.Run();
    sequence.changed = false;
  }
}

void IdentityValues::EndTransaction(bool rolled_back) {
  kept_.clear();
  if (!rolled_back) return;
  read_ = {};
  write_ = {};
}

// The sequence used last stands in front: rows of one table come in a row.
IdentityValues::Sequence* IdentityValues::Find(std::string_view table) {
  if (!handle_.InTransaction()) kept_.clear();
  for (Sequences* sequences : {&temporary_, &kept_}) {
    for (auto found = sequences->begin(); found != sequences->end(); ++found) {
      if (!tsql::SameName(found->table, table)) continue;
      sequences->splice(sequences->begin(), *sequences, found);
      return &sequences->front();
    }
  }
  auto read = Read(table);
  if (!read) return nullptr;
  kept_.push_front(std::move(*read));
  return &kept_.front();
}

std::optional<IdentityValues::Sequence> IdentityValues::Read(std::string_view table) {
  if (!HasNotes()) return std::nullopt;
  if (!read_) {
    read_ = Statement(handle_, OnNotes("SELECT table_name, seed, step, last FROM", "WHERE table_name = ?1"),
                      Statement::Use::kOften);
  }
  const StatementScope scope(read_);
  read_.BindText(1, table);
  if (!read_.Step()) return std::nullopt;
  Sequence sequence{read_.Text(0), read_.Integer(1), read_.Integer(2), std::nullopt, false, false};
  if (!read_.IsNull(3)) sequence.last = read_.Integer(3);
  return sequence;
}

}  // namespace tarvoni::sqlite

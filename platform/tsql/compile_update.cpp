#include <algorithm>
#include <array>

#include "platform/tsql/convert.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/statement_compiler.h"
#include "platform/tsql/write_rules.h"

// UPDATE and DELETE. Both read the tables as they were before the statement.
namespace tarvoni::tsql {
namespace {

// The table whose rows a statement changes, as its expressions see it.
class Target {
 public:
  Target(BindState& state, std::shared_ptr<const TableDefinition> table, const std::string& name, Position at)
      : state_(state),
        table_(std::move(table)),
        stored_name_(state.tables->StoredName(name)),
        id_(state.next_source++) {
    scope_.Add({id_, name, table_.get(), nullptr}, at);
    state_.read.clear();
  }

  const TableDefinition& Table() const { return *table_; }
  const std::string& StoredName() const { return stored_name_; }
  BoundPtr NewValue(const Expression& value) {
    return ExpressionBinder(state_, scope_, {.aggregate_error = kAggregateInSet}).Value(value);
  }
  BoundPtr Where(const Expression* where) {
    return where ? ExpressionBinder(state_, scope_, {}).Condition(*where) : nullptr;
  }
  // Whether a query of the statement names the table itself.
  bool IsRead() const { return std::ranges::find(state_.read, table_) != state_.read.end(); }

  // The name by which SQLite knows the number of a row; a column may have taken the usual one.
  std::string_view RowNumber() const {
    constexpr std::array<std::string_view, 3> kNames = {"rowid", "_rowid_", "oid"};
    const auto* free = std::ranges::find_if(kNames, [&](auto name) { return table_->Find(name) < 0; });
    if (free == kNames.end())
      throw Error(kUnsupported, "A table with columns named ROWID, _ROWID_ and OID", {});
    return *free;
  }
  Emitter& EmitAlias(Emitter& emitter) const { return emitter.Text(" AS t").Number(id_); }
  Emitter& EmitColumn(Emitter& emitter, int column) const {
    return emitter.Text("t").Number(id_).Text(".").Name(ColumnAt(*table_, column).name);
  }
  // SELECT of the numbers of rows; what follows in the list is the caller's.
  Emitter& EmitRowNumbers(Emitter& emitter) const {
    return emitter.Text("SELECT t").Number(id_).Text(".").Text(RowNumber());
  }
  void EmitRows(Emitter& emitter, const BoundExpression* where) const {
    emitter.Text(" FROM ").Text(stored_name_);
    EmitAlias(emitter);
    EmitWhere(emitter, where);
  }
  static void EmitWhere(Emitter& emitter, const BoundExpression* where) {
    if (where) emitter.Text(" WHERE ").Expression(*where);
  }

 private:
  BindState& state_;
  std::shared_ptr<const TableDefinition> table_;
  std::string stored_name_;
  int id_;
  Scope scope_;
};

// Writes one UPDATE from what has been found out about it.
class UpdateWriter {
 public:
  UpdateWriter(Target& target, const UpdateStatement& update) : target_(target), table_(target.Table()) {
    for (const Assignment& assignment : update.assignments) Take(assignment);
    where_ = target.Where(update.where.get());
  }

  // With a FROM, SQLite works out all new values before it writes the first.
  Sql Update() const {
    Emitter emitter;
    target_.EmitAlias(emitter.Text("UPDATE ").Text(target_.StoredName())).Text(" SET ");
    bool first = true;
    for (size_t i = 0; i < values_.size(); ++i) {
      if (!values_[i]) continue;
      emitter.Text(first ? "" : ",").Name(table_.columns[i].name).Text("=");
      EmitNew(emitter, i);
      first = false;
    }
    if (target_.IsRead()) emitter.Text(" FROM (SELECT 1)");
    Target::EmitWhere(emitter, where_.get());
    return emitter.Take();
  }

  bool ChangesKey() const {
    const auto assigned = [&](int column) { return values_[static_cast<size_t>(column)] != nullptr; };
    return table_.has_other_keys || std::ranges::any_of(table_.unique_keys, [&](const auto& key) {
             return std::ranges::any_of(key, assigned);
           });
  }

  RowRewrite Rewrite() const {
    Emitter rows;
    target_.EmitRowNumbers(rows);
    const bool own_number = table_.columns.empty() || !HasRowNumber();
    std::string names = own_number ? std::string(target_.RowNumber()) : "", marks = own_number ? "?1" : "";
    for (size_t i = 0; i < values_.size(); ++i) {
      rows.Text(",");
      if (values_[i]) {
        EmitNew(rows, i);
      } else {
        target_.EmitColumn(rows, static_cast<int>(i));
      }
      names += (names.empty() ? "" : ",") + QuoteName(table_.columns[i].name);
      marks += (marks.empty() ? "?" : ",?") + std::to_string(i + 2);
    }
    target_.EmitRows(rows, where_.get());
    const std::string& name = target_.StoredName();
    return {rows.Take(), "DELETE FROM " + name + " WHERE " + std::string(target_.RowNumber()) + "=?1",
            "INSERT INTO " + name + "(" + names + ") VALUES (" + marks + ")"};
  }

 private:
  void Take(const Assignment& assignment) {
    const int column = RequireTarget(table_, assignment.column, assignment.at);
    if (ColumnAt(table_, column).identity)
      throw Error(kIdentityUpdate, "Cannot update identity column '" + assignment.column + "'.",
                  assignment.at);
    BoundPtr& value = values_[static_cast<size_t>(column)];
    if (value) FailTwice(assignment);
    value = ConvertTo(target_.NewValue(*assignment.value), ColumnAt(table_, column).type,
                      BoundConvert::Mode::kStore);
  }

  [[noreturn]] static void FailTwice(const Assignment& assignment) {
    throw Error(kDuplicateColumn,
                "The column name '" + assignment.column + "' is specified more than once in the SET clause.",
                assignment.at);
  }

  void EmitNew(Emitter& emitter, size_t column) const {
    EmitStored(emitter, *values_[column], IsRowNumber(table_, static_cast<int>(column)));
  }

  bool HasRowNumber() const {
    return !table_.unique_keys.empty() && table_.unique_keys.front().size() == 1 &&
           IsRowNumber(table_, table_.unique_keys.front().front());
  }

  Target& target_;
  const TableDefinition& table_;
  std::vector<BoundPtr> values_ = std::vector<BoundPtr>(table_.columns.size());  // null for columns that stay
  BoundPtr where_;
};

}  // namespace

void StatementCompiler::Compile(const UpdateStatement& update, Position at) {
  const auto table = RequireTable(update.table, update.table_at);
  Target target(state_, table, update.table, update.table_at);
  const UpdateWriter writer(target, update);
  WriteStep step{writer.Update(), table->name};
  if (writer.ChangesKey()) step.rewrite = writer.Rewrite();
  Add(at, std::move(step));
}

void StatementCompiler::Compile(const DeleteStatement& erase, Position at) {
  const auto table = RequireTable(erase.table, erase.table_at);
  Target target(state_, table, erase.table, erase.table_at);
  const BoundPtr where = target.Where(erase.where.get());
  Emitter emitter;
  emitter.Text("DELETE FROM ").Text(target.StoredName());
  if (target.IsRead()) {
    emitter.Text(" WHERE ").Text(target.RowNumber()).Text(" IN (");
    target.EmitRowNumbers(emitter);
    target.EmitRows(emitter, where.get());
    emitter.Text(")");
  } else {
    target.EmitAlias(emitter);
    Target::EmitWhere(emitter, where.get());
  }
  Add(at, WriteStep{emitter.Take(), table->name});
}

}  // namespace tarvoni::tsql

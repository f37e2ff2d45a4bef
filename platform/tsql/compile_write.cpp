#include <algorithm>

#include "platform/tsql/convert.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/query_binder.h"
#include "platform/tsql/statement_compiler.h"
#include "platform/tsql/type_rules.h"
#include "platform/tsql/write_rules.h"

// INSERT.
namespace tarvoni::tsql {
namespace {

// Without a list all columns but the identity.
std::vector<int> TargetColumns(const InsertStatement& insert, const TableDefinition& table) {
  std::vector<int> targets;
  if (insert.columns.empty()) {
    for (int column = 0; column < static_cast<int>(table.columns.size()); ++column)
      if (!ColumnAt(table, column).identity) targets.push_back(column);
    return targets;
  }
  for (const auto& [name, at] : insert.columns) {
    const int column = RequireTarget(table, name, at);
    if (std::find(targets.begin(), targets.end(), column) != targets.end())
      throw Error(kDuplicateColumn,
                  "The column name '" + name + "' is specified more than once in the column list.", at);
    targets.push_back(column);
  }
  return targets;
}

[[noreturn]] void WrongWidth(const InsertStatement& insert, const TableDefinition& table, size_t values,
                             size_t columns, Position at) {
  if (insert.columns.empty() && values == table.columns.size() && table.IdentityColumn() >= 0)
    throw Error(kIdentityWithoutList,
                "An explicit value for the identity column in table '" + table.name +
                    "' can only be specified when a column list is used and IDENTITY_INSERT is ON.",
                at);
  if (insert.columns.empty())
    throw Error(kWrongInsertWidth,
                "Column name or number of supplied values does not match table definition.", at);
  const bool fewer = values < columns;
  const int number = insert.query ? (fewer ? kFewerSelectColumns : kMoreSelectColumns)
                                  : (fewer ? kFewerValuesThanColumns : kMoreValuesThanColumns);
  throw Error(number,
              fewer ? "There are more columns in the INSERT statement than values given."
                    : "There are fewer columns in the INSERT statement than values given.",
              at);
}

std::string QuotedForSql(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

// Writes one INSERT from what has been found out about it.
class InsertEmitter {
 public:
  InsertEmitter(const TableDefinition& table, std::string stored_name, std::vector<int> targets,
                bool next_identity)
      : table_(table),
        stored_name_(std::move(stored_name)),
        targets_(std::move(targets)),
        next_identity_(next_identity) {
    emitter_.Text("INSERT INTO ").Text(stored_name_).Text("(");
    for (size_t i = 0; i < targets_.size(); ++i)
      emitter_.Text(i > 0 ? "," : "").Name(ColumnAt(table_, targets_[i]).name);
    if (next_identity_)
      emitter_.Text(targets_.empty() ? "" : ",").Name(ColumnAt(table_, table_.IdentityColumn()).name);
    emitter_.Text(") ");
  }

  Sql Values(const std::vector<std::vector<BoundPtr>>& rows) {
    for (size_t row = 0; row < rows.size(); ++row) {
      emitter_.Text(row == 0 ? "VALUES (" : ",(");
      for (size_t i = 0; i < rows[row].size(); ++i) {
        if (i > 0) emitter_.Text(",");
        EmitStored(emitter_, *rows[row][i], IsRowNumber(table_, targets_[i]));
      }
      Identity(rows[row].empty());
      emitter_.Text(")");
    }
    return emitter_.Take();
  }

  // The query is kept apart from the keys (SQLite does not merge a query with OFFSET into the one around it),
  // so that they are given in its order.
  Sql Rows(const BoundQuery& query) {
    emitter_.Text("SELECT ");
    for (size_t i = 0; i < targets_.size(); ++i) {
      const bool row_number = IsRowNumber(table_, targets_[i]);
      emitter_.Text(i > 0 ? "," : "")
          .Text(row_number ? "IFNULL(" : "")
          .Text("q.c")
          .Number(static_cast<long long>(i + 1));
      if (row_number) emitter_.Text(",ts_raise(").Number(kNullRefused).Text("))");
    }
    Identity(targets_.empty());
    const bool limited = query.selects.size() == 1 && query.selects.front().top.has_value();
    emitter_.Text(" FROM (");
    emitter_.DerivedQuery(query);
    emitter_.Text(limited ? " OFFSET 0) q" : " LIMIT -1 OFFSET 0) q");
    return emitter_.Take();
  }

 private:
  void Identity(bool first) {
    if (!next_identity_) return;
    emitter_.Text(first ? "" : ",").Text("ts_next_identity(").Text(QuotedForSql(table_.name)).Text(")");
  }

  const TableDefinition& table_;
  std::string stored_name_;
  std::vector<int> targets_;
  bool next_identity_;
  Emitter emitter_;
};

// An error that a server raises only when it reaches the statement; 0 for none.
RaiseStep RefusalOf(const TableDefinition& table, const std::vector<int>& targets, bool identity_insert) {
  const int identity = table.IdentityColumn();
  const auto given = [&](int column) {
    return std::find(targets.begin(), targets.end(), column) != targets.end();
  };
  if (identity >= 0 && given(identity) && !identity_insert)
    return {kExplicitIdentity, "Cannot insert explicit value for identity column in table '" + table.name +
                                   "' when IDENTITY_INSERT is set to OFF."};
  if (identity >= 0 && !given(identity) && identity_insert)
    return {kIdentityMissing, "Explicit value must be specified for identity column in table '" + table.name +
                                  "' when IDENTITY_INSERT is set to ON."};
  for (int column = 0; column < static_cast<int>(table.columns.size()); ++column)
    if (column != identity && !given(column) && IsRowNumber(table, column))
      return {kNullRefused, "Cannot insert the value NULL into column '" + ColumnAt(table, column).name +
                                "', table '" + table.name + "'; column does not allow nulls. INSERT fails."};
  return {};
}

}  // namespace

void StatementCompiler::Compile(const InsertStatement& insert, Position at) {
  const auto table = RequireTable(insert.table, insert.table_at);
  const bool identity_insert = SameName(state_.identity_insert, table->name);
  const std::vector<int> targets = TargetColumns(insert, *table);
  const bool next_identity =
      table->IdentityColumn() >= 0 &&
      std::find(targets.begin(), targets.end(), table->IdentityColumn()) == targets.end();
  InsertEmitter emitter(*table, state_.tables->StoredName(insert.table), targets, next_identity);
  const auto type_of = [&](size_t i) { return ColumnAt(*table, targets[i]).type; };
  Sql sql;
  if (insert.query) {
    BoundQueryPtr query = BindQuery(state_, nullptr, *insert.query, QueryPlace::kInsert);
    const size_t width = query->selects.front().items.size();
    if (width != targets.size()) WrongWidth(insert, *table, width, targets.size(), insert.values_at);
    for (size_t i = 0; i < width; ++i) ConvertColumn(*query, i, type_of(i), BoundConvert::Mode::kStore);
    sql = emitter.Rows(*query);
  } else {
    const Scope no_names;
    std::vector<std::vector<BoundPtr>> rows;
    for (const auto& row : insert.rows) {
      if (row.size() != targets.size())
        WrongWidth(insert, *table, row.size(), targets.size(), insert.values_at);
      auto& bound = rows.emplace_back();
      for (size_t i = 0; i < row.size(); ++i)
        bound.push_back(ConvertTo(ExpressionBinder(state_, no_names, {}).Value(*row[i]), type_of(i),
                                  BoundConvert::Mode::kStore));
    }
    sql = emitter.Values(rows);
  }
  if (RaiseStep refusal = RefusalOf(*table, targets, identity_insert); refusal.number != 0) {
    Add(at, std::move(refusal));
    return;
  }
  Add(at, WriteStep{std::move(sql), table->name});
}

}  // namespace tarvoni::tsql

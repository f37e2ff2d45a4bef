#include "platform/tsql/print.h"

#include "platform/tsql/printer.h"
#include "platform/tsql/words.h"

namespace tarvoni::tsql {
namespace {

constexpr std::string_view kJoins[] = {" INNER JOIN ", " LEFT JOIN ",  " RIGHT JOIN ",
                                       " FULL JOIN ",  " CROSS JOIN ", ", "};

template <class Node>
std::string PrintNode(const Node& node, const LexedBatch& lexed) {
  Printer printer(lexed);
  printer.Print(node);
  return printer.Take();
}

}  // namespace

std::string Print(const Batch& batch, const LexedBatch& lexed) {
  return PrintNode(batch, lexed);
}
std::string Print(const Statement& statement, const LexedBatch& lexed) {
  return PrintNode(statement, lexed);
}
std::string Print(const Query& query, const LexedBatch& lexed) {
  return PrintNode(query, lexed);
}
std::string Print(const Expression& expression, const LexedBatch& lexed) {
  return PrintNode(expression, lexed);
}

void Printer::Print(const Batch& batch) {
  for (const Statement& statement : batch.statements) {
    if (&statement != &batch.statements.front()) Add("\n");
    Print(statement);
  }
}

void Printer::Print(const Statement& statement) {
  std::visit([this](const auto& node) { Write(node); }, statement.node);
}

void Printer::AddName(std::string_view name) {
  if (NameLength(name) == name.size() && FindReservedWord(name).empty()) return Add(name);
  Add("[");
  for (const char c : name) Add(c == ']' ? "]]" : std::string_view(&c, 1));
  Add("]");
}

// Some functions bear reserved words as names.
void Printer::AddFunction(std::string_view name) {
  FindReservedWord(name).empty() ? AddName(name) : Add(name);
}

void Printer::AddAlias(std::string_view alias) {
  if (alias.empty()) return;
  Add(" AS ");
  AddName(alias);
}

void Printer::AddClause(std::string_view word, const ExpressionPtr& condition) {
  if (!condition) return;
  Add(word);
  Print(*condition);
}

void Printer::Print(const Query& query) {
  for (size_t i = 0; i < query.selects.size(); ++i) {
    if (i > 0) Add(query.union_all[i - 1] ? " UNION ALL " : " UNION ");
    Write(query.selects[i]);
  }
  if (query.order_by.empty()) return;
  Add(" ORDER BY ");
  AddList(query.order_by, [this](const OrderItem& item) {
    Print(*item.value);
    if (item.descending) Add(" DESC");
  });
}

void Printer::Write(const Select& select) {
  Add(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  if (select.top) {
    AddClause("TOP (", select.top);
    Add(") ");
  }
  AddList(select.items, [this](const SelectItem& item) { Write(item); });
  if (select.from) {
    Add(" FROM ");
    Write(*select.from);
  }
  AddClause(" WHERE ", select.where);
  if (!select.group_by.empty()) {
    Add(" GROUP BY ");
    AddList(select.group_by, [this](const ExpressionPtr& value) { Print(*value); });
  }
  AddClause(" HAVING ", select.having);
}

void Printer::Write(const SelectItem& item) {
  Print(*item.value);
  AddAlias(item.alias);
}

void Printer::Write(const TableSource& source) {
  std::visit([this](const auto& node) { Write(node); }, source.node);
}

void Printer::Write(const NamedTable& table) {
  AddName(table.name);
  AddAlias(table.alias);
}

void Printer::Write(const DerivedTable& table) {
  Add("(");
  Print(*table.query);
  Add(")");
  AddAlias(table.alias);
}

void Printer::Write(const Join& join) {
  Write(*join.left);
  Add(kJoins[static_cast<size_t>(join.kind)]);
  const bool brackets = join.kind != JoinKind::kComma && std::holds_alternative<Join>(join.right->node);
  if (brackets) Add("(");
  Write(*join.right);
  if (brackets) Add(")");
  AddClause(" ON ", join.on);
}

void Printer::Write(const SelectStatement& statement) {
  Print(*statement.query);
}

void Printer::Write(const InsertStatement& statement) {
  Add("INSERT INTO ");
  AddName(statement.table);
  if (!statement.columns.empty()) {
    Add(" ");
    AddBracketedList(statement.columns, [this](const auto& column) { AddName(column.first); });
  }
  Add(statement.query ? " " : " VALUES ");
  if (statement.query) return Print(*statement.query);
  AddList(statement.rows, [this](const auto& row) {
    AddBracketedList(row, [this](const ExpressionPtr& value) { Print(*value); });
  });
}

void Printer::Write(const UpdateStatement& statement) {
  Add("UPDATE ");
  AddName(statement.table);
  Add(" SET ");
  AddList(statement.assignments, [this](const Assignment& assignment) {
    AddName(assignment.column);
    AddClause(" = ", assignment.value);
  });
  AddClause(" WHERE ", statement.where);
}

void Printer::Write(const DeleteStatement& statement) {
  Add("DELETE FROM ");
  AddName(statement.table);
  AddClause(" WHERE ", statement.where);
}

void Printer::Write(const CreateTableStatement& statement) {
  Add("CREATE TABLE ");
  AddName(statement.table);
  Add(" (");
  AddList(statement.columns, [this](const ColumnSyntax& column) { Write(column); });
  for (const KeyConstraint& key : statement.keys) Write(key);
  for (const ForeignKey& key : statement.foreign_keys) Write(key);
  for (const ExpressionPtr& check : statement.checks) {
    AddClause(", CHECK (", check);
    Add(")");
  }
  Add(")");
}

void Printer::Write(const ColumnSyntax& column) {
  AddName(column.name);
  Add(" " + ToSql(column.type));
  if (column.identity) {
    Add(" IDENTITY(" + std::to_string(column.seed) + ", " + std::to_string(column.step) + ")");
  }
  if (column.nullable) Add(*column.nullable ? " NULL" : " NOT NULL");
  AddClause(" DEFAULT ", column.default_value);
}

void Printer::Write(const KeyConstraint& key) {
  Add(", ");
  if (!key.name.empty()) {
    Add("CONSTRAINT ");
    AddName(key.name);
    Add(" ");
  }
  Add(key.primary ? "PRIMARY KEY " : "UNIQUE ");
  AddNames(key.columns);
}

void Printer::Write(const ForeignKey& key) {
  Add(", FOREIGN KEY ");
  AddNames(key.columns);
  Add(" REFERENCES ");
  AddName(key.table);
  if (!key.referenced.empty()) AddNames(key.referenced);
}

void Printer::AddNames(const std::vector<std::string>& names) {
  AddBracketedList(names, [this](const std::string& name) { AddName(name); });
}

void Printer::Write(const CreateIndexStatement& statement) {
  Add(statement.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ");
  AddName(statement.name);
  Add(" ON ");
  AddName(statement.table);
  Add(" ");
  AddBracketedList(statement.columns, [this](const auto& column) {
    if (column.null_is_blank) Add("ISNULL(");
    AddName(column.name);
    if (column.null_is_blank) Add(",'')");
    if (column.descending) Add(" DESC");
  });
}

void Printer::Write(const DropTableStatement& statement) {
  Add("DROP TABLE ");
  AddName(statement.table);
}

void Printer::Write(const BlockStatement& statement) {
  Add("BEGIN\n");
  for (const Statement& inner : statement.body) {
    Print(inner);
    Add("\n");
  }
  Add("END");
}

void Printer::Write(const IfStatement& statement) {
  AddClause("IF ", statement.condition);
  Add("\n");
  Print(*statement.then);
  if (!statement.otherwise) return;
  Add("\nELSE\n");
  Print(*statement.otherwise);
}

void Printer::Write(const SetNocount& statement) {
  Add(statement.on ? "SET NOCOUNT ON" : "SET NOCOUNT OFF");
}

void Printer::Write(const SetDateFormat& statement) {
  Add("SET DATEFORMAT " + statement.format);
}

void Printer::Write(const SetIdentityInsert& statement) {
  Add("SET IDENTITY_INSERT ");
  AddName(statement.table);
  Add(statement.on ? " ON" : " OFF");
}

}  // namespace tarvoni::tsql

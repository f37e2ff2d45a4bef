#include <algorithm>

#include "platform/tsql/convert.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/public/runtime.h"
#include "platform/tsql/statement_compiler.h"

// CREATE TABLE, CREATE INDEX and DROP TABLE.
namespace tarvoni::tsql {
namespace {

// Each one makes SQLite go through all others and through everything prepared.
constexpr int kMostTemporaryTables = 250;

int RequireColumn(const TableDefinition& table, const std::string& name, Position at) {
  const int column = table.Find(name);
  if (column < 0) throw Error(1911, "Column name '" + name + "' does not exist in the target table.", at);
  return column;
}

std::vector<int> KeyColumns(const TableDefinition& table, const std::vector<std::string>& names,
                            Position at) {
  std::vector<int> columns;
  columns.reserve(names.size());
  for (const std::string& name : names) columns.push_back(RequireColumn(table, name, at));
  return columns;
}

TableDefinition Define(const CreateTableStatement& create) {
  TableDefinition table{create.table, {}, {}};
  for (const ColumnSyntax& column : create.columns) {
    if (table.Find(column.name) >= 0)
      throw Error(2705,
                  "Column names in each table must be unique. Column name '" + column.name +
                      "' is specified more than once.",
                  column.at);
    if (column.identity && table.IdentityColumn() >= 0)
      throw Error(kSecondIdentity,
                  "Multiple identity columns specified for table '" + create.table +
                      "'. Only one identity column per table is allowed.",
                  column.at);
    const bool nullable = column.nullable.value_or(!column.identity);
    table.columns.push_back({column.name, column.type, nullable, column.identity, column.seed, column.step,
                             column.default_value != nullptr});
  }
  for (const KeyConstraint& key : create.keys) {
    const auto columns = KeyColumns(table, key.columns, create.table_at);
    if (key.primary)
      for (const int column : columns) table.columns[static_cast<size_t>(column)].nullable = false;
    table.unique_keys.insert(key.primary ? table.unique_keys.begin() : table.unique_keys.end(), columns);
  }
  return table;
}

// SQLite keeps the rows of a table by a single whole-number key, and needs no index for it then.
bool IsRowNumberKey(const TableDefinition& table, const KeyConstraint& key) {
  return key.primary && key.columns.size() == 1 &&
         table.columns[static_cast<size_t>(table.Find(key.columns.front()))].type.kind == TypeKind::kInt;
}

bool AllRequired(const TableDefinition& table, const std::vector<std::string>& columns) {
  return std::none_of(columns.begin(), columns.end(), [&](const std::string& name) {
    return table.columns[static_cast<size_t>(table.Find(name))].nullable;
  });
}

std::string NameList(const std::vector<std::string>& names) {
  std::string list = "(";
  for (const std::string& name : names) list += (list.size() > 1 ? "," : "") + QuoteName(name);
  return list + ")";
}

// A unique column admits one NULL only: NULL counts as a value of its own in the index.
std::string UniqueTerm(const ColumnDefinition& column) {
  std::string term = QuoteName(column.name);
  if (column.nullable) term = "IFNULL(" + term + ",x'')";
  if (column.type.IsText()) term += std::string(" COLLATE ") + kCollation;
  return term;
}

// As the emitter writes ISNULL(column,'') in a comparison: only then does SQLite see that the index serves it.
std::string BlankTerm(const ColumnDefinition& column, bool unique, Position at) {
  if (unique || !column.type.IsText())
    throw Error(kUnsupported, "An index over ISNULL(column,'') is not unique, and of texts.", at);
  return "IFNULL(" + QuoteName(column.name) + ",'') COLLATE " + kCollation;
}

// Index names are the table's own on a server, the whole file's in SQLite.
std::string StoredIndexName(const std::string& schema, const std::string& table, const std::string& name) {
  return schema + QuoteName(table + "." + name);
}

std::string SchemaOf(const std::string& stored_name) {
  return stored_name.substr(0, stored_name.find('.') + 1);
}

// The declared type as SQLite can read it and the catalogue reads it back: its syntax knows no (MAX).
std::string StoredType(const Type& type) {
  if (!type.IsText() || type.length < Type::kMaxLength) return ToSql(type);
  return (type.ansi ? "VARCHAR(" : "NVARCHAR(") + std::to_string(Type::kMaxLength) + ")";
}

class TableWriter {
 public:
  TableWriter(BindState& state, const CreateTableStatement& create, const TableDefinition& table,
              std::string stored_name)
      : state_(state), create_(create), table_(table), stored_name_(std::move(stored_name)) {
    scope_.Add({0, create.table, &table_, nullptr}, create.table_at);
  }

  std::vector<std::string> Write() {
    std::string text = "CREATE TABLE " + stored_name_ + " (";
    for (size_t i = 0; i < create_.columns.size(); ++i) text += (i > 0 ? "," : "") + ColumnText(i);
    for (const KeyConstraint& key : create_.keys) text += KeyText(key);
    for (const ForeignKey& key : create_.foreign_keys)
      text += ",FOREIGN KEY " + NameList(key.columns) + " REFERENCES " + QuoteName(key.table) +
              (key.referenced.empty() ? "" : NameList(key.referenced));
    for (const ExpressionPtr& check : create_.checks)
      text += ",CHECK(" + ExpressionText(*Binder().Condition(*check)) + ")";
    std::vector<std::string> all{text + ")"};
    std::move(indexes_.begin(), indexes_.end(), std::back_inserter(all));
    return all;
  }

 private:
  ExpressionBinder Binder() { return ExpressionBinder(state_, scope_, {.pin_literals = true}); }

  static std::string ExpressionText(const BoundExpression& expression) {
    Emitter emitter(Emitter::ColumnStyle::kBare);
    emitter.Expression(expression);
    return emitter.Take().text;
  }

  std::string ColumnText(size_t index) {
    const ColumnDefinition& column = table_.columns[index];
    std::string text = QuoteName(column.name) + " ";
    const bool row_number =
        std::any_of(create_.keys.begin(), create_.keys.end(), [&](const KeyConstraint& key) {
          return IsRowNumberKey(table_, key) && SameName(key.columns.front(), column.name);
        });
    if (row_number) return text + "INTEGER PRIMARY KEY";
    text += StoredType(column.type);
    if (column.type.IsText()) text += std::string(" COLLATE ") + kCollation;
    if (!column.nullable) text += " NOT NULL";
    if (create_.columns[index].default_value) {
      BoundPtr value = Binder().Value(*create_.columns[index].default_value);
      text += " DEFAULT (" +
              ExpressionText(*ConvertTo(std::move(value), column.type, BoundConvert::Mode::kStore)) + ")";
    }
    return text;
  }

  std::string KeyText(const KeyConstraint& key) {
    if (IsRowNumberKey(table_, key)) return "";
    if (key.primary) return ",PRIMARY KEY " + NameList(key.columns);
    if (AllRequired(table_, key.columns)) return ",UNIQUE " + NameList(key.columns);
    std::string terms;
    for (const std::string& name : key.columns)
      terms +=
          (terms.empty() ? "" : ",") + UniqueTerm(table_.columns[static_cast<size_t>(table_.Find(name))]);
    const std::string name = kConstraintIndex + std::to_string(indexes_.size() + 1);
    indexes_.push_back("CREATE UNIQUE INDEX " + StoredIndexName(SchemaOf(stored_name_), create_.table, name) +
                       " ON " + stored_name_.substr(SchemaOf(stored_name_).size()) + "(" + terms + ")");
    return "";
  }

  BindState& state_;
  const CreateTableStatement& create_;
  const TableDefinition& table_;
  std::string stored_name_;
  Scope scope_;
  std::vector<std::string> indexes_;
};

}  // namespace

void StatementCompiler::Compile(const CreateTableStatement& create, Position at) {
  const bool temporary = IsTemporary(create.table);
  if (temporary && state_.tables->CreatedHere(create.table))
    throw Error(kTableExists, "There is already an object named '" + create.table + "' in the database.",
                create.table_at);
  if (temporary && state_.tables->Temporaries() >= kMostTemporaryTables)
    throw Error(kUnsupported,
                "A batch with more than " + std::to_string(kMostTemporaryTables) +
                    " temporary tables is not supported.",
                create.table_at);
  TableDefinition table = Define(create);
  state_.tables->Create(table);
  std::string stored = state_.tables->StoredName(create.table);
  std::vector<std::string> sql = TableWriter(state_, create, table, stored).Write();
  Add(at, CreateTableStep{std::move(table), std::move(stored), temporary, std::move(sql)});
  plan_.reusable = plan_.reusable && temporary;
}

void StatementCompiler::Compile(const CreateIndexStatement& create, Position at) {
  const auto table = RequireTable(create.table, create.table_at);
  const std::string stored = state_.tables->StoredName(create.table);
  std::string terms;
  std::vector<int> columns;
  for (const IndexColumn& part : create.columns) {
    columns.push_back(RequireColumn(*table, part.name, create.table_at));
    const ColumnDefinition& column = table->columns[static_cast<size_t>(columns.back())];
    const std::string term = part.null_is_blank ? BlankTerm(column, create.unique, create.table_at)
                             : create.unique    ? UniqueTerm(column)
                                                : QuoteName(column.name);
    terms += (terms.empty() ? "" : ",") + term + (part.descending ? " DESC" : "");
  }
  Add(at, CreateIndexStep{"CREATE " + std::string(create.unique ? "UNIQUE " : "") + "INDEX " +
                          StoredIndexName(SchemaOf(stored), table->name, create.name) + " ON " +
                          stored.substr(SchemaOf(stored).size()) + "(" + terms + ")"});
  if (create.unique) state_.tables->AddKey(create.table, std::move(columns));
  plan_.reusable = false;
}

void StatementCompiler::Compile(const DropTableStatement& drop, Position at) {
  const bool temporary = IsTemporary(drop.table);
  const bool known = state_.tables->Find(drop.table) != nullptr;
  Add(at,
      DropTableStep{drop.table, known ? state_.tables->StoredName(drop.table) : std::string(), temporary});
  state_.tables->Drop(drop.table);
  plan_.reusable = plan_.reusable && temporary;
}

}  // namespace tarvoni::tsql

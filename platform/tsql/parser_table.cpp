#include <charconv>

#include "platform/tsql/parser_impl.h"

namespace tarvoni::tsql {

CreateTableStatement Parser::ParseCreateTable() {
  Expect("CREATE");
  Expect("TABLE");
  CreateTableStatement table;
  table.table = ParseTableName(table.table_at);
  ParseBracketedList([&] {
    if (MatchKind(TokenKind::kName) || table.columns.empty()) {
      ParseColumn(table);
    } else {
      ParseTableConstraint(table);
    }
  });
  Refuse({{"ON", "CREATE TABLE … ON"}, {"WITH", "CREATE TABLE … WITH"}});
  return table;
}

void Parser::ParseColumn(CreateTableStatement& table) {
  const Token& name = ExpectName();
  if (Match("AS")) FailUnsupported("A computed column");
  ColumnSyntax column;
  column.at = name.at;
  column.name = name.text;
  column.type = ParseTypeName(kDeclaredLength);
  while (ParseColumnProperty(table, column)) continue;
  table.columns.push_back(std::move(column));
}

// One of the words behind a column's type; false when there is none.
bool Parser::ParseColumnProperty(CreateTableStatement& table, ColumnSyntax& column) {
  Refuse({{"COLLATE", "COLLATE"}});
  if (ConsumeIf("NULL")) {
    column.nullable = true;
  } else if (ConsumeIf("NOT")) {
    Expect("NULL");
    column.nullable = false;
  } else if (ConsumeIf("IDENTITY")) {
    ParseIdentity(column);
  } else if (ConsumeIf("DEFAULT")) {
    column.default_value = ParseValue();
  } else {
    return ParseColumnConstraint(table, column);
  }
  return true;
}

void Parser::ParseIdentity(ColumnSyntax& column) {
  column.identity = true;
  if (!ConsumeIf("(")) return;
  column.seed = ParseSignedInteger();
  Expect(",");
  column.step = ParseSignedInteger();
  Expect(")");
}

bool Parser::ParseColumnConstraint(CreateTableStatement& table, ColumnSyntax& column) {
  const bool named = Match("CONSTRAINT");
  std::string name = ParseConstraintName();
  if (Match("PRIMARY") || Match("UNIQUE")) {
    KeyConstraint key = ParseKeyWords(std::move(name));
    key.columns = {column.name};
    table.keys.push_back(std::move(key));
  } else if (Match("CHECK")) {
    table.checks.push_back(ParseCheck());
  } else if (Match("REFERENCES") || Match("FOREIGN")) {
    if (ConsumeIf("FOREIGN")) Expect("KEY");
    ForeignKey key = ParseReferences();
    key.columns = {column.name};
    table.foreign_keys.push_back(std::move(key));
  } else if (named) {
    Expect("DEFAULT");
    column.default_value = ParseValue();
  } else {
    return false;
  }
  return true;
}

void Parser::ParseTableConstraint(CreateTableStatement& table) {
  std::string name = ParseConstraintName();
  if (Match("PRIMARY") || Match("UNIQUE")) {
    KeyConstraint key = ParseKeyWords(std::move(name));
    ParseBracketedList([&] { key.columns.push_back(ParseIndexColumn().name); });
    table.keys.push_back(std::move(key));
  } else if (ConsumeIf("FOREIGN")) {
    Expect("KEY");
    std::vector<std::string> columns = ParseColumnNames();
    ForeignKey key = ParseReferences();
    key.columns = std::move(columns);
    table.foreign_keys.push_back(std::move(key));
  } else {
    table.checks.push_back(ParseCheck());
  }
}

std::string Parser::ParseConstraintName() {
  return ConsumeIf("CONSTRAINT") ? std::string(ExpectName().text) : std::string();
}

// PRIMARY KEY or UNIQUE, without its columns. How a key is clustered makes no difference here.
KeyConstraint Parser::ParseKeyWords(std::string name) {
  KeyConstraint key{std::move(name), ConsumeIf("PRIMARY"), {}};
  Expect(key.primary ? "KEY" : "UNIQUE");
  if (!ConsumeIf("CLUSTERED")) ConsumeIf("NONCLUSTERED");
  return key;
}

ExpressionPtr Parser::ParseCheck() {
  Expect("CHECK");
  Expect("(");
  ExpressionPtr condition = ParseCondition();
  Expect(")");
  return condition;
}

ForeignKey Parser::ParseReferences() {
  Expect("REFERENCES");
  ForeignKey key;
  Position at;
  key.table = ParseTableName(at);
  if (Match("(")) key.referenced = ParseColumnNames();
  Refuse({{"ON", "ON DELETE and ON UPDATE"}});
  return key;
}

std::vector<std::string> Parser::ParseColumnNames() {
  std::vector<std::string> names;
  ParseBracketedList([&] { names.emplace_back(ExpectName().text); });
  return names;
}

IndexColumn Parser::ParseIndexColumn() {
  IndexColumn column{std::string(ExpectName().text)};
  column.descending = ConsumeIf("DESC");
  if (!column.descending) ConsumeIf("ASC");
  return column;
}

// A column, or ISNULL(column,''), which no server has here: an index over what a condition compares.
IndexColumn Parser::ParseIndexTerm() {
  if (!Match("(", 1)) return ParseIndexColumn();
  const auto require = [this](bool holds) {
    if (!holds) FailUnsupported("An index over an expression other than ISNULL(column,'')");
  };
  require(MatchName("ISNULL"));
  Consume();
  Expect("(");
  IndexColumn column{std::string(ExpectName().text), false, true};
  Expect(",");
  require(MatchKind(TokenKind::kText) && Peek().text.empty());
  Consume();
  Expect(")");
  return column;
}

CreateIndexStatement Parser::ParseCreateIndex() {
  Expect("CREATE");
  CreateIndexStatement index;
  index.unique = ConsumeIf("UNIQUE");
  if (!ConsumeIf("CLUSTERED")) ConsumeIf("NONCLUSTERED");
  Expect("INDEX");
  index.name = ExpectName().text;
  Expect("ON");
  index.table = ParseTableName(index.table_at);
  ParseBracketedList([&] { index.columns.push_back(ParseIndexTerm()); });
  Refuse({{"INCLUDE", "CREATE INDEX … INCLUDE"},
          {"WHERE", "CREATE INDEX … WHERE"},
          {"WITH", "CREATE INDEX … WITH"},
          {"ON", "CREATE INDEX … ON"}});
  return index;
}

Type Parser::ParseTypeName(int default_length) {
  const Token* const begin = next_;
  const Token& word = Match("DOUBLE") ? Consume() : ExpectName();
  std::string name(word.text);
  if (word.kind == TokenKind::kKeyword) name += ' ' + std::string(Expect("PRECISION").text);
  int numbers[] = {-1, -1};
  if (ConsumeIf("(")) {
    numbers[0] = ParseTypeNumber();
    if (ConsumeIf(",")) numbers[1] = ParseTypeNumber();
    Expect(")");
  }
  auto type = TypeFromName(name, numbers[0], numbers[1]);
  if (!type) {
    std::string written;
    for (const Token* token = begin; token != next_; ++token) written += token->text;
    throw Error(kUnsupported, "The type " + written + " is not supported.", word.at);
  }
  const bool length_due = type->IsText() && type->length != Type::kMaxLength && numbers[0] < 0;
  if (length_due) type->length = default_length;
  return *type;
}

// MAX or digits.
int Parser::ParseTypeNumber() {
  if (!MatchName("MAX")) return static_cast<int>(ParseInteger(TokenKind::kInteger));
  Consume();
  return Type::kMaxLength;
}

// A seed may be larger than an INT, and is then written as a decimal.
long long Parser::ParseSignedInteger() {
  const bool negative = ConsumeIf("-");
  if (!negative) ConsumeIf("+");
  const long long number =
      ParseInteger(MatchKind(TokenKind::kDecimal) ? TokenKind::kDecimal : TokenKind::kInteger);
  return negative ? -number : number;
}

long long Parser::ParseInteger(TokenKind kind) {
  const Token& token = ExpectPinned(kind);
  const std::string& digits = lexed_.literals[token.literal].text;
  const char* end = digits.data() + digits.size();
  long long number = 0;
  const auto result = std::from_chars(digits.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) {
    throw Error(kSyntax, "Incorrect syntax near '" + digits + "'.", token.at);
  }
  return number;
}

}  // namespace tarvoni::tsql

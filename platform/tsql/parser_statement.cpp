#include <algorithm>
#include <array>

#include "platform/tsql/parser_impl.h"
#include "platform/tsql/public/catalogue.h"

namespace tarvoni::tsql {
namespace {

// Words that begin a statement which T-SQL has and this front end has not.
constexpr std::string_view kForeignStatements[] = {
    "MERGE",   "EXEC",       "EXECUTE",   "DECLARE",    "WHILE",  "WITH",     "PRINT",       "RAISERROR",
    "RETURN",  "GOTO",       "WAITFOR",   "USE",        "BACKUP", "RESTORE",  "COMMIT",      "ROLLBACK",
    "SAVE",    "GRANT",      "REVOKE",    "DENY",       "OPEN",   "CLOSE",    "FETCH",       "DEALLOCATE",
    "DBCC",    "CHECKPOINT", "BREAK",     "CONTINUE",   "KILL",   "SHUTDOWN", "RECONFIGURE", "REVERT",
    "SETUSER", "READTEXT",   "WRITETEXT", "UPDATETEXT", "THROW"};

constexpr std::string_view kDateOrders[] = {"dmy", "mdy", "ymd", "ydm", "myd", "dym"};

}  // namespace

Statement Parser::ParseStatement() {
  const Nesting nesting(*this);
  const Position at = Peek().at;
  return {at, ParseStatementNode()};
}

decltype(Statement::node) Parser::ParseStatementNode() {
  if (MatchQuery()) return SelectStatement{ParseQuery()};
  if (Match("INSERT")) return ParseInsert();
  if (Match("UPDATE")) return ParseUpdate();
  if (Match("DELETE")) return ParseDelete();
  if (Match("IF")) return ParseIf();
  if (Match("BEGIN")) return ParseBlock();
  if (Match("SET")) return ParseSet();
  if (Match("CREATE")) return ParseCreate();
  if (Match("DROP")) return ParseDrop();
  for (const std::string_view word : {"ALTER", "TRUNCATE", "BULK"}) {
    if (ConsumeIf(word)) FailForeign(word);
  }
  for (const std::string_view word : kForeignStatements) Refuse({{word, word}});
  FailUnexpected();
}

// `verb` was the last word; T-SQL knows it with the next one, but this front end does not.
void Parser::FailForeign(std::string_view verb) const {
  if (!MatchKind(TokenKind::kKeyword) && !MatchKind(TokenKind::kName)) FailUnexpected();
  FailUnsupported(std::string(verb) + ' ' + std::string(Peek().text));
}

std::string Parser::ParseTableName(Position& at) {
  const Token& name = ExpectName();
  at = name.at;
  if (Match(".")) FailUnsupported("A table name of several parts");
  return std::string(name.text);
}

ExpressionPtr Parser::ParseWhere() {
  if (!ConsumeIf("WHERE")) return nullptr;
  Refuse({{"CURRENT", "WHERE CURRENT OF"}});
  return ParseCondition();
}

InsertStatement Parser::ParseInsert() {
  InsertStatement insert;
  Expect("INSERT");
  Refuse({{"TOP", "INSERT TOP"}});
  ConsumeIf("INTO");
  insert.table = ParseTableName(insert.table_at);
  if (Match("(") && !MatchQuery()) {
    ParseBracketedList([&] {
      const Token& column = ExpectName();
      insert.columns.emplace_back(column.text, column.at);
    });
  }
  Refuse({{"OUTPUT", "OUTPUT"},
          {"DEFAULT", "INSERT … DEFAULT VALUES"},
          {"EXEC", "INSERT … EXEC"},
          {"EXECUTE", "INSERT … EXECUTE"},
          {"WITH", "A table hint"}});
  insert.values_at = Peek().at;
  if (!ConsumeIf("VALUES")) {
    if (!MatchQuery()) FailUnexpected();
    insert.query = ParseQuery();
    return insert;
  }
  ParseList([&] {
    auto& row = insert.rows.emplace_back();
    ParseBracketedList([&] { row.push_back(ParseValue()); });
  });
  return insert;
}

UpdateStatement Parser::ParseUpdate() {
  UpdateStatement update;
  Expect("UPDATE");
  Refuse({{"TOP", "UPDATE TOP"}, {"STATISTICS", "UPDATE STATISTICS"}});
  update.table = ParseTableName(update.table_at);
  Refuse({{"WITH", "A table hint"}});
  Expect("SET");
  ParseList([&] { update.assignments.push_back(ParseAssignment(update.table)); });
  Refuse({{"FROM", "UPDATE … FROM"}, {"OUTPUT", "OUTPUT"}});
  update.where = ParseWhere();
  Refuse({{"OPTION", "OPTION"}});
  return update;
}

Assignment Parser::ParseAssignment(const std::string& table) {
  const Token* column = &ExpectName();
  const Position at = column->at;
  if (ConsumeIf(".")) {
    const std::string qualifier(column->text);
    column = &ExpectName();
    if (!SameName(qualifier, table)) {
      throw Error(kUnboundIdentifier,
                  "The multi-part identifier \"" + qualifier + '.' + std::string(column->text) +
                      "\" could not be bound.",
                  at);
    }
  }
  const bool sign = MatchKind(TokenKind::kSymbol) &&
                    std::string_view("+-*/%&|^").find(Peek().text) != std::string_view::npos;
  if (sign && Match("=", 1)) {
    FailUnsupported("The assignment " + std::string(Peek().text) + "=");
  }
  Expect("=");
  return {at, std::string(column->text), ParseValue()};
}

DeleteStatement Parser::ParseDelete() {
  DeleteStatement statement;
  Expect("DELETE");
  Refuse({{"TOP", "DELETE TOP"}});
  ConsumeIf("FROM");
  statement.table = ParseTableName(statement.table_at);
  Refuse({{"FROM", "DELETE … FROM"}, {"OUTPUT", "OUTPUT"}, {"WITH", "A table hint"}});
  statement.where = ParseWhere();
  Refuse({{"OPTION", "OPTION"}});
  return statement;
}

IfStatement Parser::ParseIf() {
  Expect("IF");
  IfStatement statement{ParseCondition(), nullptr, nullptr};
  statement.then = std::make_unique<Statement>(ParseStatement());
  if (Match(";") && Match("ELSE", 1)) Consume();
  if (ConsumeIf("ELSE")) statement.otherwise = std::make_unique<Statement>(ParseStatement());
  return statement;
}

BlockStatement Parser::ParseBlock() {
  Expect("BEGIN");
  Refuse({{"TRAN", "BEGIN TRANSACTION"},
          {"TRANSACTION", "BEGIN TRANSACTION"},
          {"DISTRIBUTED", "BEGIN DISTRIBUTED TRANSACTION"},
          {"TRY", "BEGIN TRY"},
          {"CATCH", "BEGIN CATCH"}});
  BlockStatement block;
  do {
    SkipSemicolons();
    block.body.push_back(ParseStatement());
    SkipSemicolons();
  } while (!Match("END"));
  Expect("END");
  return block;
}

decltype(Statement::node) Parser::ParseSet() {
  Expect("SET");
  if (MatchName("NOCOUNT")) {
    Consume();
    return SetNocount{ExpectOnOff()};
  }
  if (MatchName("DATEFORMAT")) return ParseDateFormat();
  if (ConsumeIf("IDENTITY_INSERT")) {
    SetIdentityInsert statement;
    statement.table = ParseTableName(statement.table_at);
    statement.on = ExpectOnOff();
    return statement;
  }
  FailForeign("SET");
}

SetDateFormat Parser::ParseDateFormat() {
  Consume();
  const bool text = MatchKind(TokenKind::kText);
  const Token& order = text ? ExpectPinned(TokenKind::kText) : ExpectName();
  const auto known =
      std::ranges::find_if(kDateOrders, [&](std::string_view o) { return SameName(o, order.text); });
  if (known == std::end(kDateOrders)) {
    throw Error(kDateOrder, "SET DATEFORMAT date order '" + std::string(order.text) + "' is invalid.",
                order.at);
  }
  return {std::string(*known)};
}

decltype(Statement::node) Parser::ParseCreate() {
  if (Match("TABLE", 1)) return ParseCreateTable();
  std::ptrdiff_t word = 1;
  while (Match("UNIQUE", word) || Match("CLUSTERED", word) || Match("NONCLUSTERED", word)) ++word;
  if (Match("INDEX", word)) return ParseCreateIndex();
  Consume();
  FailForeign("CREATE");
}

DropTableStatement Parser::ParseDrop() {
  Expect("DROP");
  if (!ConsumeIf("TABLE")) FailForeign("DROP");
  if (Match("IF")) FailUnsupported("DROP TABLE IF EXISTS");
  DropTableStatement drop;
  drop.table = ParseTableName(drop.table_at);
  if (Match(",")) FailUnsupported("DROP TABLE of several tables");
  return drop;
}

}  // namespace tarvoni::tsql

#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/tsql/ast.h"
#include "platform/tsql/public/lexer.h"

namespace tarvoni::tsql {

// Recursive descent over the tokens of one batch, one Parse… for each production. Values and conditions are
// different things in T-SQL: ParseValue never gives a condition, ParseCondition nothing else.
class Parser {
 public:
  explicit Parser(const LexedBatch& lexed)
      : lexed_(lexed), next_(lexed.tokens.data()), end_(&lexed.tokens.back()) {}
  Batch ParseBatch();

 private:
  // Characters of a text type that is written without a length.
  static constexpr int kDeclaredLength = 1;
  static constexpr int kCastLength = 30;

  // One level of nesting, for as long as it lives. Throws Error 191 beyond kMaxNesting.
  class Nesting {
   public:
    explicit Nesting(Parser& parser);
    ~Nesting();
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    Parser& parser_;
    int outside_;
  };

  // One link of a chain of operators or joins, while its right side is read: all that the current level of
  // nesting has read before gets one level lower in the tree. Throws Error 191 beyond kMaxHeight.
  class Link {
   public:
    explicit Link(Parser& parser);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

   private:
    Parser& parser_;
    int left_;
  };

  // Tokens. A quoted name never matches a word.
  const Token& Peek(std::ptrdiff_t ahead = 0) const { return ahead < end_ - next_ ? next_[ahead] : *end_; }
  bool Match(std::string_view reserved_word_or_symbol, std::ptrdiff_t ahead = 0) const {
    const Token& token = Peek(ahead);
    return (token.kind == TokenKind::kKeyword || token.kind == TokenKind::kSymbol) &&
           token.text == reserved_word_or_symbol;
  }
  bool MatchName(std::string_view unreserved_word, std::ptrdiff_t ahead = 0) const;
  bool MatchKind(TokenKind kind, std::ptrdiff_t ahead = 0) const { return Peek(ahead).kind == kind; }
  const Token& LastWord() const;  // the next token, or at the end of the text the one before
  const Token& Consume();
  bool ConsumeIf(std::string_view reserved_word_or_symbol);
  const Token& Expect(std::string_view reserved_word_or_symbol);
  const Token& ExpectName();
  const Token& ExpectPinned(TokenKind kind);  // a literal whose value goes into the tree
  bool ExpectOnOff();
  void SkipSemicolons();

  // Errors.
  [[noreturn]] void FailUnexpected() const;  // 102 or 156 at the next token
  [[noreturn]] void FailUnsupported(const std::string& construct) const;
  [[noreturn]] void FailForeign(std::string_view verb) const;
  [[noreturn]] void FailTooDeep() const;
  struct Foreign {
    std::string_view word;
    std::string_view construct;
  };
  // Throws kUnsupported if one of these words comes next, reserved or not.
  void Refuse(std::initializer_list<Foreign> words) const;

  template <class Item>
  void ParseList(Item&& item) {
    do {
      item();
    } while (ConsumeIf(","));
  }
  template <class Item>
  void ParseBracketedList(Item&& item) {
    Expect("(");
    ParseList(item);
    Expect(")");
  }

  // parser_statement.cpp
  Statement ParseStatement();
  decltype(Statement::node) ParseStatementNode();
  InsertStatement ParseInsert();
  UpdateStatement ParseUpdate();
  Assignment ParseAssignment(const std::string& table);
  DeleteStatement ParseDelete();
  IfStatement ParseIf();
  BlockStatement ParseBlock();
  decltype(Statement::node) ParseSet();
  SetDateFormat ParseDateFormat();
  decltype(Statement::node) ParseCreate();
  DropTableStatement ParseDrop();
  std::string ParseTableName(Position& at);
  ExpressionPtr ParseWhere();

  // parser_table.cpp
  CreateTableStatement ParseCreateTable();
  CreateIndexStatement ParseCreateIndex();
  void ParseColumn(CreateTableStatement& table);
  bool ParseColumnProperty(CreateTableStatement& table, ColumnSyntax& column);
  void ParseIdentity(ColumnSyntax& column);
  bool ParseColumnConstraint(CreateTableStatement& table, ColumnSyntax& column);
  void ParseTableConstraint(CreateTableStatement& table);
  KeyConstraint ParseKeyWords(std::string name);
  std::string ParseConstraintName();
  ExpressionPtr ParseCheck();
  ForeignKey ParseReferences();
  IndexColumn ParseIndexColumn();
  IndexColumn ParseIndexTerm();
  std::vector<std::string> ParseColumnNames();
  Type ParseTypeName(int default_length);
  int ParseTypeNumber();
  long long ParseInteger(TokenKind kind);
  long long ParseSignedInteger();

  // parser_query.cpp
  QueryPtr ParseQuery();
  void ParseUnion(Query& query);
  void ParseQueryTerm(Query& query);
  Select ParseSelect();
  ExpressionPtr ParseTop();
  SelectItem ParseSelectItem();
  void ParseGroupBy(Select& select);
  void ParseOrderBy(Query& query);
  TableSourcePtr ParseFrom();
  TableSourcePtr ParseJoinedTable();
  TableSourcePtr ParseJoin(TableSourcePtr left);
  bool MatchJoin() const;
  JoinKind ParseJoinKind();
  TableSourcePtr ParseTablePrimary();
  TableSourcePtr ParseDerivedTable();
  TableSourcePtr ParseNamedTable();
  std::string ParseAlias(bool text_allowed);
  bool MatchQuery() const;

  // parser_expression.cpp
  ExpressionPtr ParseCondition();
  ExpressionPtr ParseOr();
  ExpressionPtr ParseAnd();
  ExpressionPtr ParseNot();
  ExpressionPtr ParseLogical(std::string_view word, BinaryOperator op, ExpressionPtr (Parser::*operand)());
  ExpressionPtr ParsePredicate();
  ExpressionPtr ParsePredicateTail(ExpressionPtr left);
  ExpressionPtr ParseComparison(BinaryOperator op, ExpressionPtr left);
  ExpressionPtr ParseIsNull(ExpressionPtr left);
  ExpressionPtr ParseBetween(ExpressionPtr left, bool negated);
  ExpressionPtr ParseIn(ExpressionPtr left, bool negated);
  ExpressionPtr ParseLike(ExpressionPtr left, bool negated);
  ExpressionPtr ParseValue();
  ExpressionPtr ParseSum(ExpressionPtr left);
  ExpressionPtr ParseProduct(ExpressionPtr left);
  ExpressionPtr ParseOperand();
  ExpressionPtr ParseSigned();
  ExpressionPtr ParseBracketed(ExpressionPtr (Parser::*inside)());
  ExpressionPtr ParsePrimary();
  ExpressionPtr ParseReservedPrimary();
  ExpressionPtr ParseNamePrimary();
  ExpressionPtr ParseLiteral();
  ExpressionPtr ParseColumnName();
  ExpressionPtr ParseCall();
  ExpressionPtr ParseCase();
  ExpressionPtr ParseCast();
  ExpressionPtr ParseConvert();
  void RefuseOperators() const;
  void RequireCondition(const Expression& expression) const;

  const LexedBatch& lexed_;
  Batch batch_;
  const Token* next_;
  const Token* const end_;
  int depth_ = 0;
  // Lowest level of the tree that the current nesting, or the right side of its link, has reached.
  int deepest_ = 0;
};

template <class Node>
ExpressionPtr MakeExpression(Position at, Node node) {
  auto expression = std::make_unique<Expression>();
  expression->at = at;
  expression->node.template emplace<Node>(std::move(node));
  return expression;
}

}  // namespace tarvoni::tsql

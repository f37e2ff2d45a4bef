#include <algorithm>
#include <optional>

#include "platform/tsql/parser_impl.h"
#include "platform/tsql/public/catalogue.h"

namespace tarvoni::tsql {
namespace {

struct Operator {
  std::string_view symbol;
  BinaryOperator op;
};

constexpr Operator kSumOperators[] = {{"+", BinaryOperator::kAdd}, {"-", BinaryOperator::kSubtract}};
constexpr Operator kProductOperators[] = {
    {"*", BinaryOperator::kMultiply}, {"/", BinaryOperator::kDivide}, {"%", BinaryOperator::kModulo}};
constexpr Operator kComparisons[] = {{"=", BinaryOperator::kEqual},     {"<>", BinaryOperator::kNotEqual},
                                     {"<", BinaryOperator::kLess},      {"<=", BinaryOperator::kLessEqual},
                                     {">", BinaryOperator::kGreater},   {">=", BinaryOperator::kGreaterEqual},
                                     {"!=", BinaryOperator::kNotEqual}, {"!<", BinaryOperator::kGreaterEqual},
                                     {"!>", BinaryOperator::kLessEqual}};

template <size_t N>
std::optional<BinaryOperator> FindOperator(const Operator (&operators)[N], const Token& token) {
  if (token.kind != TokenKind::kSymbol) return std::nullopt;
  const auto found = std::ranges::find(operators, token.text, &Operator::symbol);
  return found == std::end(operators) ? std::nullopt : std::optional(found->op);
}

bool IsCondition(const Expression& expression) {
  if (const auto* binary = std::get_if<Binary>(&expression.node)) return binary->op >= BinaryOperator::kEqual;
  if (const auto* unary = std::get_if<Unary>(&expression.node)) return unary->op == UnaryOperator::kNot;
  return std::visit(
      []<class Node>(const Node&) {
        return std::is_same_v<Node, IsNull> || std::is_same_v<Node, Between> ||
               std::is_same_v<Node, InList> || std::is_same_v<Node, InQuery> || std::is_same_v<Node, Like> ||
               std::is_same_v<Node, Exists>;
      },
      expression.node);
}

Literal::Kind LiteralKind(TokenKind kind) {
  switch (kind) {
    case TokenKind::kInteger:
      return Literal::Kind::kInteger;
    case TokenKind::kDecimal:
      return Literal::Kind::kDecimal;
    case TokenKind::kFloat:
      return Literal::Kind::kFloat;
    case TokenKind::kText:
      return Literal::Kind::kText;
    default:
      return Literal::Kind::kNull;
  }
}

}  // namespace

ExpressionPtr Parser::ParseCondition() {
  ExpressionPtr condition = ParseOr();
  RequireCondition(*condition);
  return condition;
}

void Parser::RequireCondition(const Expression& expression) const {
  if (IsCondition(expression)) return;
  throw Error(
      kNoCondition,
      "An expression of non-boolean type specified in a context where a condition is expected, near '" +
          std::string(LastWord().text) + "'.",
      expression.at);
}

// What may stand in brackets where a condition is expected: a condition, or the beginning of a comparison.
ExpressionPtr Parser::ParseOr() {
  const Nesting nesting(*this);
  return ParseLogical("OR", BinaryOperator::kOr, &Parser::ParseAnd);
}

ExpressionPtr Parser::ParseAnd() {
  return ParseLogical("AND", BinaryOperator::kAnd, &Parser::ParseNot);
}

ExpressionPtr Parser::ParseLogical(std::string_view word, BinaryOperator op,
                                   ExpressionPtr (Parser::*operand)()) {
  ExpressionPtr left = (this->*operand)();
  while (Match(word)) {
    RequireCondition(*left);
    const Position at = Consume().at;
    const Link link(*this);
    ExpressionPtr right = (this->*operand)();
    RequireCondition(*right);
    left = MakeExpression(at, Binary{op, std::move(left), std::move(right)});
  }
  return left;
}

ExpressionPtr Parser::ParseNot() {
  if (!Match("NOT")) return ParsePredicate();
  const Nesting nesting(*this);
  const Position at = Consume().at;
  ExpressionPtr operand = ParseNot();
  RequireCondition(*operand);
  return MakeExpression(at, Unary{UnaryOperator::kNot, std::move(operand)});
}

ExpressionPtr Parser::ParsePredicate() {
  if (Match("EXISTS")) {
    const Position at = Consume().at;
    Expect("(");
    QueryPtr query = ParseQuery();
    Expect(")");
    return MakeExpression(at, Exists{std::move(query)});
  }
  ExpressionPtr left = Match("(") ? ParseBracketed(&Parser::ParseOr) : ParseOperand();
  if (IsCondition(*left)) return left;
  return ParsePredicateTail(ParseSum(std::move(left)));
}

// What makes a value a condition; the value itself if nothing does.
ExpressionPtr Parser::ParsePredicateTail(ExpressionPtr left) {
  if (const auto op = FindOperator(kComparisons, Peek())) return ParseComparison(*op, std::move(left));
  if (Match("IS")) return ParseIsNull(std::move(left));
  const bool negated = Match("NOT");
  const std::ptrdiff_t word = negated ? 1 : 0;
  if (Match("BETWEEN", word)) return ParseBetween(std::move(left), negated);
  if (Match("IN", word)) return ParseIn(std::move(left), negated);
  if (Match("LIKE", word)) return ParseLike(std::move(left), negated);
  RefuseOperators();
  return left;
}

void Parser::RefuseOperators() const {
  Refuse({{"&", "The operator &"}, {"|", "The operator |"}, {"^", "The operator ^"}, {"COLLATE", "COLLATE"}});
}

ExpressionPtr Parser::ParseComparison(BinaryOperator op, ExpressionPtr left) {
  const Position at = Consume().at;
  Refuse({{"ALL", "A comparison with ALL"},
          {"ANY", "A comparison with ANY"},
          {"SOME", "A comparison with SOME"}});
  return MakeExpression(at, Binary{op, std::move(left), ParseValue()});
}

ExpressionPtr Parser::ParseIsNull(ExpressionPtr left) {
  const Position at = Expect("IS").at;
  const bool negated = ConsumeIf("NOT");
  Expect("NULL");
  return MakeExpression(at, IsNull{std::move(left), negated});
}

ExpressionPtr Parser::ParseBetween(ExpressionPtr left, bool negated) {
  if (negated) Consume();
  const Position at = Expect("BETWEEN").at;
  ExpressionPtr low = ParseValue();
  Expect("AND");
  return MakeExpression(at, Between{std::move(left), std::move(low), ParseValue(), negated});
}

ExpressionPtr Parser::ParseIn(ExpressionPtr left, bool negated) {
  if (negated) Consume();
  const Position at = Expect("IN").at;
  Expect("(");
  if (Match("SELECT")) {
    QueryPtr query = ParseQuery();
    Expect(")");
    return MakeExpression(at, InQuery{std::move(left), std::move(query), negated});
  }
  InList list{std::move(left), {}, negated};
  ParseList([&] { list.items.push_back(ParseValue()); });
  Expect(")");
  return MakeExpression(at, std::move(list));
}

ExpressionPtr Parser::ParseLike(ExpressionPtr left, bool negated) {
  if (negated) Consume();
  const Position at = Expect("LIKE").at;
  ExpressionPtr pattern = ParseValue();
  Refuse({{"ESCAPE", "LIKE with ESCAPE"}});
  return MakeExpression(at, Like{std::move(left), std::move(pattern), negated});
}

ExpressionPtr Parser::ParseValue() {
  const Nesting nesting(*this);
  ExpressionPtr value = ParseSum(ParseOperand());
  RefuseOperators();
  return value;
}

ExpressionPtr Parser::ParseSum(ExpressionPtr left) {
  left = ParseProduct(std::move(left));
  while (const auto op = FindOperator(kSumOperators, Peek())) {
    const Position at = Consume().at;
    const Link link(*this);
    ExpressionPtr right = ParseProduct(ParseOperand());
    left = MakeExpression(at, Binary{*op, std::move(left), std::move(right)});
  }
  return left;
}

ExpressionPtr Parser::ParseProduct(ExpressionPtr left) {
  while (const auto op = FindOperator(kProductOperators, Peek())) {
    const Position at = Consume().at;
    const Link link(*this);
    ExpressionPtr right = ParseOperand();
    left = MakeExpression(at, Binary{*op, std::move(left), std::move(right)});
  }
  return left;
}

ExpressionPtr Parser::ParseOperand() {
  if (Match("-") || Match("+")) return ParseSigned();
  if (Match("~")) FailUnsupported("The operator ~");
  return Match("(") ? ParseBracketed(&Parser::ParseValue) : ParsePrimary();
}

// A sign binds less tightly than * / %: 6.0/-2*3 is 6.0/(-(2*3)).
ExpressionPtr Parser::ParseSigned() {
  const Nesting nesting(*this);
  const Token& sign = Consume();
  const auto op = sign.text == "-" ? UnaryOperator::kMinus : UnaryOperator::kPlus;
  return MakeExpression(sign.at, Unary{op, ParseProduct(ParseOperand())});
}

ExpressionPtr Parser::ParseBracketed(ExpressionPtr (Parser::*inside)()) {
  const Position at = Expect("(").at;
  ExpressionPtr value = Match("SELECT") ? MakeExpression(at, ScalarQuery{ParseQuery()}) : (this->*inside)();
  Expect(")");
  return value;
}

ExpressionPtr Parser::ParsePrimary() {
  switch (Peek().kind) {
    case TokenKind::kInteger:
    case TokenKind::kDecimal:
    case TokenKind::kFloat:
    case TokenKind::kText:
      return ParseLiteral();
    case TokenKind::kKeyword:
      return ParseReservedPrimary();
    case TokenKind::kName:
      return ParseNamePrimary();
    default:
      FailUnexpected();
  }
}

ExpressionPtr Parser::ParseReservedPrimary() {
  if (Match("NULL")) return MakeExpression(Consume().at, Literal{});
  if (Match("CASE")) return ParseCase();
  if (Match("CONVERT")) return ParseConvert();
  const bool function = Match("LEFT") || Match("RIGHT") || Match("COALESCE") || Match("NULLIF");
  if (function && Match("(", 1)) return ParseCall();
  Refuse({{"CURRENT_TIMESTAMP", "CURRENT_TIMESTAMP"},
          {"CURRENT_USER", "CURRENT_USER"},
          {"SESSION_USER", "SESSION_USER"},
          {"SYSTEM_USER", "SYSTEM_USER"},
          {"TRY_CONVERT", "TRY_CONVERT"},
          {"CONTAINS", "CONTAINS"},
          {"FREETEXT", "FREETEXT"},
          {"DEFAULT", "DEFAULT as a value"}});
  FailUnexpected();
}

ExpressionPtr Parser::ParseNamePrimary() {
  if (!Match("(", 1)) return ParseColumnName();
  if (Peek().quoted) FailUnsupported("A function name in brackets");
  if (MatchName("CAST")) return ParseCast();
  if (MatchName("TRY_CAST")) FailUnsupported("TRY_CAST");
  return ParseCall();
}

ExpressionPtr Parser::ParseLiteral() {
  const Token& token = Consume();
  return MakeExpression(token.at, Literal{LiteralKind(token.kind), token.literal});
}

ExpressionPtr Parser::ParseColumnName() {
  const Token& first = ExpectName();
  if (!ConsumeIf(".")) return MakeExpression(first.at, ColumnName{{}, std::string(first.text)});
  const Token& second = ExpectName();
  if (Match(".")) FailUnsupported("A column name of more than two parts");
  if (Match("(")) FailUnsupported("A function of a schema");
  return MakeExpression(first.at, ColumnName{std::string(first.text), std::string(second.text)});
}

ExpressionPtr Parser::ParseCall() {
  const Token& name = Consume();
  Call call{std::string(name.text), {}};
  Expect("(");
  if (Match("*") && (SameName(name.text, "COUNT") || SameName(name.text, "COUNT_BIG"))) {
    Consume();
    call.star = true;
  } else if (!Match(")")) {
    call.distinct = ConsumeIf("DISTINCT");
    if (!call.distinct) ConsumeIf("ALL");
    ParseList([&] { call.arguments.push_back(ParseValue()); });
  }
  Expect(")");
  Refuse({{"OVER", "OVER"}, {"WITHIN", "WITHIN GROUP"}});
  return MakeExpression(name.at, std::move(call));
}

ExpressionPtr Parser::ParseCase() {
  const Position at = Expect("CASE").at;
  Case result;
  if (!Match("WHEN")) result.operand = ParseValue();
  do {
    Expect("WHEN");
    ExpressionPtr when = result.operand ? ParseValue() : ParseCondition();
    Expect("THEN");
    result.branches.push_back({std::move(when), ParseValue()});
  } while (Match("WHEN"));
  if (ConsumeIf("ELSE")) result.otherwise = ParseValue();
  Expect("END");
  return MakeExpression(at, std::move(result));
}

ExpressionPtr Parser::ParseCast() {
  const Position at = ExpectName().at;
  Expect("(");
  ExpressionPtr operand = ParseValue();
  Expect("AS");
  const Type type = ParseTypeName(kCastLength);
  Expect(")");
  return MakeExpression(at, Cast{std::move(operand), type});
}

ExpressionPtr Parser::ParseConvert() {
  const Position at = Expect("CONVERT").at;
  Expect("(");
  const Type type = ParseTypeName(kCastLength);
  Expect(",");
  ExpressionPtr operand = ParseValue();
  if (Match(",")) FailUnsupported("CONVERT with a style");
  Expect(")");
  return MakeExpression(at, Cast{std::move(operand), type});
}

}  // namespace tarvoni::tsql

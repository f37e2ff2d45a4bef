#include <cassert>
#include <vector>

#include "platform/tsql/bind_state.h"
#include "platform/tsql/convert.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/public/runtime.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {
namespace {

std::string QuoteText(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') quoted += '\'';
    quoted += c;
  }
  return quoted + '\'';
}

std::string FloatDigits(std::string_view literal) {
  const bool whole = literal.find_first_of(".eE") == std::string_view::npos;
  return std::string(literal) + (whole ? ".0" : "");
}

std::string_view Symbol(BinaryOperator op) {
  switch (op) {
    case BinaryOperator::kEqual:
      return "=";
    case BinaryOperator::kNotEqual:
      return "<>";
    case BinaryOperator::kLess:
      return "<";
    case BinaryOperator::kLessEqual:
      return "<=";
    case BinaryOperator::kGreater:
      return ">";
    case BinaryOperator::kGreaterEqual:
      return ">=";
    case BinaryOperator::kAnd:
      return " AND ";
    case BinaryOperator::kOr:
      return " OR ";
    default:
      break;
  }
  assert(false);
  return "";
}

// SQLite's parser keeps a hundred symbols at most; the statement around an expression takes some of them.
constexpr int kMostLevels = 70;

// How many symbols wait at most while what stands inside the expression is read.
int LevelsOf(const BoundExpression& expression) {
  constexpr int kBrackets = 3;
  constexpr int kArguments = 6;
  constexpr int kQuery = 12;
  if (QueryOf(expression)) return kQuery;
  const auto& node = expression.node;
  if (std::holds_alternative<BoundCase>(node) || std::holds_alternative<BoundCall>(node) ||
      std::holds_alternative<BoundConvert>(node) || std::holds_alternative<BoundArithmetic>(node) ||
      std::holds_alternative<BoundNegate>(node))
    return kArguments;
  const bool leaf = std::holds_alternative<BoundColumn>(node) ||
                    std::holds_alternative<BoundParameter>(node) ||
                    std::holds_alternative<BoundConstant>(node) || std::holds_alternative<BoundNow>(node) ||
                    std::holds_alternative<BoundAggregate>(node);
  return leaf ? 0 : kBrackets;
}

}  // namespace

Emitter& Emitter::Name(std::string_view name) {
  sql_.text += '"';
  for (auto quote = name.find('"'); quote != std::string_view::npos; quote = name.find('"')) {
    Text(name.substr(0, quote)).Text("\"\"");
    name.remove_prefix(quote + 1);
  }
  sql_.text += name;
  sql_.text += '"';
  return *this;
}

void Emitter::Expression(const BoundExpression& expression) {
  for (const auto& [choice, branch] : standing_)
    if (choice == &expression) return Expression(*branch);
  if (part_ != nullptr)
    if (const auto argument = ArgumentOf(expression)) return Outside(*argument, expression.type);
  const int before = levels_;
  levels_ += LevelsOf(expression);
  if (levels_ > kMostLevels && style_ == ColumnStyle::kQualified && LevelsOf(expression) > 0) {
    Part(expression);
  } else if (MayBePart(expression)) {
    WholeOrPart(expression);
  } else {
    Plain(expression);
  }
  levels_ = before;
}

void Emitter::Plain(const BoundExpression& expression) {
  std::visit([&](const auto& node) { Node(node, expression); }, expression.node);
}

// A stored column does, unless it is an argument of the part it is read in.
bool Emitter::BringsCollation(const BoundExpression& expression) const {
  const auto* column = expression.As<BoundColumn>();
  return column != nullptr && column->stored && (part_ == nullptr || part_->sources.contains(column->source));
}

void Emitter::Collated(const BoundExpression& expression) {
  Expression(expression);
  if (expression.type.IsText() && !BringsCollation(expression)) Text(" COLLATE ").Text(kCollation);
}

void Emitter::Infix(const BoundExpression& left, std::string_view op, const BoundExpression& right) {
  Text("(");
  Expression(left);
  Text(op);
  Expression(right);
  Text(")");
}

void Emitter::Function(std::string_view name, const BoundExpression& argument,
                       std::initializer_list<long long> rest) {
  Text(name).Text("(");
  Expression(argument);
  for (const long long number : rest) Text(",").Number(number);
  Text(")");
}

void Emitter::Function(std::string_view name, const BoundExpression& first, const BoundExpression& second) {
  Text(name).Text("(");
  Expression(first);
  Text(",");
  Expression(second);
  Text(")");
}

void Emitter::Arguments(const std::vector<BoundPtr>& arguments) {
  Text("(");
  for (size_t i = 0; i < arguments.size(); ++i) {
    if (i > 0) Text(",");
    Expression(*arguments[i]);
  }
  Text(")");
}

// Parameters are numbered by their place in the text: SQLite searches a list for those that bear a number.
void Emitter::Node(const BoundParameter& node, const BoundExpression& self) {
  sql_.parameters.push_back({Parameter::Source::kLiteral, node.literal, self.type});
  Text("?");
}

void Emitter::Node(const BoundNow&, const BoundExpression& self) {
  sql_.parameters.push_back({Parameter::Source::kNow, -1, self.type});
  Text("?");
}

void Emitter::Node(const BoundConstant& node, const BoundExpression& self) {
  if (node.kind == Literal::Kind::kNull)
    Text("NULL");
  else if (self.type.IsText())
    Text(QuoteText(node.text));
  else if (self.type.IsExact())
    Digits(node, self.type.scale);
  else
    Text(FloatDigits(node.text));
}

void Emitter::Node(const BoundColumn& node, const BoundExpression&) {
  if (style_ == ColumnStyle::kQualified) Text("t").Number(node.source).Text(".");
  if (node.stored)
    Name(node.name);
  else
    Text("c").Number(node.index + 1);
}

void Emitter::Node(const BoundConcat& node, const BoundExpression&) {
  std::vector<const BoundExpression*> operands{node.right.get()};
  const BoundExpression* left = node.left.get();
  for (; const auto* inner = left->As<BoundConcat>(); left = inner->left.get())
    operands.push_back(inner->right.get());
  Text("(");
  Expression(*left);
  for (auto operand = operands.rbegin(); operand != operands.rend(); ++operand) {
    Text("||");
    Expression(**operand);
  }
  Text(")");
}

// SQLite goes on with an infinite number where a server finds an overflow.
void Emitter::Finite(const BoundExpression& value) {
  if (value.type.kind != TypeKind::kFloat || !value.As<BoundArithmetic>()) return Expression(value);
  Function("ts_float_range", value);
}

void Emitter::Node(const BoundDateAdd& node, const BoundExpression&) {
  std::vector<const BoundDateAdd*> moves{&node};
  while (const auto* inner = moves.back()->date->As<BoundDateAdd>()) moves.push_back(inner);
  // SQLite takes 127 arguments.
  constexpr size_t kMostMoves = 100;
  const size_t calls = (moves.size() - 1) / kMostMoves + 1;
  for (size_t call = 0; call < calls; ++call) Text("ts_date_add(");
  Expression(*moves.back()->date);
  for (size_t i = 0; i < moves.size(); ++i) {
    if (i > 0 && i % kMostMoves == 0) Text(")");
    const BoundDateAdd& move = *moves[moves.size() - 1 - i];
    Text(move.subtract ? ",-" : ",");
    Expression(*move.days);
  }
  Text(")");
}

void Emitter::Node(const BoundCompare& node, const BoundExpression&) {
  const bool other_places = node.left->type.IsExact() && node.right->type.IsExact() &&
                            node.left->type.scale != node.right->type.scale;
  if (IsWide(*node.left) || IsWide(*node.right) || other_places) {
    Text("(ts_exact_cmp(");
    Expression(*node.left);
    Text(",").Number(node.left->type.scale).Text(",");
    Expression(*node.right);
    Text(",").Number(node.right->type.scale).Text(")").Text(Symbol(node.op)).Text("0)");
    return;
  }
  Text("(");
  if (node.left->type.kind == TypeKind::kFloat) {
    Finite(*node.left);
    Text(Symbol(node.op));
    Finite(*node.right);
    Text(")");
    return;
  }
  // A column of a derived table would bring SQLite's own collation along.
  const bool right_decides = BringsCollation(*node.right) && !node.left->As<BoundColumn>();
  if (right_decides)
    Expression(*node.left);
  else
    Collated(*node.left);
  Text(Symbol(node.op));
  Expression(*node.right);
  Text(")");
}

void Emitter::Node(const BoundLogical& node, const BoundExpression&) {
  Text("(");
  for (size_t i = 0; i < node.operands.size(); ++i) {
    if (i > 0) Text(Symbol(node.op));
    Expression(*node.operands[i]);
  }
  Text(")");
}

void Emitter::Node(const BoundNot& node, const BoundExpression&) {
  Text("(NOT ");
  Expression(*node.operand);
  Text(")");
}

void Emitter::Node(const BoundIsNull& node, const BoundExpression&) {
  Text("(");
  Expression(*node.operand);
  Text(node.negated ? " IS NOT NULL)" : " IS NULL)");
}

void Emitter::Node(const BoundIn& node, const BoundExpression&) {
  Text("(");
  Collated(*node.operand);
  Text(node.negated ? " NOT IN " : " IN ");
  Arguments(node.items);
  Text(")");
}

void Emitter::Node(const BoundInQuery& node, const BoundExpression&) {
  Text("(");
  Collated(*node.operand);
  Text(node.negated ? " NOT IN " : " IN ");
  Subquery(*node.query, Naming::kNone);
  Text(")");
}

void Emitter::Node(const BoundExists& node, const BoundExpression&) {
  Text("EXISTS");
  Subquery(*node.query, Naming::kNone);
}

void Emitter::Node(const BoundScalarQuery& node, const BoundExpression&) {
  if (!node.single) return SingleValue(*node.query);
  Subquery(*node.query, Naming::kNone);
}

// A query of several rows where one value belongs is an error, not its first row.
void Emitter::SingleValue(const BoundQuery& query) {
  // SQLite takes no aggregate of the query outside in another aggregate.
  if (HasOuterAggregate(query)) {
    Text("(CASE WHEN EXISTS(");
    WholeQuery(query, Naming::kNone);
    Text(" LIMIT 1 OFFSET 1) THEN ts_raise(512) ELSE (");
    WholeQuery(query, Naming::kNone);
    Text(") END)");
    return;
  }
  Text("(SELECT CASE WHEN COUNT(*)>1 THEN ts_raise(512) ELSE MAX(c1) END FROM ");
  Subquery(query, Naming::kNumbered);
  Text(")");
}

}  // namespace tarvoni::tsql

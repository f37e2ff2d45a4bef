#include "platform/tsql/printer.h"

namespace tarvoni::tsql {
namespace {

constexpr std::string_view kOperators[] = {" + ", " - ",  " * ", " / ",  " % ",   " = ", " <> ",
                                           " < ", " <= ", " > ", " >= ", " AND ", " OR "};

std::string_view SignOf(BinaryOperator op) {
  return kOperators[static_cast<size_t>(op)];
}
std::string_view Not(bool negated) {
  return negated ? " NOT" : "";
}

}  // namespace

Printer::Tightness Printer::TightnessOf(BinaryOperator op) {
  if (op == BinaryOperator::kOr) return Tightness::kOr;
  if (op == BinaryOperator::kAnd) return Tightness::kAnd;
  if (op >= BinaryOperator::kEqual) return Tightness::kPredicate;
  return op <= BinaryOperator::kSubtract ? Tightness::kSum : Tightness::kProduct;
}

Printer::Tightness Printer::TightnessOf(const Expression& expression) {
  if (const auto* unary = std::get_if<Unary>(&expression.node)) {
    return unary->op == UnaryOperator::kNot ? Tightness::kNot : Tightness::kSign;
  }
  if (const auto* binary = std::get_if<Binary>(&expression.node)) return TightnessOf(binary->op);
  return std::visit(
      []<class Node>(const Node&) {
        const bool predicate = std::is_same_v<Node, IsNull> || std::is_same_v<Node, Between> ||
                               std::is_same_v<Node, InList> || std::is_same_v<Node, InQuery> ||
                               std::is_same_v<Node, Like>;
        return predicate ? Tightness::kPredicate : Tightness::kPrimary;
      },
      expression.node);
}

void Printer::Print(const Expression& expression) {
  PrintAt(expression, Tightness::kOr);
}

void Printer::PrintAt(const Expression& expression, Tightness least) {
  const bool brackets = TightnessOf(expression) < least;
  if (brackets) Add("(");
  std::visit([this](const auto& node) { Write(node); }, expression.node);
  if (brackets) Add(")");
}

void Printer::Write(const Literal& literal) {
  if (literal.kind == Literal::Kind::kNull) return Add("NULL");
  const std::string& text = lexed_.literals[literal.index].text;
  if (literal.kind != Literal::Kind::kText) return Add(text);
  Add("'");
  for (const char c : text) Add(c == '\'' ? "''" : std::string_view(&c, 1));
  Add("'");
}

void Printer::Write(const ColumnName& name) {
  if (!name.table.empty()) {
    AddName(name.table);
    Add(".");
  }
  AddName(name.column);
}

void Printer::Write(const Star& star) {
  if (!star.table.empty()) {
    AddName(star.table);
    Add(".");
  }
  Add("*");
}

void Printer::Write(const Unary& unary) {
  if (unary.op == UnaryOperator::kNot) {
    Add("NOT ");
    return PrintAt(*unary.operand, Tightness::kNot);
  }
  Add(unary.op == UnaryOperator::kMinus ? "-" : "+");
  PrintAt(*unary.operand, Tightness::kProduct);
}

// Chains lean to the left; comparisons make none.
void Printer::Write(const Binary& binary) {
  const bool comparison = binary.op >= BinaryOperator::kEqual && binary.op <= BinaryOperator::kGreaterEqual;
  const Tightness own = TightnessOf(binary.op);
  PrintAt(*binary.left, comparison ? Tightness::kSum : own);
  Add(SignOf(binary.op));
  PrintAt(*binary.right, comparison ? Tightness::kSum : static_cast<Tightness>(static_cast<int>(own) + 1));
}

void Printer::Write(const IsNull& test) {
  PrintValue(*test.operand);
  Add(test.negated ? " IS NOT NULL" : " IS NULL");
}

void Printer::Write(const Between& test) {
  PrintValue(*test.operand);
  Add(Not(test.negated));
  Add(" BETWEEN ");
  PrintValue(*test.low);
  Add(" AND ");
  PrintValue(*test.high);
}

void Printer::Write(const InList& test) {
  PrintValue(*test.operand);
  Add(Not(test.negated));
  Add(" IN ");
  AddBracketedList(test.items, [this](const ExpressionPtr& item) { PrintValue(*item); });
}

void Printer::Write(const InQuery& test) {
  PrintValue(*test.operand);
  Add(Not(test.negated));
  Add(" IN (");
  Print(*test.query);
  Add(")");
}

void Printer::Write(const Like& test) {
  PrintValue(*test.operand);
  Add(Not(test.negated));
  Add(" LIKE ");
  PrintValue(*test.pattern);
}

void Printer::Write(const Exists& test) {
  Add("EXISTS (");
  Print(*test.query);
  Add(")");
}

void Printer::Write(const Case& choice) {
  Add("CASE");
  const auto add = [this](std::string_view word, const ExpressionPtr& value) {
    Add(word);
    Print(*value);
  };
  if (choice.operand) add(" ", choice.operand);
  for (const Case::Branch& branch : choice.branches) {
    add(" WHEN ", branch.when);
    add(" THEN ", branch.then);
  }
  if (choice.otherwise) add(" ELSE ", choice.otherwise);
  Add(" END");
}

void Printer::Write(const Call& call) {
  AddFunction(call.function);
  Add(call.distinct ? "(DISTINCT " : "(");
  if (call.star) Add("*");
  AddList(call.arguments, [this](const ExpressionPtr& argument) { PrintValue(*argument); });
  Add(")");
}

void Printer::Write(const Cast& cast) {
  Add("CAST(");
  PrintValue(*cast.operand);
  Add(" AS " + ToSql(cast.type) + ")");
}

void Printer::Write(const ScalarQuery& scalar) {
  Add("(");
  Print(*scalar.query);
  Add(")");
}

}  // namespace tarvoni::tsql

#pragma once

#include "platform/tsql/bind_state.h"
#include "platform/tsql/bound.h"
#include "platform/tsql/scope.h"

namespace tarvoni::tsql {

// What an expression may contain depends on the clause it stands in.
struct ClauseRules {
  bool aggregates = false;
  int aggregate_error = kAggregateInWhere;  // where they may not stand
  bool queries = true;                      // else kAggregateInGroupBy
  // Literals become part of the plan: where two expressions are compared (GROUP BY) or text is stored (DDL).
  bool pin_literals = false;
  bool pin_texts = false;  // the same for texts alone, where their length counts
};

// Gives the expressions of one clause their meaning.
class ExpressionBinder {
 public:
  ExpressionBinder(BindState& state, const Scope& scope, ClauseRules rules)
      : state_(&state), scope_(&scope), rules_(rules) {}

  // A value; a condition in its place is error 102.
  BoundPtr Value(const Expression& expression);
  // A condition; a value in its place is error 4145.
  BoundPtr Condition(const Expression& expression);

  bool SawAggregate() const { return saw_aggregate_; }
  // An aggregate over columns of this clause's own tables stands in a query inside it.
  void TakeOuterAggregate(Position at);

 private:
  BoundPtr Bind(const Expression& expression);
  BoundPtr BindNode(const Literal& literal, Position at);
  BoundPtr BindNode(const ColumnName& name, Position at);
  BoundPtr BindNode(const Star& star, Position at);
  BoundPtr BindNode(const Unary& unary, Position at);
  BoundPtr BindNode(const Binary& binary, Position at);
  BoundPtr BindNode(const IsNull& test, Position at);
  BoundPtr BindNode(const Between& between, Position at);
  BoundPtr BindNode(const InList& list, Position at);
  BoundPtr BindNode(const InQuery& in, Position at);
  BoundPtr BindNode(const Like& like, Position at);
  BoundPtr BindNode(const Exists& exists, Position at);
  BoundPtr BindNode(const Case& branches, Position at);
  BoundPtr BindNode(const Call& call, Position at);
  BoundPtr BindNode(const Cast& cast, Position at);
  BoundPtr BindNode(const ScalarQuery& scalar, Position at);

  BoundPtr BindLogical(const Binary& binary, Position at);
  void AddOperands(const Binary& chain, BoundLogical& logical);
  BoundPtr BindArithmetic(BinaryOperator op, BoundPtr left, BoundPtr right, Position at);
  BoundPtr BindDateArithmetic(BinaryOperator op, BoundPtr left, BoundPtr right, Position at);
  BoundPtr BindAggregate(Aggregate function, const Call& call, Position at);
  void RequireAggregates(Position at) const;
  void ClaimAggregate(const BoundExpression& argument, Position at);
  BoundQueryPtr Subquery(const Query& query, int columns);
  BoundPtr BindFunction(Function function, const Call& call, Position at);
  BoundPtr BindIsNullFunction(const Call& call, Position at);
  BoundPtr BindCoalesce(const Call& call, Position at);
  BoundPtr BindNullIf(const Call& call, Position at);
  BoundPtr NullIfEqual(BoundPtr first, BoundPtr second, const Expression& again, Position at);
  BoundPtr BindRounding(Function function, const Call& call, Position at);
  void PinLiteral(BoundExpression& value);

  BindState* state_;
  const Scope* scope_;
  ClauseRules rules_;
  bool saw_aggregate_ = false;
  bool inside_aggregate_ = false;
};

// The aggregate of that name, if it is one.
std::optional<Aggregate> AggregateNamed(std::string_view name);
void RequireCount(const Call& call, size_t fewest, size_t most, Position at);  // error 174

// `left op right` in the type both meet in; on text without what the collation ignores anyway.
BoundPtr MakeComparison(BinaryOperator op, BoundPtr left, BoundPtr right, Position at);
// The operand as it is compared: case functions and trailing blanks make no difference to text.
BoundPtr WithoutFolding(BoundPtr value);

}  // namespace tarvoni::tsql

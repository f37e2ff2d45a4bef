#pragma once

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/tsql/bound.h"
#include "platform/tsql/public/plan.h"

namespace tarvoni::tsql {

// Writes bound trees as SQLite text. Nothing before this stage knows SQLite.
class Emitter {
 public:
  enum class ColumnStyle {
    kQualified,  // t1."NAME"
    kBare,       // "NAME", inside a table's own definition
  };

  explicit Emitter(ColumnStyle style = ColumnStyle::kQualified) : style_(style) {}

  Emitter& Text(std::string_view text) {
    sql_.text += text;
    return *this;
  }
  // "NAME" with its quotes doubled.
  Emitter& Name(std::string_view name);
  Emitter& Number(long long number) { return Text(std::to_string(number)); }

  void Expression(const BoundExpression& expression);
  // The same, or error 8115 for a float that has overflowed.
  void Finite(const BoundExpression& value);
  void Query(const BoundQuery& query);
  // The columns are named c1, c2 …
  void DerivedQuery(const BoundQuery& query);

  Sql Take();

 private:
  enum class Naming { kNone, kNumbered };
  struct Operand {
    const BoundExpression* value;
    bool subtracted;
  };

  void Node(const BoundParameter& node, const BoundExpression& self);
  void Node(const BoundConstant& node, const BoundExpression& self);
  void Node(const BoundNow& node, const BoundExpression& self);
  void Node(const BoundColumn& node, const BoundExpression& self);
  void Node(const BoundNegate& node, const BoundExpression& self);
  void Node(const BoundArithmetic& node, const BoundExpression& self);
  void Node(const BoundConcat& node, const BoundExpression& self);
  void Node(const BoundDateAdd& node, const BoundExpression& self);
  void Node(const BoundCompare& node, const BoundExpression& self);
  void Node(const BoundLogical& node, const BoundExpression& self);
  void Node(const BoundNot& node, const BoundExpression& self);
  void Node(const BoundIsNull& node, const BoundExpression& self);
  void Node(const BoundIn& node, const BoundExpression& self);
  void Node(const BoundInQuery& node, const BoundExpression& self);
  void Node(const BoundExists& node, const BoundExpression& self);
  void Node(const BoundScalarQuery& node, const BoundExpression& self);
  void Node(const BoundCase& node, const BoundExpression& self);
  void Node(const BoundConvert& node, const BoundExpression& self);
  void Node(const BoundCall& node, const BoundExpression& self);
  void Node(const BoundAggregate& node, const BoundExpression& self);

  bool BringsCollation(const BoundExpression& expression) const;
  // Text that is no stored column does not know the collation by itself.
  void Collated(const BoundExpression& expression);
  void Infix(const BoundExpression& left, std::string_view op, const BoundExpression& right);
  void Function(std::string_view name, const BoundExpression& argument,
                std::initializer_list<long long> rest = {});
  void Function(std::string_view name, const BoundExpression& first, const BoundExpression& second);
  void Arguments(const std::vector<BoundPtr>& arguments);

  // An exact operand in units of another place.
  void Scaled(const BoundExpression& operand, int scale);
  // A chain of operators as one flat list, however long: SQLite's parser has room for few levels only.
  void Chain(const BoundExpression& self);
  void Fold(std::string_view begin, std::string_view negate, std::span<const Operand> operands, int scale);
  void Digits(const BoundConstant& constant, int scale);
  void IntegerQuotient(const BoundArithmetic& node);
  void ExactProduct(const BoundArithmetic& node, const BoundExpression& self);
  void ExactQuotient(const BoundArithmetic& node, const BoundExpression& self);

  void ToInteger(const BoundExpression& from, const Type& to);
  void ToExact(const BoundExpression& from, const Type& to);
  void ToFloat(const BoundExpression& from);
  void ToText(const BoundExpression& from, const Type& to, BoundConvert::Mode mode);
  void TextOf(const BoundExpression& from);
  void ToDate(const BoundExpression& from, const Type& to, BoundConvert::Mode mode);
  void ToReal(const BoundExpression& from);

  void Round(const BoundCall& node, const BoundExpression& self);
  void Abs(const BoundExpression& number, const BoundExpression& self);
  static std::string_view SumFunction(const BoundAggregate& node);
  void Sum(const BoundAggregate& node, const BoundExpression& self);
  void Average(const BoundAggregate& node, const BoundExpression& self);
  void AggregateCall(std::string_view name, const BoundAggregate& node, bool collated = false);

  void WholeQuery(const BoundQuery& query, Naming naming);
  void Selects(const BoundQuery& query, Naming naming);
  void Subquery(const BoundQuery& query, Naming naming);
  void Hoisted(const BoundQuery& query);
  void Select(const BoundSelect& select, Naming naming, bool collate_texts);
  void Source(const BoundSource& source);
  void Join(const BoundJoin& join);
  void OrderBy(const BoundQuery& query, bool by_name);
  void Limit(const BoundSelect& select);
  void SingleValue(const BoundQuery& query);

  // A CASE whose branches are CASEs again, as one list of branches.
  void FlatCase(const BoundExpression& self);
  void Branches(const BoundExpression& value, const BoundExpression& whole);
  void When(const BoundExpression* operand, const BoundExpression& when);

  void Plain(const BoundExpression& expression);
  // What lies too deep, as a statement of its own.
  void Part(const BoundExpression& value);
  bool MayBePart(const BoundExpression& value) const;
  void WholeOrPart(const BoundExpression& value);
  // How far the writing has come.
  struct Mark {
    size_t text;
    size_t parameters;
    size_t front_text;
    size_t front_parameters;
    int hoisted;
    size_t arguments;
  };
  Mark Here() const;
  void BackTo(const Mark& mark);
  // In a part: the place among its arguments of what belongs to the statement around it; nothing for its own.
  std::optional<size_t> ArgumentOf(const BoundExpression& value);
  void Outside(size_t argument, const Type& type);

  ColumnStyle style_;
  Sql sql_;
  Sql front_;  // WITH and the queries that stand in front
  int hoisted_ = 0;
  // Levels of SQLite's parser around the current place, at most.
  int levels_ = 0;
  std::vector<Sql> parts_;
  struct PartScope {
    std::set<int> sources;  // of the queries inside the part
    std::vector<const BoundExpression*> arguments;
  };
  PartScope* part_ = nullptr;               // of the part that is written
  const BoundExpression* whole_ = nullptr;  // the value of that part
  bool trying_ = false;                     // what is written may be taken back
  bool too_deep_ = false;                   // it has to be: a part would lie in it
  int queries_ = 0;                         // around the current place, in this text
  int depth_ = 0;         // queries around the current place, back to the one in front it belongs to
  bool in_full_ = false;  // inside an operand of a FULL JOIN
  // What is written in the place of a CASE that is taken apart, and the conditions of the branch.
  std::vector<std::pair<const BoundExpression*, const BoundExpression*>> standing_;
  std::vector<std::pair<const BoundExpression*, const BoundExpression*>> path_;
};

}  // namespace tarvoni::tsql

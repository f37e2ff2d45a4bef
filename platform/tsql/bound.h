#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/tsql/ast.h"
#include "platform/tsql/pooled.h"
#include "platform/tsql/public/catalogue.h"
#include "platform/tsql/public/type.h"

// The bound tree: every name has found its column, every expression has its T-SQL type, every conversion that
// T-SQL makes silently stands there as a node. Simple CASE, IN and BETWEEN keep their form.
namespace tarvoni::tsql {

struct BoundExpression;
struct BoundQuery;
using BoundPtr = std::unique_ptr<BoundExpression>;
using BoundQueryPtr = std::unique_ptr<BoundQuery>;

// A literal that is filled in for each run.
struct BoundParameter {
  int literal;
  Literal::Kind kind;
  bool converted = false;  // filled in as another type than its own
};

// A literal whose value is part of the plan.
struct BoundConstant {
  std::string text;
  Literal::Kind kind;
  bool converted = false;
};

struct BoundNow {};

struct BoundColumn {
  int source;             // BoundTable::id or BoundDerived::id
  int index;              // of the column there
  std::string_view name;  // belongs to the table, or to the query in its place
  bool stored;            // a column of a table, which brings its collation along
};

struct BoundNegate {
  BoundPtr operand;
};

struct BoundArithmetic {
  BinaryOperator op;
  BoundPtr left;
  BoundPtr right;
};

struct BoundConcat {
  BoundPtr left;
  BoundPtr right;
};

// A date moved by a number of days.
struct BoundDateAdd {
  BoundPtr date;
  BoundPtr days;
  bool subtract;
};

struct BoundCompare {
  BinaryOperator op;
  BoundPtr left;
  BoundPtr right;
};

struct BoundLogical {
  BinaryOperator op;  // kAnd, kOr
  std::vector<BoundPtr> operands;
};

struct BoundNot {
  BoundPtr operand;
};

struct BoundIsNull {
  BoundPtr operand;
  bool negated;
};

struct BoundIn {
  BoundPtr operand;
  std::vector<BoundPtr> items;
  bool negated;
};

struct BoundInQuery {
  BoundPtr operand;
  BoundQueryPtr query;
  bool negated;
};

struct BoundExists {
  BoundQueryPtr query;
};

struct BoundScalarQuery {
  BoundQueryPtr query;
  bool single;  // can have one row at most, so no run-time test is due
};

struct BoundCase {
  struct Branch {
    BoundPtr when;  // a condition, or a value when there is an operand
    BoundPtr then;
  };
  BoundPtr operand;
  std::vector<Branch> branches;
  BoundPtr otherwise;
};

struct BoundConvert {
  enum class Mode { kImplicit, kCast, kStore };
  BoundPtr operand;
  Mode mode;
};

enum class Function {
  kIsNull,
  kCoalesce,
  kNullIf,
  kRound,
  kAbs,
  kIsNumeric,
  kIdentCurrent,
  kRight,
  kLeft,
  kLen,
  kRtrim,
  kLtrim,
  kUpper,
  kLower,
  kYear,
  kMonth,
  kDay,
  kLike,
  kLikeUnicode,
};
struct BoundCall {
  Function function;
  std::vector<BoundPtr> arguments;
};

enum class Aggregate { kCountRows, kCount, kSum, kAvg, kMin, kMax };
struct BoundAggregate {
  Aggregate function;
  bool distinct;
  BoundPtr argument;  // null for COUNT(*)
};

struct BoundExpression : Pooled<BoundExpression> {
  Position at;
  Type type;
  // Exact values: no value of the expression exceeds this, in units of its last place.
  double limit = 0;
  bool condition = false;
  std::variant<BoundParameter, BoundConstant, BoundNow, BoundColumn, BoundNegate, BoundArithmetic,
               BoundConcat, BoundDateAdd, BoundCompare, BoundLogical, BoundNot, BoundIsNull, BoundIn,
               BoundInQuery, BoundExists, BoundScalarQuery, BoundCase, BoundConvert, BoundCall,
               BoundAggregate>
      node;

  template <typename T>
  T* As() {
    return std::get_if<T>(&node);
  }
  template <typename T>
  const T* As() const {
    return std::get_if<T>(&node);
  }
};

struct BoundSource;
using BoundSourcePtr = std::unique_ptr<BoundSource>;

struct BoundTable {
  int id;
  std::shared_ptr<const TableDefinition> table;
  std::string stored_name;
};

struct BoundDerived {
  int id;
  BoundQueryPtr query;
};

struct BoundJoin {
  JoinKind kind;
  BoundSourcePtr left;
  BoundSourcePtr right;
  BoundPtr on;
};

struct BoundSource {
  std::variant<BoundTable, BoundDerived, BoundJoin> node;
};

struct BoundItem {
  std::string name;
  BoundPtr value;
};

struct BoundSelect {
  bool distinct = false;
  std::optional<long long> top;
  std::vector<BoundItem> items;
  BoundSourcePtr from;
  BoundPtr where;
  std::vector<BoundPtr> group_by;
  BoundPtr having;
  bool aggregated = false;
};

struct BoundOrder {
  int ordinal = 0;  // counted from 1; 0 when `value` is set
  BoundPtr value;
  bool descending = false;
};

struct BoundQuery {
  std::vector<BoundSelect> selects;
  std::vector<bool> union_all;
  std::vector<BoundOrder> order_by;
};

template <typename Node>
BoundPtr MakeValue(Position at, const Type& type, double limit, Node node) {
  auto value = std::make_unique<BoundExpression>();
  value->at = at;
  value->type = type;
  value->limit = limit;
  value->node.template emplace<Node>(std::move(node));
  return value;
}

template <typename Node>
BoundPtr MakeCondition(Position at, Node node) {
  BoundPtr condition = MakeValue(at, Type::Bit(), 1, std::move(node));
  condition->condition = true;
  return condition;
}

// The largest exact value SQLite's integers hold; beyond it an exact value is a wide one.
inline constexpr double kNarrowLimit = 9.2233720368547758e18;

// No table has more rows. A sum that cannot exceed 64 bits with so many is kept in them.
inline constexpr double kMostRows = 2147483648.0;

inline bool IsWide(const BoundExpression& value) {
  return value.type.kind == TypeKind::kDecimal && value.limit >= kNarrowLimit;
}

// Whether two expressions read the same columns in the same way. Literals are equal when `same_literal` says
// so.
bool SameExpression(const BoundExpression& a, const BoundExpression& b);

}  // namespace tarvoni::tsql

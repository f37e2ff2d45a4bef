#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/tsql/pooled.h"
#include "platform/tsql/public/error.h"
#include "platform/tsql/public/type.h"

// The syntax tree: what was written, before any name has a meaning. Names stand without their brackets or
// quotes, spelled as written.
namespace tarvoni::tsql {

// What the parser lets through (Error 191 beyond), so that all others may walk the tree recursively: levels of
// brackets, subqueries and statements, and with them the links of chains such as 1+1+1… or A OR B OR C… on any way
// down the tree. SQLite takes no expression higher than 1000, and a link may become two levels there.
inline constexpr int kMaxNesting = 250;
inline constexpr int kMaxHeight = 500;

struct Expression;
struct Query;
struct Statement;
using ExpressionPtr = std::unique_ptr<Expression>;
using QueryPtr = std::unique_ptr<Query>;

struct Literal {
  enum class Kind { kNull, kInteger, kDecimal, kFloat, kText };
  Kind kind = Kind::kNull;
  int index = -1;  // place among the batch's literals (LexedBatch::literals); -1 for NULL
};

struct ColumnName {
  std::string table;  // empty when not qualified
  std::string column;
};

// `*` or `T.*` of a select list.
struct Star {
  std::string table;
};

enum class UnaryOperator { kMinus, kPlus, kNot };
struct Unary {
  UnaryOperator op;
  ExpressionPtr operand;
};

enum class BinaryOperator {
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kModulo,
  kEqual,
  kNotEqual,
  kLess,
  kLessEqual,
  kGreater,
  kGreaterEqual,
  kAnd,
  kOr,
};
struct Binary {
  BinaryOperator op;
  ExpressionPtr left;
  ExpressionPtr right;
};

struct IsNull {
  ExpressionPtr operand;
  bool negated = false;
};

struct Between {
  ExpressionPtr operand;
  ExpressionPtr low;
  ExpressionPtr high;
  bool negated = false;
};

struct InList {
  ExpressionPtr operand;
  std::vector<ExpressionPtr> items;
  bool negated = false;
};

struct InQuery {
  ExpressionPtr operand;
  QueryPtr query;
  bool negated = false;
};

struct Like {
  ExpressionPtr operand;
  ExpressionPtr pattern;
  bool negated = false;
};

struct Exists {
  QueryPtr query;
};

struct Case {
  struct Branch {
    ExpressionPtr when;
    ExpressionPtr then;
  };
  ExpressionPtr operand;  // null for the searched form
  std::vector<Branch> branches;
  ExpressionPtr otherwise;  // null without ELSE
};

struct Call {
  std::string function;
  std::vector<ExpressionPtr> arguments;
  bool distinct = false;  // COUNT(DISTINCT x)
  bool star = false;      // COUNT(*)
};

struct Cast {
  ExpressionPtr operand;
  Type type;
};

struct ScalarQuery {
  QueryPtr query;
};

// `at` is the place of an operator's sign or word, else of the beginning.
struct Expression : Pooled<Expression> {
  Position at;
  std::variant<Literal, ColumnName, Star, Unary, Binary, IsNull, Between, InList, InQuery, Like, Exists, Case,
               Call, Cast, ScalarQuery>
      node;
};

struct TableSource;
using TableSourcePtr = std::unique_ptr<TableSource>;

struct NamedTable {
  std::string name;  // a temporary table with its '#'
  std::string alias;
};

struct DerivedTable {
  QueryPtr query;
  std::string alias;
};

enum class JoinKind { kInner, kLeft, kRight, kFull, kCross, kComma };
struct Join {
  JoinKind kind;
  TableSourcePtr left;
  TableSourcePtr right;
  ExpressionPtr on;  // null for kCross and kComma
};

struct TableSource {
  Position at;
  std::variant<NamedTable, DerivedTable, Join> node;
};

struct SelectItem {
  Position at;
  ExpressionPtr value;
  std::string alias;  // empty without one
};

struct OrderItem {
  ExpressionPtr value;
  bool descending = false;
};

struct Select {
  Position at;
  bool distinct = false;
  ExpressionPtr top;  // a literal; null without TOP
  std::vector<SelectItem> items;
  TableSourcePtr from;  // null without FROM
  ExpressionPtr where;
  std::vector<ExpressionPtr> group_by;
  ExpressionPtr having;
};

// One SELECT, or several joined by UNION [ALL] from left to right, with the ORDER BY of the whole.
struct Query {
  Position at;
  std::vector<Select> selects;
  std::vector<bool> union_all;  // one fewer than selects; true for UNION ALL
  std::vector<OrderItem> order_by;
};

struct SelectStatement {
  QueryPtr query;
};

struct InsertStatement {
  std::string table;
  Position table_at;
  std::vector<std::pair<std::string, Position>> columns;  // empty without a list
  std::vector<std::vector<ExpressionPtr>> rows;           // VALUES; empty when `query` is set
  Position values_at;
  QueryPtr query;
};

struct Assignment {
  Position at;
  std::string column;
  ExpressionPtr value;
};

struct UpdateStatement {
  std::string table;
  Position table_at;
  std::vector<Assignment> assignments;
  ExpressionPtr where;
};

struct DeleteStatement {
  std::string table;
  Position table_at;
  ExpressionPtr where;
};

struct KeyConstraint {
  std::string name;  // empty without CONSTRAINT
  bool primary = false;
  std::vector<std::string> columns;
};

struct ForeignKey {
  std::vector<std::string> columns;
  std::string table;
  std::vector<std::string> referenced;
};

struct ColumnSyntax {
  Position at;
  std::string name;
  Type type;
  std::optional<bool> nullable;  // nothing when neither NULL nor NOT NULL stands there
  bool identity = false;
  long long seed = 1;
  long long step = 1;
  ExpressionPtr default_value;
};

struct CreateTableStatement {
  std::string table;
  Position table_at;
  std::vector<ColumnSyntax> columns;
  std::vector<KeyConstraint> keys;  // those of columns too
  std::vector<ForeignKey> foreign_keys;
  std::vector<ExpressionPtr> checks;
};

struct IndexColumn {
  std::string name;
  bool descending = false;
  bool null_is_blank = false;  // ISNULL(name,'')
};

struct CreateIndexStatement {
  std::string name;
  std::string table;
  Position table_at;
  bool unique = false;
  std::vector<IndexColumn> columns;
};

struct DropTableStatement {
  std::string table;
  Position table_at;
};

struct BlockStatement {
  std::vector<Statement> body;
};

struct IfStatement {
  ExpressionPtr condition;
  std::unique_ptr<Statement> then;
  std::unique_ptr<Statement> otherwise;  // null without ELSE
};

struct SetNocount {
  bool on;
};
struct SetDateFormat {
  std::string format;  // "dmy", "mdy", "ymd" …, in small letters
};
struct SetIdentityInsert {
  std::string table;
  Position table_at;
  bool on;
};

struct Statement {
  Position at;
  std::variant<SelectStatement, InsertStatement, UpdateStatement, DeleteStatement, CreateTableStatement,
               CreateIndexStatement, DropTableStatement, BlockStatement, IfStatement, SetNocount,
               SetDateFormat, SetIdentityInsert>
      node;
};

struct Batch {
  std::vector<Statement> statements;
  // Literals whose value has become part of the tree: lengths of types, names in single quotes. A plan of this batch
  // serves another one of its shape only if these are the same.
  std::vector<int> pinned;
};

}  // namespace tarvoni::tsql

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/tsql/ast.h"
#include "platform/tsql/public/catalogue.h"
#include "platform/tsql/public/lexer.h"

// What a batch becomes: a list of steps in SQLite's words, and what the caller has to know to run them.
namespace tarvoni::tsql {

// The filling of the n-th ? of a statement.
struct Parameter {
  enum class Source {
    kLiteral,  // a literal of the batch, converted to `type`
    kNow,      // GETDATE(), the same moment for the whole statement
    kOuter,    // an argument of the ts_part that asks for this part
  };
  Source source = Source::kLiteral;
  int literal = -1;  // LexedBatch::literals; of kOuter the place among the arguments
  Type type;
};

struct Sql {
  std::string text;
  std::vector<Parameter> parameters;
  // Queries of one value each that ts_part(n, …) asks for: what lies too deep for SQLite's parser.
  std::vector<Sql> parts = {};
};

struct ResultColumn {
  std::string name;  // empty when the statement gives none
  Type type;
};

// Gives rows.
struct QueryStep {
  Sql sql;
  std::vector<ResultColumn> columns;
};

// Rows taken out and put back with new values: how an UPDATE may exchange the values of a unique key, which SQLite
// itself tests after each row.
struct RowRewrite {
  Sql rows;            // of each row its number and its columns as they shall be
  std::string erase;   // the row of a number
  std::string insert;  // a row of a number and its columns
};

// Changes rows and reports how many.
struct WriteStep {
  Sql sql;
  std::string table;
  std::optional<RowRewrite> rewrite = {};  // to be tried when `sql` meets a duplicate
};

// Creates a table, its indexes and the note of its identity column. A temporary table has a name of its own
// in the file's temporary schema (`stored_name`); it is emptied when the batch ends.
struct CreateTableStep {
  TableDefinition table;
  std::string stored_name;
  bool temporary = false;
  std::vector<std::string> sql;
};

struct CreateIndexStep {
  std::string sql;
};

struct DropTableStep {
  std::string table;
  std::string stored_name;
  bool temporary = false;
};

// Goes on with the next step if the one value of the query's row is 1, else with step `otherwise`.
struct ConditionStep {
  Sql sql;
  int otherwise = 0;
};

struct JumpStep {
  int target = 0;
};

// An error of this one statement that a server finds only when it gets there.
struct RaiseStep {
  int number = 0;
  std::string message;
};

// A statement that names a table which does not exist yet: it is compiled when it is reached.
struct DeferredStep {
  const Statement* statement = nullptr;
};

struct Step {
  Position at;
  std::variant<QueryStep, WriteStep, CreateTableStep, CreateIndexStep, DropTableStep, ConditionStep, JumpStep,
               RaiseStep, DeferredStep, SetNocount, SetDateFormat, SetIdentityInsert>
      action;
};

// A literal whose value is part of the plan (an ordinal, a number of places, a factor).
struct PinnedLiteral {
  int index = 0;
  std::string text;
};

struct Plan {
  std::vector<Step> steps;
  std::vector<PinnedLiteral> pinned;
  // False when a step is deferred, or changes what tables there are: such a plan serves one run.
  bool reusable = true;
  // Keeps what deferred steps point into.
  std::shared_ptr<const Batch> batch;
};

}  // namespace tarvoni::tsql

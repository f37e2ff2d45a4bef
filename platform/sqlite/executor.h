#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/convert.h"
#include "platform/sqlite/database.h"
#include "platform/tsql/public/compile.h"
#include "src/context/data/database.h"

namespace tarvoni::sqlite {

// What SET changes, for as long as the connection lives.
struct Session {
  bool nocount = false;
  DateFormat date_format = DateFormat::kMdy;
  std::string identity_insert;  // a table's name, or empty
};

// Which of a batch's results are read; the others are only gone through, for their errors.
enum class Wanted { kNone, kFirstRows, kAll };

struct BatchResult {
  std::optional<RowSet> rows;    // the first result set
  std::vector<BatchPart> parts;  // all results, where they are wanted
  long long affected = -1;
  std::optional<DatabaseError> error;  // the first one
};

// Runs one batch.
class Executor {
 public:
  Executor(Database& database, Session& session, std::string_view text, Wanted wanted);

  // Throws tsql::Error for what is refused before anything runs.
  BatchResult Run();
  // The same with a plan that was made for a text of this shape.
  BatchResult RunPlan(PreparedPlan& plan);

 private:
  // Another process has changed tables: the plan is void, and nothing of the batch has been written yet.
  struct Outdated {};

  PreparedPlanPtr FindPlan();
  // The batch with its tokens, which a known plan does not need.
  const tsql::LexedBatch& WithTokens();
  PreparedPlanPtr Prepare(tsql::Plan plan);
  tsql::CompileOptions Options() const;

  void RunSteps(PreparedPlan& plan);
  std::size_t RunStep();
  std::size_t Recover(const DatabaseError& error);
  void KeepError(const DatabaseError& error);
  std::string WordsOf(const DatabaseError& error);

  std::size_t Do(const tsql::QueryStep& step);
  std::size_t Do(const tsql::WriteStep& step);
  std::size_t Do(const tsql::CreateTableStep& step);
  std::size_t Do(const tsql::CreateIndexStep& step);
  std::size_t Do(const tsql::DropTableStep& step);
  std::size_t Do(const tsql::ConditionStep& step);
  std::size_t Do(const tsql::JumpStep& step);
  std::size_t Do(const tsql::RaiseStep& step);
  std::size_t Do(const tsql::DeferredStep& step);
  std::size_t Do(const tsql::SetNocount& step);
  std::size_t Do(const tsql::SetDateFormat& step);
  std::size_t Do(const tsql::SetIdentityInsert& step);

  long long Write(const tsql::WriteStep& step);
  Statement& Bound(const tsql::Sql& sql);
  void Bind(Statement& statement, const tsql::Sql& sql);
  void BindWhole(Statement& statement, const tsql::Sql& sql, PreparedParts& parts);
  RowSet ReadRows(const tsql::QueryStep& step, Statement& statement);
  void KeepCount(long long affected);
  void RequireSameTables(Statement& statement);
  void NoticeForeignChanges();
  void BeginWrite();
  void NoteExplicitIdentity(const std::string& table);
  StoredTable FindTable(std::string_view name) const;

  Database& database_;
  Session& session_;
  std::string_view text_;
  tsql::LexedBatch lexed_;
  Wanted wanted_;
  std::string suffix_;

  BatchResult result_;
  PreparedPlan* plan_ = nullptr;  // the one running: the batch's own, or that of a deferred statement
  std::size_t index_ = 0;
  TemporaryTables* temporary_ = nullptr;  // of the batch's own plan
  std::vector<StoredValue> bound_;        // live until the statement has run
  bool stopped_ = false;
  bool wrote_ = false;
  bool restarted_ = false;
  bool known_plan_ = false;  // from the cache, made when the tables may have been others
};

}  // namespace tarvoni::sqlite

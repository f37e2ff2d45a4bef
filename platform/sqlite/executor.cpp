#include "platform/sqlite/executor.h"

#include <utility>

#include "platform/sqlite/error_map.h"
#include "platform/sqlite/file_check.h"
#include "platform/sqlite/rewrite.h"
#include "platform/sqlite/table_changes.h"
#include "platform/tsql/public/parser.h"
#include "src/context/values/clock.h"

namespace tarvoni::sqlite {
namespace {

// The moment as DATETIME holds it: in steps of a three-hundredth of a second, cut.
StoredValue Now() {
  DateTime now = Clock::Now();
  const int ticks = now.milliseconds * 3 / 10;
  now.milliseconds = (ticks * 10 + 1) / 3;
  return now.ToIso();
}

}  // namespace

Executor::Executor(Database& database, Session& session, std::string_view text, Wanted wanted)
    : database_(database), session_(session), text_(text), lexed_(tsql::LexShape(text)), wanted_(wanted) {
  database.File().Functions().date_format = session.date_format;
}

BatchResult Executor::Run() {
  for (;;) {
    // A change of tables by the batch itself clears the cache: the plan lives on here.
    const PreparedPlanPtr plan = FindPlan();
    try {
      return RunPlan(*plan);
    } catch (const Outdated&) {
      restarted_ = true;
      result_ = {};
      plan_ = nullptr;
    }
  }
}

BatchResult Executor::RunPlan(PreparedPlan& plan) {
  temporary_ = &plan.Temporary();
  const TemporaryTables::Run run(*temporary_);
  RunSteps(plan);
  if (session_.identity_insert.starts_with('#')) session_.identity_insert.clear();
  return std::move(result_);
}

PreparedPlanPtr Executor::FindPlan() {
  if (auto known = database_.Plans().Find(lexed_, session_.identity_insert)) {
    known_plan_ = true;
    return known;
  }
  known_plan_ = false;
  database_.NoticeForeignChanges();
  suffix_ = database_.NextSuffix();
  auto batch = std::make_shared<const tsql::Batch>(tsql::Parse(WithTokens()));
  auto plan = Prepare(tsql::Compile(lexed_, std::move(batch), database_.Tables(), Options()));
  if (plan->Plan().reusable) database_.Plans().Add(lexed_, session_.identity_insert, plan);
  return plan;
}

const tsql::LexedBatch& Executor::WithTokens() {
  if (lexed_.tokens.empty()) lexed_ = tsql::Lex(text_);
  return lexed_;
}

PreparedPlanPtr Executor::Prepare(tsql::Plan plan) {
  return std::make_shared<PreparedPlan>(database_.File(), database_.Identities(), std::move(plan),
                                        WithTokens());
}

tsql::CompileOptions Executor::Options() const {
  return {session_.identity_insert, suffix_};
}

void Executor::RunSteps(PreparedPlan& plan) {
  const auto outer = std::pair(std::exchange(plan_, &plan), std::exchange(index_, 0));
  while (!stopped_ && index_ < plan.Plan().steps.size()) {
    try {
      index_ = RunStep();
    } catch (const DatabaseError& error) {
      index_ = Recover(error);
    }
  }
  std::tie(plan_, index_) = outer;
}

std::size_t Executor::RunStep() {
  return std::visit([this](const auto& step) { return Do(step); }, plan_->Plan().steps[index_].action);
}

// Keeps the error and tells where the batch goes on.
std::size_t Executor::Recover(const DatabaseError& error) {
  KeepError(database_.NoteFailure(error));
  NoticeForeignChanges();
  stopped_ = EndsBatch(error.Number());
  const auto* condition = std::get_if<tsql::ConditionStep>(&plan_->Plan().steps[index_].action);
  return condition != nullptr ? static_cast<std::size_t>(condition->otherwise) : index_ + 1;
}

void Executor::KeepError(const DatabaseError& error) {
  if (result_.error) return;
  const auto at = plan_->PositionOf(index_, WithTokens());
  result_.error.emplace(error.Number(), WordsOf(error), at.line, at.column, std::string(text_));
}

// A function that met a value that cannot be does not know where it stands.
std::string Executor::WordsOf(const DatabaseError& error) {
  if (error.Number() != kErrorDamaged || !database_.File().Functions().error) return error.what();
  std::vector<std::string> names;
  for (const tsql::Token& token : WithTokens().tokens) {
    if (token.kind == tsql::TokenKind::kName) names.emplace_back(token.text);
  }
  const auto cells = CellProblems(database_.File(), database_.Tables(), names, 1);
  return cells.empty() ? error.what() : std::string(error.what()) + " " + cells.front();
}

std::size_t Executor::Do(const tsql::QueryStep& step) {
  Statement& statement = Bound(step.sql);
  const StatementScope scope(statement);
  if (wanted_ == Wanted::kAll)
    result_.parts.push_back({Recordset(ReadRows(step, statement))});
  else if (wanted_ == Wanted::kFirstRows && !result_.rows)
    result_.rows = ReadRows(step, statement);
  else
    statement.Run();
  RequireSameTables(statement);
  return index_ + 1;
}

RowSet Executor::ReadRows(const tsql::QueryStep& step, Statement& statement) {
  RowSet rows;
  rows.columns.reserve(step.columns.size());
  for (const auto& column : step.columns) {
    rows.columns.push_back({column.name, FieldTypeOf(column.type), DefinedSizeOf(column.type)});
  }
  const int count = static_cast<int>(step.columns.size());
  bool found = statement.Step();
  RequireSameTables(statement);
  for (; found; found = statement.Step()) {
    for (int i = 0; i < count; ++i) {
      rows.cells.push_back(FromStored(statement.Raw(), i, step.columns[static_cast<std::size_t>(i)].type));
    }
  }
  return rows;
}

std::size_t Executor::Do(const tsql::WriteStep& step) {
  const bool temporary = plan_->IsTemporary(step.table);
  if (!temporary) BeginWrite();
  KeepCount(Write(step));
  if (!session_.identity_insert.empty()) NoteExplicitIdentity(step.table);
  return index_ + 1;
}

long long Executor::Write(const tsql::WriteStep& step) {
  Statement& statement = Bound(step.sql);
  const StatementScope scope(statement);
  try {
    statement.Run();
    return sqlite3_changes64(database_.File().Raw());
  } catch (const DatabaseError& error) {
    if (!step.rewrite || !IsDuplicate(error.Number())) throw;
  }
  Statement rows(database_.File(), step.rewrite->rows.text);
  PreparedParts parts(database_.File(), step.rewrite->rows);
  BindWhole(rows, step.rewrite->rows, parts);
  return RewriteRows(database_.File(), rows, *step.rewrite);
}

void Executor::KeepCount(long long affected) {
  result_.affected = affected;
  if (wanted_ == Wanted::kAll && !session_.nocount) result_.parts.push_back({{}, affected});
}

void Executor::NoteExplicitIdentity(const std::string& table) {
  if (!tsql::SameName(table, session_.identity_insert)) return;
  const auto [definition, stored_name] = FindTable(table);
  const int found = definition ? definition->IdentityColumn() : -1;
  if (found < 0) return;
  const auto& column = definition->columns[static_cast<std::size_t>(found)];
  const std::string extreme = column.step > 0 ? "MAX(" : "MIN(";
  Statement query(database_.File(), "SELECT " + extreme + Quoted(column.name) + ") FROM " + stored_name);
  if (query.Step() && !query.IsNull(0)) database_.Identities().RaiseTo(definition->name, query.Integer(0));
}

std::size_t Executor::Do(const tsql::CreateTableStep& step) {
  if (step.temporary) {
    temporary_->Create(step);
  } else {
    BeginWrite();
    CreateTable(database_, step);
  }
  return index_ + 1;
}

std::size_t Executor::Do(const tsql::CreateIndexStep& step) {
  BeginWrite();
  CreateIndex(database_, step);
  return index_ + 1;
}

std::size_t Executor::Do(const tsql::DropTableStep& step) {
  if (step.temporary) {
    temporary_->Drop(step);
    return index_ + 1;
  }
  BeginWrite();
  DropTable(database_, step.table);
  if (tsql::SameName(step.table, session_.identity_insert)) session_.identity_insert.clear();
  return index_ + 1;
}

std::size_t Executor::Do(const tsql::ConditionStep& step) {
  // What the condition finds must still hold when the batch writes.
  if (plan_->Writes() && !database_.File().IsReadOnly()) BeginWrite();
  Statement& statement = Bound(step.sql);
  const StatementScope scope(statement);
  const bool holds = statement.Step() && statement.Integer(0) == 1;
  RequireSameTables(statement);
  return holds ? index_ + 1 : static_cast<std::size_t>(step.otherwise);
}

std::size_t Executor::Do(const tsql::JumpStep& step) {
  return static_cast<std::size_t>(step.target);
}

std::size_t Executor::Do(const tsql::RaiseStep& step) {
  throw DatabaseError(step.number, step.message);
}

std::size_t Executor::Do(const tsql::DeferredStep& step) {
  try {
    const auto plan = Prepare(
        tsql::CompileDeferred(lexed_, plan_->Plan().batch, *step.statement, database_.Tables(), Options()));
    RunSteps(*plan);
  } catch (const tsql::Error& error) {
    if (!result_.error) result_.error = ErrorOf(error, text_);
    stopped_ = true;
  }
  return index_ + 1;
}

std::size_t Executor::Do(const tsql::SetNocount& step) {
  session_.nocount = step.on;
  return index_ + 1;
}

std::size_t Executor::Do(const tsql::SetDateFormat& step) {
  session_.date_format = ParseDateFormat(step.format);
  database_.File().Functions().date_format = session_.date_format;
  return index_ + 1;
}

std::size_t Executor::Do(const tsql::SetIdentityInsert& step) {
  const auto table = FindTable(step.table).definition;
  if (!table) {
    throw DatabaseError(1088, "Cannot find the object '" + step.table + "' because it does not exist.");
  }
  if (table->IdentityColumn() < 0) {
    throw DatabaseError(8106, "Table '" + step.table +
                                  "' does not have the identity property. Cannot perform SET operation.");
  }
  const bool own = tsql::SameName(session_.identity_insert, step.table);
  if (step.on && !own && !session_.identity_insert.empty()) {
    throw DatabaseError(8107, "IDENTITY_INSERT is already ON for table '" + session_.identity_insert + "'.");
  }
  if (step.on) {
    session_.identity_insert = table->name;
  } else if (own) {
    session_.identity_insert.clear();
  }
  return index_ + 1;
}

// SQLite prepares a statement anew when tables have changed, and knows nothing of the plan behind it.
void Executor::RequireSameTables(Statement& statement) {
  if (statement.WasPreparedAnew()) NoticeForeignChanges();
}

// Until something is written the batch can begin again with another plan.
void Executor::NoticeForeignChanges() {
  if (!wrote_ && !restarted_ && database_.NoticeForeignChanges()) throw Outdated{};
}

Statement& Executor::Bound(const tsql::Sql& sql) {
  if (known_plan_ && !plan_->IsPrepared(index_)) NoticeForeignChanges();
  Statement& statement = plan_->Prepared(index_, sql);
  if (sql.parts.empty()) {
    Bind(statement, sql);
  } else {
    BindWhole(statement, sql, plan_->PartsOf(index_));
  }
  return statement;
}

void Executor::BindWhole(Statement& statement, const tsql::Sql& sql, PreparedParts& parts) {
  Bind(statement, sql);
  parts.BindAll([this](Statement& part, const tsql::Sql& part_sql) { Bind(part, part_sql); });
  database_.File().Functions().parts = &parts;
}

void Executor::Bind(Statement& statement, const tsql::Sql& sql) {
  bound_.clear();
  bound_.reserve(sql.parameters.size());
  std::optional<StoredValue> now;
  for (const auto& parameter : sql.parameters) {
    if (parameter.source == tsql::Parameter::Source::kOuter) {
      bound_.emplace_back(Null{});  // filled in by ts_part
    } else if (parameter.source == tsql::Parameter::Source::kNow) {
      if (!now) now = Now();
      bound_.push_back(*now);
    } else {
      const auto& literal = lexed_.literals[static_cast<std::size_t>(parameter.literal)];
      bound_.push_back(LiteralToStored(literal, parameter.type, session_.date_format));
    }
    statement.Bind(static_cast<int>(bound_.size()), bound_.back());
  }
}

void Executor::BeginWrite() {
  if (database_.BeginWrite() && database_.NoticeForeignChanges()) throw Outdated{};
  wrote_ = true;
}

StoredTable Executor::FindTable(std::string_view name) const {
  if (name.starts_with('#')) return temporary_->Find(name);
  auto definition = database_.Tables().FindTable(name);
  std::string stored_name = definition ? "main." + Quoted(definition->name) : std::string();
  return {std::move(definition), std::move(stored_name)};
}

}  // namespace tarvoni::sqlite

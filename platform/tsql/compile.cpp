#include "platform/tsql/public/compile.h"

#include <algorithm>

#include "platform/tsql/emitter.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/query_binder.h"
#include "platform/tsql/statement_compiler.h"

namespace tarvoni::tsql {
namespace {

// What a deferred statement finds of the batch before it; permanent tables the database has by now.
void MakeTemporaryTables(const Batch& batch, const Statement& until, BindState& state) {
  Plan made_before;
  StatementCompiler compiler(state, made_before);
  for (const Statement& statement : batch.statements) {
    if (&statement == &until) return;
    const auto* create = std::get_if<CreateTableStatement>(&statement.node);
    if (create && IsTemporary(create->table)) compiler.CompileNow(statement);
  }
}

Plan CompileAll(const LexedBatch& lexed, std::shared_ptr<const Batch> batch, const Statement* only,
                const Catalogue& catalogue, const CompileOptions& options) {
  BatchCatalogue tables(catalogue, options.temporary_suffix);
  BindState state{&lexed, &tables, {}, options.identity_insert};
  Plan plan;
  StatementCompiler compiler(state, plan);
  if (only) {
    MakeTemporaryTables(*batch, *only, state);
    compiler.CompileNow(*only);
  } else {
    for (const Statement& statement : batch->statements) compiler.Compile(statement);
  }
  plan.pinned = std::move(state.pinned);
  plan.batch = std::move(batch);
  return plan;
}

}  // namespace

Plan Compile(const LexedBatch& lexed, std::shared_ptr<const Batch> batch, const Catalogue& catalogue,
             const CompileOptions& options) {
  return CompileAll(lexed, std::move(batch), nullptr, catalogue, options);
}

Plan CompileDeferred(const LexedBatch& lexed, std::shared_ptr<const Batch> batch, const Statement& statement,
                     const Catalogue& catalogue, const CompileOptions& options) {
  return CompileAll(lexed, std::move(batch), &statement, catalogue, options);
}

void StatementCompiler::CompileNow(const Statement& statement) {
  std::visit([&](const auto& node) { Compile(node, statement.at); }, statement.node);
}

void StatementCompiler::Compile(const Statement& statement) {
  const size_t first = plan_.steps.size();
  try {
    CompileNow(statement);
  } catch (const Error& error) {
    if (error.Number() != kUnknownTable) throw;
    plan_.steps.resize(first);
    Add(statement.at, DeferredStep{&statement});
    plan_.reusable = false;
  }
}

std::shared_ptr<const TableDefinition> StatementCompiler::RequireTable(const std::string& name,
                                                                       Position at) const {
  auto table = state_.tables->Find(name);
  if (!table) throw Error(kUnknownTable, "Invalid object name '" + name + "'.", at);
  return table;
}

void StatementCompiler::Compile(const SelectStatement& select, Position at) {
  const BoundQueryPtr query = BindQuery(state_, nullptr, *select.query, QueryPlace::kStatement);
  Emitter emitter;
  emitter.Query(*query);
  QueryStep step{emitter.Take(), {}};
  for (const BoundItem& item : query->selects.front().items)
    step.columns.push_back({item.name, item.value->type});
  Add(at, std::move(step));
}

void StatementCompiler::Compile(const BlockStatement& block, Position) {
  for (const Statement& statement : block.body) Compile(statement);
}

void StatementCompiler::Compile(const IfStatement& choice, Position at) {
  const Scope no_names;
  const BoundPtr condition = ExpressionBinder(state_, no_names, {}).Condition(*choice.condition);
  Emitter emitter;
  emitter.Text("SELECT ").Expression(*condition);
  const size_t test = Add(at, ConditionStep{emitter.Take(), 0});
  Compile(*choice.then);
  size_t jump = 0;
  if (choice.otherwise) jump = Add(at, JumpStep{});
  std::get<ConditionStep>(plan_.steps[test].action).otherwise = static_cast<int>(plan_.steps.size());
  if (!choice.otherwise) return;
  Compile(*choice.otherwise);
  std::get<JumpStep>(plan_.steps[jump].action).target = static_cast<int>(plan_.steps.size());
}

void StatementCompiler::Compile(const SetNocount& set, Position at) {
  Add(at, set);
}

void StatementCompiler::Compile(const SetDateFormat& set, Position at) {
  Add(at, set);
}

void StatementCompiler::Compile(const SetIdentityInsert& set, Position at) {
  const auto table = RequireTable(set.table, set.table_at);
  if (table->IdentityColumn() < 0) {
    Add(at,
        RaiseStep{kNoIdentity, "Table '" + set.table +
                                   "' does not have the identity property. Cannot perform SET operation."});
    return;
  }
  state_.identity_insert = set.on ? table->name : std::string();
  Add(at, SetIdentityInsert{table->name, set.table_at, set.on});
}

}  // namespace tarvoni::tsql

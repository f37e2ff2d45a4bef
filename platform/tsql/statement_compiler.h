#pragma once

#include "platform/tsql/bind_state.h"
#include "platform/tsql/public/plan.h"

namespace tarvoni::tsql {

// Turns the statements of a batch, one after the other, into steps.
class StatementCompiler {
 public:
  StatementCompiler(BindState& state, Plan& plan) : state_(state), plan_(plan) {}

  // A statement that names a table which is not there becomes a deferred step.
  void Compile(const Statement& statement);
  // The same without deferring: Error 208 leaves.
  void CompileNow(const Statement& statement);

 private:
  void Compile(const SelectStatement& select, Position at);
  void Compile(const InsertStatement& insert, Position at);
  void Compile(const UpdateStatement& update, Position at);
  void Compile(const DeleteStatement& erase, Position at);
  void Compile(const CreateTableStatement& create, Position at);
  void Compile(const CreateIndexStatement& create, Position at);
  void Compile(const DropTableStatement& drop, Position at);
  void Compile(const BlockStatement& block, Position at);
  void Compile(const IfStatement& choice, Position at);
  void Compile(const SetNocount& set, Position at);
  void Compile(const SetDateFormat& set, Position at);
  void Compile(const SetIdentityInsert& set, Position at);

  template <typename Action>
  size_t Add(Position at, Action action) {
    plan_.steps.push_back({at, std::move(action)});
    return plan_.steps.size() - 1;
  }
  std::shared_ptr<const TableDefinition> RequireTable(const std::string& name, Position at) const;

  BindState& state_;
  Plan& plan_;
};

}  // namespace tarvoni::tsql

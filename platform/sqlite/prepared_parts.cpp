#include "platform/sqlite/prepared_parts.h"

#include <utility>

#include "platform/sqlite/function_layer.h"

namespace tarvoni::sqlite {
namespace {

// Nested statements have parts of their own while they run.
class RunningParts {
 public:
  RunningParts(FunctionContext& context, PreparedParts* parts)
      : context_(context), before_(std::exchange(context.parts, parts)) {}
  RunningParts(const RunningParts&) = delete;
  RunningParts& operator=(const RunningParts&) = delete;
  ~RunningParts() { context_.parts = before_; }

 private:
  FunctionContext& context_;
  PreparedParts* before_;
};

void CallPart(sqlite3_context* context, int /*count*/, sqlite3_value** values) noexcept {
  Trapped(context, [&] {
    PreparedParts* const parts = ContextOf(context).parts;
    assert(parts != nullptr);
    parts->Run(static_cast<std::size_t>(sqlite3_value_int(values[0])), context, values + 1);
  });
}

}  // namespace

PreparedParts::PreparedParts(Handle& handle, const tsql::Sql& whole) {
  for (const tsql::Sql& sql : whole.parts) {
    parts_.push_back({&sql, Statement(handle, sql.text), PreparedParts(handle, sql)});
  }
}

void PreparedParts::BindAll(const Bind& bind) {
  for (Part& part : parts_) {
    bind(part.statement, *part.sql);
    part.inner.BindAll(bind);
  }
}

void PreparedParts::Run(std::size_t part, sqlite3_context* context, sqlite3_value** arguments) {
  auto& [sql, statement, inner] = parts_[part];
  const RunningParts running(ContextOf(context), &inner);
  for (std::size_t i = 0; i < sql->parameters.size(); ++i) {
    const tsql::Parameter& parameter = sql->parameters[i];
    if (parameter.source != tsql::Parameter::Source::kOuter) continue;
    sqlite3_bind_value(statement.Raw(), static_cast<int>(i + 1), arguments[parameter.literal]);
  }
  const StatementScope scope(statement);
  if (statement.Step()) sqlite3_result_value(context, sqlite3_column_value(statement.Raw(), 0));
}

void RegisterPartFunction(sqlite3* db, FunctionContext& context) {
  CreateFunction(db, "ts_part", -1, kImpure, context, &CallPart);
}

}  // namespace tarvoni::sqlite

#include "platform/sqlite/connection.h"

#include <cassert>
#include <chrono>
#include <utility>

#include "platform/sqlite/error_map.h"

namespace tarvoni::sqlite {

SqliteConnection::~SqliteConnection() {
  try {
    while (handlers_ > 0) EndHandler();
  } catch (const DatabaseError&) {
    // Nobody is left to hear of it.
  }
}

long long SqliteConnection::Execute(const SqlText& text) {
  return Run(text.Text(), Wanted::kNone).affected;
}

Recordset SqliteConnection::Open(const SqlText& text) {
  auto result = Run(text.Text(), Wanted::kFirstRows);
  return result.rows ? Recordset(std::move(*result.rows)) : Recordset();
}

void SqliteConnection::OpenAll(const SqlText& text, const std::function<void(const BatchPart&)>& take) {
  const auto result = RunTraced(text.Text(), Wanted::kAll);
  for (const BatchPart& part : result.parts) take(part);
  if (result.error) throw DatabaseError(*result.error);
}

void SqliteConnection::BeginHandler() {
  ++handlers_;
  database_->BeginHandler();
}

void SqliteConnection::EndHandler() {
  assert(handlers_ > 0);
  --handlers_;
  database_->EndHandler();
}

BatchResult SqliteConnection::Run(std::string_view text, Wanted wanted) {
  auto result = RunTraced(text, wanted);
  if (result.error) throw DatabaseError(*result.error);
  return result;
}

BatchResult SqliteConnection::RunTraced(std::string_view text, Wanted wanted) {
  const auto start = std::chrono::steady_clock::now();
  auto result = RunBatch(text, wanted);
  if (trace_) {
    const auto elapsed = std::chrono::steady_clock::now() - start;
    trace_({text, elapsed, result.affected, result.error ? result.error->Number() : 0});
  }
  return result;
}

BatchResult SqliteConnection::RunBatch(std::string_view text, Wanted wanted) {
  BatchResult result;
  try {
    result = Executor(*database_, session_, text, wanted).Run();
  } catch (const tsql::Error& error) {
    result.error = ErrorOf(error, text);
  }
  if (database_->InHandler()) return result;
  try {
    database_->Commit();
  } catch (const DatabaseError& error) {
    // That nothing stays weighs more than what failed before.
    result.error.emplace(error.Number(), error.what(), 0, 0, std::string(text));
  }
  return result;
}

}  // namespace tarvoni::sqlite

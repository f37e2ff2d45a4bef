#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "src/context/data/database_error.h"
#include "src/context/data/recordset.h"
#include "src/context/data/sql_text.h"

namespace tarvoni {

// What the trace hook hears of every statement sent.
struct TraceEvent {
  std::string_view statement;
  std::chrono::nanoseconds elapsed{};
  long long affected_rows = -1;  // -1 when nothing was counted; a file counts under SET NOCOUNT too
  int error_number = 0;          // 0 when the statement succeeded
};
using TraceHook = std::function<void(const TraceEvent&)>;

// One result of a batch: rows, or else how many rows a statement affected.
struct BatchPart {
  Recordset rows;  // closed when it is a count
  long long affected = -1;
};

// An open database that takes Transact-SQL text.
class Connection {
 public:
  virtual ~Connection() = default;

  // Runs a batch. Gives the rows affected by its last statement that counts them; -1 if none does, or if a server keeps
  // the count to itself (SET NOCOUNT ON).
  // Throws the batch's first DatabaseError, after what a server would still have run.
  virtual long long Execute(const SqlText& text) = 0;
  // Runs a batch and gives its first result set; a closed recordset if it has none.
  virtual Recordset Open(const SqlText& text) = 0;
  // Runs a batch and hands over each of its results in order, also those before its error. For command lines;
  // a Screen asks one question at a time.
  virtual void OpenAll(const SqlText& text, const std::function<void(const BatchPart&)>& take) = 0;

  // A text that opens the same database again; never with a password in it when shown.
  virtual const std::string& ConnectionString() const = 0;

  // The writes between the outermost BeginHandler and its EndHandler are committed together, at the end or at
  // CommitHandler (before a modal window opens). Without a handler each batch commits by itself. HandlerScope
  // (handler_scope.h) calls them.
  virtual void BeginHandler() = 0;
  virtual void EndHandler() = 0;
  virtual void CommitHandler() = 0;

  virtual void SetTraceHook(TraceHook hook) = 0;
};

// Opens a database by its connection string. Two connections opened from the same string are the same database.
using ConnectionFactory = std::function<std::shared_ptr<Connection>(const std::string& connection_string)>;

}  // namespace tarvoni

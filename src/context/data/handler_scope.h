#pragma once

#include "src/context/data/database.h"
#include "src/context/data/handler_scope.h"

namespace tarvoni {

// One event handler or entry call at work: its writes are committed together when it ends, also in an error,
// and before a modal window opens inside it. An error of the commit leaves through Finish.
class HandlerScope {
 public:
  // Null for work without a database.
  explicit HandlerScope(Connection* connection);
  explicit HandlerScope(Connection& connection) : HandlerScope(&connection) {}
  HandlerScope(const HandlerScope&) = delete;
  HandlerScope& operator=(const HandlerScope&) = delete;
  ~HandlerScope();
  void Finish();

  // Commits what the handlers at work on this thread have written so far.
  static void CommitAll();

 private:
  Connection* connection_;
};

}  // namespace tarvoni

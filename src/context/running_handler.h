#pragma once

#include "src/context/database.h"

namespace tarvoni {

// One event handler or entry call at work: its writes are committed together when it ends, also in an error,
// and before a modal window opens inside it. An error of the commit leaves through Finish.
class RunningHandler {
 public:
  // Null for work without a database.
  explicit RunningHandler(Connection* connection);
  RunningHandler(const RunningHandler&) = delete;
  RunningHandler& operator=(const RunningHandler&) = delete;
  ~RunningHandler();
  void Finish();

  // Commits what the handlers at work on this thread have written so far.
  static void CommitAll();

 private:
  Connection* connection_;
};

}  // namespace tarvoni

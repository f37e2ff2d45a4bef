#include "src/context/data/handler_scope.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace tarvoni {
namespace {

thread_local std::vector<Connection*> at_work;

void Leave(Connection* connection) {
  const auto last = std::ranges::find(at_work.rbegin(), at_work.rend(), connection);
  if (last != at_work.rend()) at_work.erase(std::next(last).base());
}

}  // namespace

HandlerScope::HandlerScope(Connection* connection) : connection_(connection) {
  if (!connection_) return;
  connection_->BeginHandler();
  at_work.push_back(connection_);
}

HandlerScope::~HandlerScope() {
  try {
    Finish();
  } catch (...) {  // on the way of another error, which tells more
  }
}

void HandlerScope::Finish() {
  Connection* const connection = std::exchange(connection_, nullptr);
  if (!connection) return;
  Leave(connection);
  // Inside the modal loop of an outer handler the writes must not wait for that one to end.
  try {
    connection->CommitHandler();
  } catch (...) {
    connection->EndHandler();
    throw;
  }
  connection->EndHandler();
}

void HandlerScope::CommitAll() {
  for (Connection* connection : at_work) connection->CommitHandler();
}

}  // namespace tarvoni

#include "src/entry/call.h"

#include <utility>

namespace tarvoni {
namespace {

void (*thread_preparation)() = nullptr;
thread_local Failure last_failure;

}  // namespace

void SetThreadPreparation(void (*prepare)()) {
  thread_preparation = prepare;
}

void PrepareThread() {
  if (thread_preparation) thread_preparation();
}

Result Fail(Result result, Failure failure) {
  last_failure = std::move(failure);
  return result;
}

void ForgetFailure() {
  last_failure = {};
}

const Failure& LastFailure() {
  return last_failure;
}

}  // namespace tarvoni

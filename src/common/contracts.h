#pragma once

#include <cstdint>

#include "src/context/data/tvn_var_dll.h"
#include "src/context/values/call_error.h"

// What Screens of one area ask of another. Areas do not know each other: each question is a small contract here, and
// the entry, which knows them all, answers it.
namespace tarvoni {

// The answer to a contract on this thread.
template <typename Contract>
Contract*& AnswerTo() {
  thread_local Contract* answer = nullptr;
  return answer;
}

// Neighbour<TimeWage>().Open(…). A CallError while nobody answers.
template <typename Contract>
Contract& Neighbour() {
  if (Contract* const answer = AnswerTo<Contract>()) return *answer;
  throw CallError("Diese Verbindung zwischen den Bildschirmen ist nicht eingerichtet.");
}

// The lines of a wage order in time wage (F_Zeilohn).
class TimeWage {
 public:
  virtual ~TimeWage() = default;
  // Shows them until they are closed.
  virtual void Open(const TvnVar_Dll& context, std::int32_t client, std::int32_t order) = 0;
};

}  // namespace tarvoni

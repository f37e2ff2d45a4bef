#pragma once

#include <exception>
#include <string>

#include "include/tarvoni_lohn.h"
#include "src/context/data/error_text.h"

namespace tarvoni {

// Runs before each call and sets the thread up; once for the program, by whoever composes it.
void SetThreadPreparation(void (*prepare)());
void PrepareThread();

// Keeps why this thread's call failed and gives `result`.
Result Fail(Result result, Failure failure);
void ForgetFailure();
const Failure& LastFailure();

// Runs a call to its end; an error that leaves it becomes a failed result with the Screen and the interface as its
// source.
template <typename Work>
Result RunCall(const char* screen, const char* interface, const Work& work) {
  ForgetFailure();
  try {
    PrepareThread();
    work();
    ForgetFailure();  // of calls inside this one
    return kResultOk;
  } catch (const std::exception& error) {
    return Fail(kResultFail, {.text = ErrorText(error), .screen = screen, .interface = interface});
  }
}

}  // namespace tarvoni

#pragma once

#include <stdexcept>

namespace tarvoni {

// A call that the platform refuses: focus on a hidden control, an item that is not there, a value of the
// wrong kind.
class CallError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A number too large for the integer it has to become.
class OverflowError : public CallError {
 public:
  using CallError::CallError;
};

}  // namespace tarvoni

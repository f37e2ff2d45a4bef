#pragma once

namespace tarvoni {

// How the work of a wage order is paid: the number of the group of its service (BBF_GRUPPE.NUMBER).
enum class WageGroup {
  kTimeWage = 1,
  kEst = 2,  // piecework by the EST tariff
  kOtherPiecework = 3,
};

}  // namespace tarvoni

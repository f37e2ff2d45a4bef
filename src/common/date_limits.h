#pragma once

#include "src/context/controls/form.h"

namespace tarvoni {

// The days that a date of a voucher or stores document may have; one outside is moved to the limit when the control is
// left.
inline constexpr DateTime kFirstDateOfVouchers{.year = 1901, .month = 1, .day = 1};
inline constexpr DateTime kLastDateOfVouchers{.year = 2079, .month = 1, .day = 1};

void LimitOnLeave(DateControl& date);

}  // namespace tarvoni

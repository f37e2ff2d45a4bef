#include "src/common/date_limits.h"

#include <algorithm>

namespace tarvoni {

void LimitOnLeave(DateControl& date) {
  date.LostFocus.Add(Turn::kFormat, [&date] {
    if (date.Value()) date.SetValue(std::clamp(*date.Value(), kFirstDateOfVouchers, kLastDateOfVouchers));
  });
}

}  // namespace tarvoni

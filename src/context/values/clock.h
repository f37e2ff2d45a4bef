#pragma once

#include "src/context/values/date_time.h"

namespace tarvoni {

// The one source of "today" and the time of day: the system's local time unless a test or a script sets a day.
class Clock {
 public:
  static DateTime Now();
  static DateTime Today();
  // Fixes the day and time that Now gives from here on; Reset returns to the system's.
  static void Set(const DateTime& now);
  static void Reset();
};

}  // namespace tarvoni

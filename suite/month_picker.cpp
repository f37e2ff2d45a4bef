#include "suite/month_picker.h"

#include "src/context/services/environment.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/clock.h"
#include "src/context/values/date_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni::suite {

void MonthPicker::PickMonth(std::string& text, const TvnVar_Dll&, bool& accepted) {
  const DateTime start = ParseDate("1." + std::string(utf8::Trim(text))).value_or(Clock::Today());
  const auto month =
      CurrentToolkit().PickMonth("Monat auswählen", {.year = start.year, .month = start.month});
  accepted = month.has_value();
  if (month)
    text = FormatDate({.year = month->year, .month = month->month, .day = 1}, "mm.yyyy", CurrentLocale());
}

}  // namespace tarvoni::suite

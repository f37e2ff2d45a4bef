#pragma once

#include "src/context/services.h"

namespace tarvoni {

// The choice of a month; `text` stays on cancel. It starts at the month in `text`, or else at today's.
class SuiteMonthPicker : public MonthPicker {
 public:
  void PickMonth(std::string& text, const TvnVar_Dll& context, bool& accepted) override;
};

}  // namespace tarvoni

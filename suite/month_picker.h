#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The choice of a month; `text` stays on cancel. It starts at the month in `text`, or else at today's.
class MonthPicker final : public tarvoni::MonthPicker {
 public:
  void PickMonth(std::string& text, const TvnVar_Dll& context, bool& accepted) override;
};

}  // namespace tarvoni::suite

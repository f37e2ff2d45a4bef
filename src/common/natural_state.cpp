#include "src/common/natural_state.h"

#include <utility>

#include "src/common/contracts.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"

namespace tarvoni {
namespace {

bool HasValue(const TextBox& box) {
  const auto number = ParseNumber(box.Text(), CurrentLocale());
  return number && *number != Decimal();
}

}  // namespace

bool HasNaturalExecution(const TvnVar_Dll& context, const TextBox& area, const TextBox& quantity,
                         std::int32_t activity) {
  return (HasValue(area) || HasValue(quantity)) && std::in_range<std::int16_t>(activity) &&
         Neighbour<NaturalExecution>().IsKnownTo(context, static_cast<std::int16_t>(activity));
}

}  // namespace tarvoni

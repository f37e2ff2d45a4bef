#include "src/common/natural_state.h"

#include <utility>

#include "src/common/amount.h"
#include "src/common/contracts.h"

namespace tarvoni {
namespace {

bool HasValue(const TextBox& box) {
  return NumberOrZero(box) != Decimal();
}

}  // namespace

bool HasNaturalExecution(const TvnVar_Dll& context, const TextBox& area, const TextBox& quantity,
                         std::int32_t activity) {
  return (HasValue(area) || HasValue(quantity)) && std::in_range<std::int16_t>(activity) &&
         Neighbour<NaturalExecution>().IsKnownTo(context, static_cast<std::int16_t>(activity));
}

}  // namespace tarvoni

#include "host/demo/enterprise.h"

#include <algorithm>
#include <cassert>

namespace tarvoni::demo {
namespace {

template <class Rows, class Key, class Member>
const auto& FindRow(const Rows& rows, Key key, Member member) {
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& r) { return r.*member == key; });
  assert(row != rows.end());
  return *row;
}

}  // namespace

int CodeSet::CostTypeId(int number) const {
  return FindRow(cost_types, number, &CostType::number).id;
}

const WorkType& CodeSet::WorkTypeOf(int number) const {
  return FindRow(work_types, number, &WorkType::number);
}

const CostCentre& Client::Centre(CentreType type) const {
  return FindRow(centres, type, &CostCentre::type);
}

const WageType& Enterprise::WageTypeOf(int number) const {
  return FindRow(wage_types, number, &WageType::number);
}

std::vector<WorkOrder*> Client::WorkOrdersFor(int year, int product, const CostCentre& centre) {
  std::vector<WorkOrder*> found;
  for (WorkOrder& order : work_orders) {
    if (order.year == year && order.product == product && order.centre.id == centre.id)
      found.push_back(&order);
  }
  return found;
}

std::int64_t RateOn(const std::vector<DatedRate>& rates, const DateTime& day) {
  std::int64_t rate = 0;
  for (const DatedRate& dated : rates) {
    if (dated.from <= day) rate = dated.rate;
  }
  return rate;
}

std::int64_t HourRate(const Enterprise& enterprise, const WageType& type, const Worker& worker,
                      const DateTime& day) {
  constexpr std::int64_t kOne = 10'000;
  constexpr std::int64_t kProductsInCent = 1'000'000;
  std::int64_t factor = kOne;
  if (type.factor == 1) factor = RateOn(worker.personal_factor, day);
  if (type.factor == 2) {
    const auto group = static_cast<std::size_t>(RateOn(worker.wage_group, day));
    factor = RateOn(enterprise.wage_groups[group], day);
  }
  return (RateOn(type.rates, day) * factor + kProductsInCent / 2) / kProductsInCent;
}

}  // namespace tarvoni::demo

#include "host/demo/position_writer.h"

#include <algorithm>
#include <array>

#include "host/demo/work_type_rows.h"

namespace tarvoni::demo {
namespace {

// For work types whose links name none.
constexpr std::array kUsualOwn = {kWages, kContractors, kSmallMaterial};
constexpr std::array kUsualInvoiced = {kContractors, kSmallMaterial, kOtherCosts};

bool HasLinks(const WorkType& type) {
  return std::any_of(kCostTypeLinks.begin(), kCostTypeLinks.end(),
                     [&type](const CostTypeLink& link) { return link.work_type == type.number; });
}

bool IsLinked(const WorkType& type, int cost_type) {
  return std::any_of(kCostTypeLinks.begin(), kCostTypeLinks.end(), [&](const CostTypeLink& link) {
    return link.work_type == type.number && link.cost_type == cost_type;
  });
}

bool IsUsual(const WorkType& type, const CostType& cost_type, CostUse use) {
  if (!type.Has(cost_type.revenue ? kRevenue : kCost)) return false;
  if (use == CostUse::kInvoiced && (cost_type.revenue || cost_type.number == kWages)) return false;
  if (HasLinks(type)) return IsLinked(type, cost_type.number);
  const auto& usual = use == CostUse::kOwn ? kUsualOwn : kUsualInvoiced;
  return std::find(usual.begin(), usual.end(), cost_type.number) != usual.end();
}

std::optional<Decimal> PositiveOrNull(std::int64_t units, int places) {
  return units == 0 ? std::nullopt : std::optional(Decimal(units, places));
}

}  // namespace

const CostType* DrawCostType(Random& random, const CodeSet& codes, const WorkType& type, CostUse use) {
  std::vector<const CostType*> usual;
  for (const CostType& cost_type : codes.cost_types) {
    if (IsUsual(type, cost_type, use)) usual.push_back(&cost_type);
  }
  return usual.empty() ? nullptr : random.Pick(usual);
}

int PositionWriter::Write(const Position& position) {
  const int id = ++enterprise_.last.position;
  const bool revenue = position.cost_type.revenue;
  const Decimal amount(position.amount, 2);
  const Decimal nothing(0, 2);
  rows_.Add(id, ++position.work_order.positions, position.day, position.work_order.id,
            OrNull(position.voucher), position.work_order.centre.id, OrNull(position.object),
            position.type.id, enterprise_.random.Pick(position.type.methods), position.cost_type.id, 1,
            OrNull(position.location), Decimal(position.area, 1), Decimal(position.quantity, 2),
            !position.type.Has(kArea), position.type.unit, Decimal(position.unit_price, 2),
            revenue ? nothing : amount, revenue ? amount : nothing, position.euro, OrNull(position.vat),
            PositiveOrNull(position.hours, 1), PositiveOrNull(position.machine_hours, 1), position.cancelled);
  return id;
}

}  // namespace tarvoni::demo

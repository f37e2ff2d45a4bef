#include "host/demo/wage_order_plan.h"

#include <algorithm>

namespace tarvoni::demo {
namespace {

constexpr int kLongest = 7;  // working days of an order

// The orders of one team, spread evenly over the days.
void PlanTeam(Random& random, std::size_t team, int orders, const std::vector<DateTime>& days,
              std::vector<PlannedOrder>& plan) {
  const int count = static_cast<int>(days.size());
  for (int i = 0; i < orders; ++i) {
    const int begin = i * count / orders;
    const int room = std::clamp((i + 1) * count / orders - begin, 1, kLongest);
    const int length = random.Between((room + 1) / 2, room);
    plan.push_back({team, {days.begin() + begin, days.begin() + begin + length}});
  }
}

}  // namespace

std::vector<PlannedOrder> PlanYear(Random& random, const Client& client, int year, int orders) {
  const auto days = WorkDays({year, 1, 1}, std::min(DateTime{year, 12, 31}, kToday));
  const int teams = static_cast<int>(client.teams.size());
  std::vector<PlannedOrder> plan;
  for (int team = 0; team < teams; ++team)
    PlanTeam(random, static_cast<std::size_t>(team), orders / teams + (team < orders % teams ? 1 : 0), days,
             plan);
  std::stable_sort(plan.begin(), plan.end(),
                   [](const auto& a, const auto& b) { return a.days.front() < b.days.front(); });
  return plan;
}

}  // namespace tarvoni::demo

#pragma once

#include <vector>

#include "host/demo/enterprise.h"

namespace tarvoni::demo {

// When a team works on an order. No team works on two orders on one day.
struct PlannedOrder {
  std::size_t team = 0;  // index into Client::teams
  std::vector<DateTime> days;
};

// The orders of a client's year up to the demo's present, by the day on which they begin.
std::vector<PlannedOrder> PlanYear(Random& random, const Client& client, int year, int orders);

}  // namespace tarvoni::demo

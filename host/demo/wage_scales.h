#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/demo/enterprise.h"

namespace tarvoni::demo {

// The wage agreements: from which day amounts rise, and to how much of the first ones.
struct Agreement {
  DateTime from;
  int percent;
};
inline constexpr auto kAgreements = std::to_array<Agreement>(
    {{{2022, 1, 1}, 100}, Agreement{{2023, 5, 1}, 109}, Agreement{{2024, 3, 1}, 116}});

inline constexpr int kWageGroups = 6;
inline constexpr int kFirstPayGroup = 2;
inline constexpr int kLastPayGroup = 8;
inline constexpr int kStages = 6;

// What becomes of an amount (in ten-thousandths) with the agreements, in whole cents.
std::vector<DatedRate> RisingRates(int first);

// "LG 3" for the index 2.
std::string WageGroupName(int index);

}  // namespace tarvoni::demo

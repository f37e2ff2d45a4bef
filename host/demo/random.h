#pragma once

#include <cassert>
#include <cstdint>

namespace tarvoni::demo {

// SplitMix64: small, and unlike the standard distributions the same on every machine.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    std::uint64_t z = (state_ += 0x9e3779b97f4a7c15U);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
    return z ^ (z >> 31);
  }

  // A whole number from `low` to `high`, both included.
  int Between(int low, int high) {
    assert(low <= high);
    return low + static_cast<int>(Next() % static_cast<std::uint64_t>(high - low + 1));
  }

  bool Chance(int percent) { return Between(1, 100) <= percent; }

  template <class Range>
  const auto& Pick(const Range& range) {
    return range[static_cast<std::size_t>(Between(0, static_cast<int>(std::size(range)) - 1))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace tarvoni::demo

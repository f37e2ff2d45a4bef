#pragma once

#include <cstdint>

// The suite's messages that the work orders show, by what they say.
namespace tarvoni::message {

inline constexpr std::int32_t kPlan = 54;
inline constexpr std::int32_t kReally = 215;     // with the three below: the question before a position goes
inline constexpr std::int32_t kShould = 247;     //
inline constexpr std::int32_t kBeDeleted = 248;  //
inline constexpr std::int32_t kNumber = 859;     // a noun
inline constexpr std::int32_t kEntry = 1427;     // with the two below: a plan's name is taken
inline constexpr std::int32_t kAlreadyThere = 1428;  //
inline constexpr std::int32_t kPlanNumber = 5599;    //
inline constexpr std::int32_t kOrderAndCosts = 1742;
inline constexpr std::int32_t kReopenOrder = 4443;    // a question
inline constexpr std::int32_t kTimberHangsOn = 4446;  // the list's name follows

}  // namespace tarvoni::message

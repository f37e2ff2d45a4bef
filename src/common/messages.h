#pragma once

#include <cstdint>

// The suite's messages by what they say.
namespace tarvoni::message {

inline constexpr std::int32_t kNameTaken = 220;
inline constexpr std::int32_t kEntryMissing = 223;  // mostly followed by the field's caption in brackets
inline constexpr std::int32_t kUnit = 751;
inline constexpr std::int32_t kDeleteEntry = 1429;  // a question
inline constexpr std::int32_t kHours = 4680;  // the caption of the quantity while no wage type gives its unit
inline constexpr std::int32_t kStatus = 4689;
inline constexpr std::int32_t kCancellationDate = 4756;
inline constexpr std::int32_t kCancelWageOrder = 4941;  // a question
inline constexpr std::int32_t kMonthClosed = 5370;      // nothing can be cancelled at present
inline constexpr std::int32_t kTimeWage = 5463;
inline constexpr std::int32_t kOtherPiecework = 5623;
inline constexpr std::int32_t kOrderGroupInUse = 5371;
inline constexpr std::int32_t kNewOrderGroup = 5730;     // asks for a name
inline constexpr std::int32_t kDeleteOrderGroup = 5732;  // a question
inline constexpr std::int32_t kOrderNumberTaken = 5733;

}  // namespace tarvoni::message

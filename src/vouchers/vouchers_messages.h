#pragma once

#include <cstdint>

// The suite's messages that vouchers show.
namespace tarvoni::voucher_message {

inline constexpr std::int32_t kNoSuchVoucher = 232;
inline constexpr std::int32_t kNumber = 859;           // a noun
inline constexpr std::int32_t kTimberHangsOn = 4446;   // names of lists follow
inline constexpr std::int32_t kNothingEntered = 4687;  //
inline constexpr std::int32_t kCancelEntry = 4688;     // a question
inline constexpr std::int32_t kAmountDiffers = 4744;   // a question
inline constexpr std::int32_t kNaturalExecutionStays = 5840;

}  // namespace tarvoni::voucher_message

#pragma once

#include <cstdint>

// The suite's messages of the stores Screens by what they say; some are pieces of a sentence.
namespace tarvoni::stores_message {

inline constexpr std::int32_t kReally = 215;
inline constexpr std::int32_t kShallThe = 247;
inline constexpr std::int32_t kBeDeleted = 248;
inline constexpr std::int32_t kNumber = 859;
inline constexpr std::int32_t kDeletePositionsToo = 1181;
inline constexpr std::int32_t kTheEntry = 1427;
inline constexpr std::int32_t kExistsAlready = 1428;
inline constexpr std::int32_t kHasPositions = 1713;
inline constexpr std::int32_t kDrawnAlready = 4452;
inline constexpr std::int32_t kMoreThanInvoice = 4455;

}  // namespace tarvoni::stores_message

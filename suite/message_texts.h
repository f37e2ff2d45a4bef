#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tarvoni::suite {

// One numbered text in both languages. Some are sentences, some are pieces that a caller joins with blanks.
struct MessageText {
  std::int32_t number;
  std::string_view german, english;
};

// In ascending order of their numbers.
std::span<const MessageText> MessageTexts();

}  // namespace tarvoni::suite

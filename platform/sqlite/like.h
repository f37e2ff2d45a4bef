#pragma once

#include <string_view>

namespace tarvoni::sqlite {

// T-SQL's LIKE: % for any text, _ for one character, [a-z] and [^a-z] for one of a set. Characters compare as the
// collation has it. Where they are ignored, blanks at the end of `text` need not be matched.
enum class TrailingBlanks { kIgnored, kHeeded };
bool IsLike(std::string_view text, std::string_view pattern, TrailingBlanks blanks);

}  // namespace tarvoni::sqlite

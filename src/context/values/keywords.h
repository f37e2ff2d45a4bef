#pragma once

#include <cstddef>
#include <string_view>

// Words of languages that know no case, and texts in quotes or braces.
namespace tarvoni {

// `upper` is in capital ASCII letters; `text` may be in any.
bool EqualsKeyword(std::string_view text, std::string_view upper);
bool StartsWithKeyword(std::string_view text, std::string_view upper);
bool EndsWithKeyword(std::string_view text, std::string_view upper);
bool ContainsKeyword(std::string_view text, std::string_view upper);
// Without the blanks at both ends.
std::string_view Trimmed(std::string_view text);

// Behind the closing mark of a part that opens at `at`, a doubled one standing for itself; the text's end
// when it is not closed.
std::size_t QuotedEnd(std::string_view text, std::size_t at, char closing);

}  // namespace tarvoni

#pragma once

#include <string_view>

namespace tarvoni::odbc {

// `upper` is in capital ASCII letters; `text` may be in any.
bool EqualsKeyword(std::string_view text, std::string_view upper);
bool ContainsKeyword(std::string_view text, std::string_view upper);
// Without the blanks at both ends.
std::string_view Trimmed(std::string_view text);

}  // namespace tarvoni::odbc

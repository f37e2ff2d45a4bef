#pragma once

#include <string>
#include <string_view>

namespace tarvoni::host {

// Columns that a UTF-8 text takes on a terminal; a byte that is no UTF-8 counts as one.
int DisplayWidth(std::string_view text);

// The text with blanks before (numbers) or behind it, so that it takes `width` columns.
std::string Pad(std::string_view text, int width, bool right_aligned);

}  // namespace tarvoni::host

#pragma once

#include <string_view>

namespace tarvoni::sqlite {

// The order of all text: negative, 0, positive. That of CompareText, for the letters of every alphabet.
int Collate(std::string_view a, std::string_view b);

}  // namespace tarvoni::sqlite

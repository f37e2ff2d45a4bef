#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tarvoni {

// What comparison sees of one character: its base letters in lower case, each followed by its accents
// (U+0300 to U+036F); zero behind the last.
using FoldedCharacter = std::array<char32_t, 4>;
// Folds a character beyond the Latin letters up to U+017F.
using FoldCharacter = FoldedCharacter (*)(char32_t);

// Latin letters up to U+017F in lower case, everything else as it is.
std::string FoldCase(std::string_view text);

// Negative, 0, positive. Without regard to case and trailing blanks; signs before digits before letters, an
// umlaut beside its letter but different from it, 'ß' equal to 'ss'. `fold` sees the other characters, which
// compare by their codes without it.
int CompareText(std::string_view a, std::string_view b, FoldCharacter fold = nullptr);

// Takes the first character off `text`, which is not empty. A byte that begins none counts as a code of its
// own.
char32_t TakeCharacter(std::string_view& text);

}  // namespace tarvoni

#pragma once

#include <string_view>

namespace tarvoni::tsql {

// The reserved word of that spelling, in upper case and in storage that lasts; empty if the word is none.
std::string_view FindReservedWord(std::string_view word);

// How many bytes at the beginning of the text are one letter of a name (ASCII or any other), 0 if it begins
// with none.
size_t LetterLength(std::string_view text);

// Where a name that begins the text ends; 0 if none does.
size_t NameLength(std::string_view text);

}  // namespace tarvoni::tsql

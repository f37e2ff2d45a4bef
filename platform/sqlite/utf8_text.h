#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Text by characters, in UTF-8.
namespace tarvoni::sqlite {

std::size_t CountCharacters(std::string_view text);
// The first, or the last, `count` characters; all of them if there are fewer.
std::string_view FirstCharacters(std::string_view text, std::size_t count);
std::string_view LastCharacters(std::string_view text, std::size_t count);

bool IsUtf8(std::string_view text);
// With U+FFFD in place of each byte that belongs to no character.
std::string WithoutBrokenBytes(std::string_view text);

std::string_view WithoutTrailingBlanks(std::string_view text);
std::string_view WithoutLeadingBlanks(std::string_view text);

// Letter by letter: 'ß' has no other form.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

}  // namespace tarvoni::sqlite

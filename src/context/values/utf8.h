#pragma once

#include <string>
#include <string_view>

// Text in UTF-8 counted by characters. Bytes that are no UTF-8 count as one character each.
namespace tarvoni::utf8 {

int Length(std::string_view text);
std::string_view Substring(std::string_view text, int start, int length = -1);  // from 0; -1: to the end
void Append(std::string& text, char32_t character);
std::u32string Decode(std::string_view text);
char32_t Upper(char32_t character);  // Latin letters with their umlauts and accents
std::string Upper(std::string_view text);
std::string_view Trim(std::string_view text);  // blanks and tabs at both ends

}  // namespace tarvoni::utf8

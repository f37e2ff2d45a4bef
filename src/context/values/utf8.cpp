#include "src/context/values/utf8.h"

#include <algorithm>

namespace tarvoni::utf8 {
namespace {

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t LengthByLead(char byte) {
  const auto lead = static_cast<unsigned char>(byte);
  if (lead >= 0xF0 && lead < 0xF8) return 4;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xC0 && lead < 0xE0 ? 2 : 1;
}

// Bytes of the character at the front; 1 for a byte that begins none.
std::size_t CharacterSize(std::string_view text) {
  const std::size_t size = LengthByLead(text.front());
  if (size > text.size()) return 1;
  const auto tail = text.substr(1, size - 1);
  return std::ranges::all_of(tail, IsContinuation) ? size : 1;
}

std::size_t Offset(std::string_view text, int characters) {
  std::size_t at = 0;
  while (characters-- > 0 && at < text.size()) at += CharacterSize(text.substr(at));
  return at;
}

}  // namespace

int Length(std::string_view text) {
  int length = 0;
  for (; !text.empty(); ++length) text.remove_prefix(CharacterSize(text));
  return length;
}

std::string_view Substring(std::string_view text, int start, int length) {
  text.remove_prefix(Offset(text, start));
  return length < 0 ? text : text.substr(0, Offset(text, length));
}

void Append(std::string& text, char32_t character) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | (character >> 6));
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0 | (character >> 12));
    tail(6), tail(0);
  } else {
    text += static_cast<char>(0xF0 | (character >> 18));
    tail(12), tail(6), tail(0);
  }
}

std::u32string Decode(std::string_view text) {
  std::u32string result;
  while (!text.empty()) {
    const std::size_t size = CharacterSize(text);
    char32_t character = static_cast<unsigned char>(text.front());
    if (size > 1) character &= 0x7FU >> size;
    for (std::size_t i = 1; i < size; ++i) character = (character << 6) | (text[i] & 0x3F);
    result += character;
    text.remove_prefix(size);
  }
  return result;
}

char32_t Upper(char32_t c) {
  const bool ascii = c >= 'a' && c <= 'z';
  const bool latin = c >= 0xE0 && c <= 0xFE && c != 0xF7;
  if (ascii || latin) return c - 32;
  const bool extended = c >= 0x100 && c <= 0x137;  // pairs: capital even, small odd
  return extended && c % 2 == 1 ? c - 1 : c;
}

std::string Upper(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char32_t character : Decode(text)) Append(result, Upper(character));
  return result;
}

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace tarvoni::utf8

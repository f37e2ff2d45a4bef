#include "platform/sqlite/utf8_text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

namespace tarvoni::sqlite {
namespace {

bool BeginsCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

// The bytes of the first character; 0 when it is none.
std::size_t SizeOfFirst(std::string_view text) {
  utf8proc_int32_t code = 0;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto size = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code);
  return size > 0 ? static_cast<std::size_t>(size) : 0;
}

// Maps the first character of `text` onto the end of `mapped`; a byte that is no character stays.
template <typename Map>
void MapOne(std::string_view& text, std::string& mapped, Map map) {
  utf8proc_int32_t code = 0;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto size = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code);
  if (size > 0) {
    std::array<utf8proc_uint8_t, 4> buffer;
    const auto written = utf8proc_encode_char(map(code), buffer.data());
    mapped.append(buffer.begin(), buffer.begin() + written);
  } else {
    mapped += text[0];
  }
  text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(size, 1)));
}

bool IsBetween(char c, char first, char last) {
  return c >= first && c <= last;
}

// Turns the case of the letters from `first` to `last`, and maps what is not ASCII.
template <typename Map>
std::string Mapped(std::string_view text, char first, char last, Map map) {
  constexpr char kCaseBit = 0x20;
  std::string mapped;
  mapped.reserve(text.size());
  while (!text.empty()) {
    const char c = text[0];
    if (!IsBetween(c, '\0', '\x7F')) {
      MapOne(text, mapped, map);
      continue;
    }
    mapped += IsBetween(c, first, last) ? static_cast<char>(c ^ kCaseBit) : c;
    text.remove_prefix(1);
  }
  return mapped;
}

utf8proc_int32_t UpperLetter(utf8proc_int32_t code) {
  return code == U'ß' ? code : utf8proc_toupper(code);
}

}  // namespace

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), BeginsCharacter));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  // No character takes less than a byte.
  if (count >= text.size()) return text;
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (!BeginsCharacter(text[end])) continue;
    if (count == 0) break;
    --count;
  }
  return text.substr(0, end);
}

std::string_view LastCharacters(std::string_view text, std::size_t count) {
  std::size_t begin = text.size();
  while (begin > 0 && count > 0) {
    if (BeginsCharacter(text[--begin])) --count;
  }
  return text.substr(begin);
}

bool IsUtf8(std::string_view text) {
  if (std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; })) return true;
  for (; !text.empty(); text.remove_prefix(SizeOfFirst(text))) {
    if (SizeOfFirst(text) == 0) return false;
  }
  return true;
}

std::string WithoutBrokenBytes(std::string_view text) {
  std::string sound;
  while (!text.empty()) {
    const std::size_t size = SizeOfFirst(text);
    sound += size == 0 ? std::string_view("\uFFFD") : text.substr(0, size);
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return sound;
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string UpperCase(std::string_view text) {
  return Mapped(text, 'a', 'z', UpperLetter);
}

std::string LowerCase(std::string_view text) {
  return Mapped(text, 'A', 'Z', utf8proc_tolower);
}

}  // namespace tarvoni::sqlite

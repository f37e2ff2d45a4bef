#include "platform/odbc/wide_text.h"

#include <cstdint>

namespace tarvoni::odbc {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMaxCodePoint = 0x10FFFF;

bool IsSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

int LengthOf(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

// Takes one character off the front; a broken sequence is taken byte by byte.
char32_t TakeUtf8(std::string_view& text) {
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  const int length = LengthOf(lead);
  if (length <= 1) return length == 1 ? lead : kReplacement;
  const auto rest = static_cast<std::size_t>(length - 1);
  char32_t c = lead & (0xFF >> (length + 1));
  if (text.size() < rest) return kReplacement;
  for (std::size_t i = 0; i < rest; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return kReplacement;
    c = c << 6 | (byte & 0x3F);
  }
  if (c < kSmallest[length] || c > kMaxCodePoint || IsSurrogate(c)) return kReplacement;
  text.remove_prefix(rest);
  return c;
}

char32_t TakeUtf16(std::u16string_view& text) {
  const char32_t first = text.front();
  text.remove_prefix(1);
  if (!IsSurrogate(first)) return first;
  if (first >= 0xDC00 || text.empty() || text.front() < 0xDC00 || text.front() > 0xDFFF) return kReplacement;
  const char32_t second = text.front();
  text.remove_prefix(1);
  return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

void AppendUtf8(std::string& text, char32_t c) {
  const auto trail = [&](int shift) { text += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
    trail(0);
  } else if (c < 0x10000) {
    text += static_cast<char>(0xE0 | (c >> 12));
    trail(6);
    trail(0);
  } else {
    text += static_cast<char>(0xF0 | (c >> 18));
    trail(12);
    trail(6);
    trail(0);
  }
}

}  // namespace

std::u16string ToWide(std::string_view utf8) {
  std::u16string wide;
  wide.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t c = TakeUtf8(utf8);
    if (c < 0x10000) {
      wide += static_cast<char16_t>(c);
    } else {
      wide += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      wide += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
  return wide;
}

std::string FromWide(std::u16string_view wide) {
  std::string utf8;
  utf8.reserve(wide.size());
  while (!wide.empty()) AppendUtf8(utf8, TakeUtf16(wide));
  return utf8;
}

}  // namespace tarvoni::odbc

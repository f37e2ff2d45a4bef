#include "src/context/values/keywords.h"

#include <algorithm>

namespace tarvoni {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameLetter(char a, char upper) {
  return Upper(a) == upper;
}

}  // namespace

bool EqualsKeyword(std::string_view text, std::string_view upper) {
  return std::equal(text.begin(), text.end(), upper.begin(), upper.end(), SameLetter);
}

bool StartsWithKeyword(std::string_view text, std::string_view upper) {
  return EqualsKeyword(text.substr(0, upper.size()), upper);
}

bool EndsWithKeyword(std::string_view text, std::string_view upper) {
  return text.size() >= upper.size() && EqualsKeyword(text.substr(text.size() - upper.size()), upper);
}

bool ContainsKeyword(std::string_view text, std::string_view upper) {
  const auto found = std::search(text.begin(), text.end(), upper.begin(), upper.end(), SameLetter);
  return found != text.end() || upper.empty();
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::size_t QuotedEnd(std::string_view text, std::size_t at, char closing) {
  for (++at; at < text.size(); ++at) {
    if (text[at] != closing) continue;
    if (at + 1 >= text.size() || text[at + 1] != closing) return at + 1;
    ++at;
  }
  return text.size();
}

}  // namespace tarvoni

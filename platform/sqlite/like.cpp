#include "platform/sqlite/like.h"

#include "platform/sqlite/collation.h"
#include "platform/sqlite/utf8_text.h"

namespace tarvoni::sqlite {
namespace {

std::string_view TakeOne(std::string_view& text) {
  const std::string_view character = FirstCharacters(text, 1);
  text.remove_prefix(character.size());
  return character;
}

// Whether a set such as "a-cx" or "^a-c" holds the character.
bool Holds(std::string_view set, std::string_view character) {
  const bool negated = set.starts_with('^');
  if (negated) set.remove_prefix(1);
  bool found = false;
  while (!set.empty() && !found) {
    const std::string_view first = TakeOne(set);
    std::string_view last = first;
    if (set.size() > 1 && set.starts_with('-')) {
      set.remove_prefix(1);
      last = TakeOne(set);
    }
    found = Collate(first, character) <= 0 && Collate(character, last) <= 0;
  }
  return found != negated;
}

// Takes one character off the text and what stands for it off the pattern, if they match.
bool TakeMatch(std::string_view& text, std::string_view& pattern) {
  if (pattern.empty()) return false;
  const std::string_view character = TakeOne(text);
  const std::string_view wanted = TakeOne(pattern);
  if (wanted == "_") return true;
  if (wanted != "[") return Collate(wanted, character) == 0;
  const std::size_t end = pattern.find(']');
  if (end == std::string_view::npos) return false;
  const std::string_view set = pattern.substr(0, end);
  pattern.remove_prefix(end + 1);
  return Holds(set, character);
}

}  // namespace

bool IsLike(std::string_view text, std::string_view pattern, TrailingBlanks blanks) {
  // What is tried again with a longer text for the last %.
  bool any_seen = false;
  std::string_view text_behind, pattern_behind;
  while (!text.empty()) {
    if (pattern.starts_with('%')) {
      pattern.remove_prefix(1);
      any_seen = true;
      text_behind = text;
      pattern_behind = pattern;
      continue;
    }
    std::string_view text_rest = text, pattern_rest = pattern;
    if (TakeMatch(text_rest, pattern_rest)) {
      text = text_rest;
      pattern = pattern_rest;
      continue;
    }
    const bool rest_counts = blanks == TrailingBlanks::kHeeded || !WithoutTrailingBlanks(text).empty();
    if (pattern.empty() && !rest_counts) return true;
    if (!any_seen) return false;
    TakeOne(text_behind);
    text = text_behind;
    pattern = pattern_behind;
  }
  return pattern.find_first_not_of('%') == std::string_view::npos;
}

}  // namespace tarvoni::sqlite

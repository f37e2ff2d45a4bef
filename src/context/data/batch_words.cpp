#include "src/context/data/batch_words.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

#include "src/context/values/keywords.h"

namespace tarvoni {
namespace {

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '#' || c == '@' || (c & 0x80) != 0;
}

// Behind a comment that may hold others; the text's end when it is not closed.
std::size_t CommentEnd(std::string_view text, std::size_t at) {
  int depth = 0;
  do {
    const std::string_view pair = text.substr(at, 2);
    depth += pair == "/*" ? 1 : pair == "*/" ? -1 : 0;
    at += pair == "/*" || pair == "*/" ? 2 : 1;
  } while (depth > 0 && at < text.size());
  return at;
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> keywords) {
  return std::any_of(keywords.begin(), keywords.end(),
                     [&](auto keyword) { return EqualsKeyword(word, keyword); });
}

}  // namespace

std::string_view BatchWords::Next() {
  SkipBlanks();
  const std::size_t begin = at_;
  if (begin < text_.size()) at_ = End(text_[begin]);
  return text_.substr(begin, at_ - begin);
}

void BatchWords::SkipBlanks() {
  while (at_ < text_.size()) {
    if (std::isspace(static_cast<unsigned char>(text_[at_])))
      ++at_;
    else if (text_.substr(at_, 2) == "--")
      at_ = std::min(text_.find('\n', at_), text_.size());
    else if (text_.substr(at_, 2) == "/*")
      at_ = CommentEnd(text_, at_);
    else
      return;
  }
}

std::size_t BatchWords::End(char first) const {
  if (first == '\'' || first == '"') return QuotedEnd(text_, at_, first);
  if (first == '[') return QuotedEnd(text_, at_, ']');
  if (!IsWordCharacter(first)) return at_ + 1;
  const auto end =
      std::find_if_not(text_.begin() + static_cast<std::ptrdiff_t>(at_), text_.end(), IsWordCharacter);
  return static_cast<std::size_t>(end - text_.begin());
}

bool IsTemporaryName(std::string_view word) {
  if (word.starts_with('[') || word.starts_with('"')) word.remove_prefix(1);
  return word.starts_with('#') && !word.starts_with("##");
}

bool IsWritingWord(std::string_view word) {
  return IsOneOf(word, {"INSERT", "UPDATE", "DELETE", "MERGE", "EXEC", "EXECUTE"});
}

bool WritesTables(std::string_view text) {
  BatchWords words(text);
  for (auto word = words.Next(); !word.empty(); word = words.Next()) {
    if (!IsWritingWord(word)) continue;
    auto target = words.Next();
    while (IsOneOf(target, {"INTO", "FROM"})) target = words.Next();
    if (!IsTemporaryName(target)) return true;
  }
  return false;
}

bool IsBlankBatch(std::string_view text) {
  return BatchWords(text).Next().empty();
}

}  // namespace tarvoni

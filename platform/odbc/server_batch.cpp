#include "platform/odbc/server_batch.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

#include "platform/odbc/connection_text.h"
#include "platform/odbc/keywords.h"

namespace tarvoni::odbc {
namespace {

// The driver manager takes no further result from a statement whose first one failed, and freeing it cancels
// what still runs on the server. A first result that cannot fail keeps the rest of the batch within reach.
constexpr std::string_view kLead = "SELECT 0; ";

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

// The words, names and other characters of a batch, without its blanks and comments.
class Words {
 public:
  explicit Words(std::string_view text) : text_(text) {}

  // Empty at the end. A name comes with its quotes, so that it is never a word of the language.
  std::string_view Next() {
    SkipBlanks();
    const std::size_t begin = at_;
    if (begin < text_.size()) at_ = End(text_[begin]);
    return text_.substr(begin, at_ - begin);
  }

 private:
  void SkipBlanks() {
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

  std::size_t End(char first) const {
    if (first == '\'' || first == '"') return QuotedEnd(text_, at_, first);
    if (first == '[') return QuotedEnd(text_, at_, ']');
    if (!IsWordCharacter(first)) return at_ + 1;
    const auto end =
        std::find_if_not(text_.begin() + static_cast<std::ptrdiff_t>(at_), text_.end(), IsWordCharacter);
    return static_cast<std::size_t>(end - text_.begin());
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

bool IsTemporaryName(std::string_view word) {
  if (word.starts_with('[') || word.starts_with('"')) word.remove_prefix(1);
  return word.starts_with('#') && !word.starts_with("##");
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> keywords) {
  return std::any_of(keywords.begin(), keywords.end(),
                     [&](auto keyword) { return EqualsKeyword(word, keyword); });
}

bool IsWriting(std::string_view word) {
  return IsOneOf(word, {"INSERT", "UPDATE", "DELETE", "MERGE", "EXEC", "EXECUTE"});
}

// The definition of a view or a trigger has to stand first in its batch.
bool BeginsWithDefinition(std::string_view text) {
  const std::string_view first = Words(text).Next();
  return EqualsKeyword(first, "CREATE") || EqualsKeyword(first, "ALTER");
}

}  // namespace

bool CreatesTemporaryTable(std::string_view text) {
  Words words(text);
  std::string_view before, last;
  for (auto word = words.Next(); !word.empty(); word = words.Next()) {
    if (EqualsKeyword(before, "CREATE") && EqualsKeyword(last, "TABLE") && IsTemporaryName(word)) return true;
    before = last;
    last = word;
  }
  return false;
}

std::string InOwnScope(std::string_view text) {
  std::string call = "EXEC sp_executesql N'";
  for (const char c : text) call.append(c == '\'' ? 2 : 1, c);
  return call + "'";
}

bool WritesSeveralTimes(std::string_view text) {
  Words words(text);
  int writes = 0;
  for (auto word = words.Next(); !word.empty() && writes < 2; word = words.Next()) writes += IsWriting(word);
  return writes == 2;
}

bool WritesTables(std::string_view text) {
  Words words(text);
  for (auto word = words.Next(); !word.empty(); word = words.Next()) {
    if (!IsWriting(word)) continue;
    auto target = words.Next();
    while (IsOneOf(target, {"INTO", "FROM"})) target = words.Next();
    if (!IsTemporaryName(target)) return true;
  }
  return false;
}

ServerBatch ForServer(std::string_view text) {
  ServerBatch batch{CreatesTemporaryTable(text) ? InOwnScope(text) : std::string(text), false};
  batch.has_lead = WritesSeveralTimes(text) && !BeginsWithDefinition(batch.text);
  if (batch.has_lead) batch.text.insert(0, kLead);
  return batch;
}

}  // namespace tarvoni::odbc

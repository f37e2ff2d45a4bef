#pragma once

#include <cstddef>
#include <string_view>

namespace tarvoni {

// The words, names and other characters of a batch, without its blanks and comments. It knows no more of the language:
// for questions that have to be answered of any text, also of one that is wrong.
class BatchWords {
 public:
  explicit BatchWords(std::string_view text) : text_(text) {}

  // Empty at the end. A name comes with its quotes, so that it is never a word of the language.
  std::string_view Next();

 private:
  void SkipBlanks();
  std::size_t End(char first) const;

  std::string_view text_;
  std::size_t at_ = 0;
};

// Whether a word names a temporary table of the connection: #t, [#t].
bool IsTemporaryName(std::string_view word);

// Whether the word begins a statement that writes rows, or runs what may write some.
bool IsWritingWord(std::string_view word);

// Whether a batch may write into the database; its temporary tables do not count.
bool WritesTables(std::string_view text);

// Whether there is nothing in it but blanks and comments.
bool IsBlankBatch(std::string_view text);

}  // namespace tarvoni

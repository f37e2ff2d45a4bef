#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvoni::host {

// Gathers lines into batches. A line with the word "go" alone ends a batch; at a prompt a semicolon at the end of a
// line does too, unless it stands inside a text or a comment.
class BatchReader {
 public:
  enum class End { kGo, kGoOrSemicolon };
  struct Batch {
    std::string text;
    int lines_before = 0;
  };

  explicit BatchReader(End end) : end_(end) {}

  // The batch that the line completes, if any; blank batches are none.
  std::optional<Batch> Take(std::string_view line);
  // What is left when the input ends.
  std::optional<Batch> Finish();
  // True when the lines so far wait for more.
  bool InBatch() const { return !text_.empty(); }
  void Discard() { text_.clear(); }

 private:
  End end_;
  std::string text_;
  int first_line_ = 0;
  int lines_ = 0;
};

}  // namespace tarvoni::host

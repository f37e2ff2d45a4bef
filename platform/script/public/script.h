#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvoni {

// One command of a script, with the lines that belong to it.
struct ScriptLine {
  std::string file;
  int number = 0;                   // in the file, from 1
  std::vector<std::string> words;   // unquoted; a text from <<END … END is the last word
  std::string raw;                  // the line as it stands
  std::vector<std::size_t> starts;  // where each word begins in `raw`
  int block_start = 0;              // line number of the first `|` line, or where it would stand
  std::vector<std::string> block;   // the `|` lines as they stand
  std::string remark;               // the comment lines right above, parted by line breaks
  bool unordered = false;           // `expect unordered …`, a word that `words` leaves out
  std::size_t inside = 0;           // how many commands behind this one were read from the file it names

  bool Is(std::string_view command) const { return !words.empty() && words[0] == command; }
  // Word `index` if it is the last, else the line from there on, so that a statement needs no quotes.
  std::string TextFrom(std::size_t index) const;
};

struct Script {
  std::string file;
  std::vector<std::string> lines;  // as they stand in the file
  std::vector<ScriptLine> commands;

  // The lines of files that `include` and `fixture` name, relative to the file they stand in, follow them. Throws
  // ScriptFailure with the line of an open quote, an unfinished text or a file that cannot be read.
  static Script Parse(std::string file, std::string_view text);
  static Script Load(const std::string& file);
};

// Cells of a `|` line and back. Cells are trimmed; "\|" is a bar, "\n" a line break, "\\" a backslash.
std::vector<std::string> SplitCells(std::string_view line);
// Lines with aligned cells.
std::vector<std::string> JoinCells(const std::vector<std::vector<std::string>>& rows);

// A failed line of a script. No std::exception, so that no handler of a Screen mistakes it for its own error.
class ScriptFailure {
 public:
  explicit ScriptFailure(std::string text) : text_(std::move(text)) {}
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace tarvoni

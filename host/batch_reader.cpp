#include "host/batch_reader.h"

#include <algorithm>
#include <utility>

namespace tarvoni::host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trim(std::string_view text) {
  const auto begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

bool IsGo(std::string_view line) {
  line = Trim(line);
  return line.size() == 2 && (line[0] == 'g' || line[0] == 'G') && (line[1] == 'o' || line[1] == 'O');
}

// The position behind what begins at `begin`: a quoted text or name, a comment or a single character. Behind the
// end of the text when it is not closed.
std::size_t SkipElement(std::string_view text, std::size_t begin) {
  const auto behind = [text](std::string_view mark, std::size_t from) {
    const auto found = text.find(mark, from);
    return found == std::string_view::npos ? text.size() + 1 : found + mark.size();
  };
  const auto rest = text.substr(begin);
  if (rest.starts_with("--")) return std::min(behind("\n", begin), text.size());
  if (rest.starts_with("/*")) return behind("*/", begin + 2);
  if (rest.starts_with('\'')) return behind("'", begin + 1);
  if (rest.starts_with('"')) return behind("\"", begin + 1);
  if (rest.starts_with('[')) return behind("]", begin + 1);
  return begin + 1;
}

bool IsCommentOrBlank(std::string_view text) {
  return text.starts_with("--") || text.starts_with("/*") ||
         kBlanks.find(text.front()) != std::string_view::npos;
}

// True when the last thing in the text, apart from blanks and comments, is a semicolon of the statement itself.
bool EndsWithSemicolon(std::string_view text) {
  bool semicolon = false;
  for (std::size_t i = 0; i < text.size();) {
    const auto next = SkipElement(text, i);
    if (next > text.size()) return false;
    if (!IsCommentOrBlank(text.substr(i))) semicolon = text[i] == ';';
    i = next;
  }
  return semicolon;
}

}  // namespace

std::optional<BatchReader::Batch> BatchReader::Take(std::string_view line) {
  ++lines_;
  if (IsGo(line)) return Finish();
  if (text_.empty()) {
    if (Trim(line).empty()) return {};
    first_line_ = lines_;
  }
  text_.append(line).append("\n");
  if (end_ == End::kGoOrSemicolon && EndsWithSemicolon(text_)) return Finish();
  return {};
}

std::optional<BatchReader::Batch> BatchReader::Finish() {
  if (text_.empty()) return {};
  return Batch{std::exchange(text_, {}), first_line_ - 1};
}

}  // namespace tarvoni::host

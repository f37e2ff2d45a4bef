#include "platform/script/public/script.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

[[noreturn]] void Fail(const std::string& file, int line, const std::string& text) {
  throw ScriptFailure(file + ":" + std::to_string(line) + ": " + text);
}

// Deeper than anyone nests files on purpose.
constexpr int kDeepest = 20;

std::string ReadFile(const std::string& file) {
  std::error_code ignored;
  std::ifstream in(file, std::ios::binary);
  if (!in || std::filesystem::is_directory(file, ignored))
    throw ScriptFailure(file + ": Die Datei kann nicht gelesen werden.");
  std::ostringstream text;
  text << in.rdbuf();
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::string content = text.str();
  if (content.starts_with(kByteOrderMark)) content.erase(0, kByteOrderMark.size());
  return content;
}

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// Reads the quoted word that begins at `at`; nothing is left of `at` if the quote is not closed.
bool ReadQuoted(std::string_view line, std::size_t& at, std::string& word) {
  for (++at; at < line.size(); ++at) {
    if (line[at] == '"') {
      ++at;
      return true;
    }
    if (line[at] == '\\' && at + 1 < line.size() && (line[at + 1] == '"' || line[at + 1] == '\\')) ++at;
    word += line[at];
  }
  return false;
}

// A word may hold quoted parts: name="two words".
bool ReadWord(std::string_view line, std::size_t& at, std::string& word) {
  while (at < line.size() && line[at] != ' ' && line[at] != '\t') {
    if (line[at] != '"') {
      word += line[at++];
    } else if (!ReadQuoted(line, at, word)) {
      return false;
    }
  }
  return true;
}

// A statement needs no quotes, so its signs are not looked at.
bool TakesStatement(const std::vector<std::string>& words) {
  return words.size() == 1 ? words[0] == "sql"
                           : words.size() == 2 && words[0] == "expect" && words[1] == "sql";
}

bool IsUnordered(const std::vector<std::string>& words) {
  return words.size() == 2 && words[0] == "expect" && words[1] == "unordered";
}

void ReadWords(ScriptLine& line) {
  const std::string_view text = line.raw;
  for (std::size_t at = 0; (at = text.find_first_not_of(" \t", at)) != std::string_view::npos;) {
    const bool statement =
        TakesStatement(line.words) && text[at] != '"' && !text.substr(at).starts_with("<<");
    if (text[at] == '#' && !statement) return;
    line.starts.push_back(at);
    if (statement) {
      line.words.emplace_back(utf8::Trim(text.substr(at)));
      return;
    }
    if (!ReadWord(text, at, line.words.emplace_back())) {
      Fail(line.file, line.number, "Das Anführungszeichen wird nicht geschlossen.");
    }
    if (IsUnordered(line.words)) {
      line.unordered = true;
      line.words.pop_back();
      line.starts.pop_back();
    }
  }
}

class Reader {
 public:
  Reader(std::string file, const std::vector<std::string>& lines, int depth)
      : file_(std::move(file)), lines_(lines), depth_(depth) {}

  std::vector<ScriptLine> Read() {
    while (next_ < lines_.size()) {
      ScriptLine line;
      line.file = file_;
      line.raw = lines_[next_++];
      line.number = static_cast<int>(next_);
      ReadWords(line);
      if (line.words.empty()) {
        ReadRemark(line.raw);
        continue;
      }
      line.remark = std::exchange(remark_, {});
      if (line.words[0].starts_with('|')) Fail(line, "Diese Zeile gehört zu keiner Erwartung.");
      ReadText(line);
      ReadBlock(line);
      Take(std::move(line));
    }
    return std::move(commands_);
  }

 private:
  [[noreturn]] static void Fail(const ScriptLine& line, const std::string& text) {
    tarvoni::Fail(line.file, line.number, text);
  }

  void Take(ScriptLine line) {
    std::vector<ScriptLine> inside;
    if (line.words.size() == 2 && (line.Is("include") || line.Is("fixture"))) inside = ReadNamed(line);
    line.inside = inside.size();
    commands_.push_back(std::move(line));
    std::ranges::move(inside, std::back_inserter(commands_));
  }

  // The commands of the file that a line names.
  std::vector<ScriptLine> ReadNamed(const ScriptLine& line) const {
    if (depth_ == kDeepest) Fail(line, "Die Dateien binden einander ohne Ende ein.");
    const std::string file = (std::filesystem::path(file_).parent_path() / line.words[1]).string();
    std::string text;
    try {
      text = ReadFile(file);
    } catch (const ScriptFailure& failure) {
      Fail(line, failure.Text());
    }
    return Reader(file, SplitLines(text), depth_ + 1).Read();
  }

  void ReadText(ScriptLine& line) {
    std::string& last = line.words.back();
    if (!last.starts_with("<<") || last.size() == 2) return;
    const std::string end = last.substr(2);
    last.clear();
    for (bool first = true;; first = false) {
      if (next_ == lines_.size()) Fail(line, "Der Text endet nicht mit " + end + ".");
      const std::string& text = lines_[next_++];
      if (utf8::Trim(text) == end) return;
      last.append(first ? "" : "\n").append(text);
    }
  }

  // A blank line parts a remark from the command below it.
  void ReadRemark(const std::string& raw) {
    std::string_view text = utf8::Trim(raw);
    if (!text.starts_with('#')) return remark_.clear();
    text.remove_prefix(1);
    remark_.append(remark_.empty() ? "" : "\n").append(utf8::Trim(text));
  }

  void ReadBlock(ScriptLine& line) {
    line.block_start = static_cast<int>(next_) + 1;
    while (next_ < lines_.size() && utf8::Trim(lines_[next_]).starts_with('|')) {
      line.block.push_back(lines_[next_++]);
    }
  }

  std::string file_;
  const std::vector<std::string>& lines_;
  int depth_;
  std::size_t next_ = 0;
  std::string remark_;
  std::vector<ScriptLine> commands_;
};

std::string Escaped(std::string_view cell) {
  std::string text;
  for (const char c : cell) {
    if (c == '|' || c == '\\') text += '\\';
    if (c == '\n') {
      text += "\\n";
    } else if (c != '\r') {
      text += c;
    }
  }
  return text;
}

}  // namespace

std::string ScriptLine::TextFrom(std::size_t index) const {
  if (index >= words.size()) return {};
  if (index + 1 == words.size()) return words[index];
  return std::string(utf8::Trim(std::string_view(raw).substr(starts[index])));
}

Script Script::Parse(std::string file, std::string_view text) {
  Script script{.file = std::move(file), .lines = SplitLines(text), .commands = {}};
  script.commands = Reader(script.file, script.lines, 0).Read();
  return script;
}

Script Script::Load(const std::string& file) {
  return Parse(file, ReadFile(file));
}

std::vector<std::string> SplitCells(std::string_view line) {
  line = utf8::Trim(line);
  if (line.starts_with('|')) line.remove_prefix(1);
  std::vector<std::string> cells(1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\\' && i + 1 < line.size()) {
      ++i;
      cells.back() += line[i] == 'n' ? '\n' : line[i];
    } else if (line[i] == '|') {
      cells.emplace_back();
    } else {
      cells.back() += line[i];
    }
  }
  for (std::string& cell : cells) cell = utf8::Trim(cell);
  while (cells.size() > 1 && cells.back().empty()) cells.pop_back();
  return cells;
}

std::vector<std::string> JoinCells(const std::vector<std::vector<std::string>>& rows) {
  std::vector<int> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], utf8::Length(Escaped(row[i])));
  }
  std::vector<std::string> lines;
  for (const auto& row : rows) {
    std::string& line = lines.emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string cell = Escaped(row[i]);
      line.append(i == 0 ? "| " : " | ").append(cell);
      line.append(static_cast<std::size_t>(widths[i] - utf8::Length(cell)), ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
  }
  return lines;
}

}  // namespace tarvoni

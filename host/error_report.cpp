#include "host/error_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "host/display_width.h"
#include "src/context/data/password.h"
#include "src/context/values/text.h"

namespace tarvoni::host {
namespace {

constexpr std::size_t kShownBefore = 60;  // characters of a long line to show before the place, and behind it
constexpr std::size_t kShownBehind = 40;

std::string_view LineOf(std::string_view text, int line) {
  for (int i = 1; i < line; ++i) {
    const auto end = text.find('\n');
    if (end == std::string_view::npos) return {};
    text.remove_prefix(end + 1);
  }
  text = text.substr(0, text.find('\n'));
  return text.ends_with('\r') ? text.substr(0, text.size() - 1) : text;
}

// The characters of a line as pieces of it; a tab is one blank, so that the caret stands where it should.
std::vector<std::string> Characters(std::string_view line) {
  std::vector<std::string> characters;
  while (!line.empty()) {
    const auto rest = line;
    TakeCharacter(line);
    const auto character = rest.substr(0, rest.size() - line.size());
    characters.emplace_back(character == "\t" ? " " : character);
  }
  return characters;
}

std::string Join(const std::vector<std::string>& characters, std::size_t begin, std::size_t end) {
  std::string text;
  for (std::size_t i = begin; i < end; ++i) text += characters[i];
  return text;
}

}  // namespace

std::string DescribeError(const DatabaseError& error, int lines_before) {
  std::string report = fmt::format("Fehler {}: {}\n", error.Number(), WithoutPassword(error.what()));
  if (error.Line() < 1 || error.Column() < 1 || HoldsPassword(error.Statement())) return report;

  const auto characters = Characters(LineOf(error.Statement(), error.Line()));
  if (characters.empty()) return report;
  const auto place = std::min(static_cast<std::size_t>(error.Column() - 1), characters.size());
  const auto begin = place > kShownBefore ? place - kShownBefore : 0;
  const auto end = std::min(characters.size(), place + kShownBehind);
  const std::string head = fmt::format("Zeile {}: {}", error.Line() + lines_before, begin > 0 ? "… " : "") +
                           Join(characters, begin, place);
  report += head + Join(characters, place, end) + (end < characters.size() ? " …\n" : "\n");
  return report + std::string(static_cast<std::size_t>(DisplayWidth(head)), ' ') + "^\n";
}

}  // namespace tarvoni::host

#include "host/line_prompt.h"

#include <editline/readline.h>
#include <sys/stat.h>

#include <clocale>
#include <cstdlib>
#include <memory>

#include "src/context/data/password.h"

namespace tarvoni::host {
namespace {

constexpr int kKeptLines = 1000;

std::string HistoryFile() {
  const char* home = std::getenv("HOME");
  return home == nullptr ? std::string() : std::string(home) + "/.tarvoni_history";
}

}  // namespace

LinePrompt::LinePrompt() : history_file_(HistoryFile()) {
  std::setlocale(LC_CTYPE, "");  // the editor takes umlauts as one character only in a UTF-8 locale
  using_history();
  stifle_history(kKeptLines);
  if (!history_file_.empty()) read_history(history_file_.c_str());
}

LinePrompt::~LinePrompt() {
  if (history_file_.empty()) return;
  const auto mask = umask(0077);  // statements may hold what others need not read
  write_history(history_file_.c_str());
  umask(mask);
}

std::optional<std::string> LinePrompt::Read(const std::string& prompt) {
  const std::unique_ptr<char, decltype(&std::free)> line(readline(prompt.c_str()), &std::free);
  if (!line) return {};
  if (*line != '\0' && !HoldsPassword(line.get())) add_history(line.get());
  return std::string(line.get());
}

}  // namespace tarvoni::host

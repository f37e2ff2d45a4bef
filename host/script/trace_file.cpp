#include "host/script/trace_file.h"

#include <fmt/format.h>

#include "src/context/data/password.h"
#include "src/context/values/call_error.h"

namespace tarvoni::host {
namespace {

// What became of the statement, in a column of its own.
std::string OutcomeOf(const TraceEvent& event) {
  if (event.error_number != 0) return fmt::format("Fehler {}", event.error_number);
  if (event.affected_rows < 0) return "-";
  return fmt::format("{} {}", event.affected_rows, event.affected_rows == 1 ? "Zeile" : "Zeilen");
}

// Further lines of a statement stand under its first.
std::string Indented(std::string_view statement) {
  constexpr std::size_t kIndent = 30;
  std::string text;
  for (const char c : statement) {
    if (c == '\r') continue;
    text += c;
    if (c == '\n') text.append(kIndent, ' ');
  }
  return text;
}

}  // namespace

TraceFile::TraceFile(const std::string& file) : file_(file), out_(file, std::ios::binary) {
  Finish();
}

void TraceFile::Finish() {
  if (!out_.flush()) throw CallError("Die Datei " + file_ + " lässt sich nicht schreiben.");
}

void TraceFile::Heading(const std::string& text) {
  out_ << "# " << WithoutPassword(text) << '\n';
}

void TraceFile::Follow(Connection& connection) {
  connection.SetTraceHook([this](const TraceEvent& event) { Write(event); });
}

void TraceFile::Write(const TraceEvent& event) {
  const auto milliseconds = std::chrono::duration<double, std::milli>(event.elapsed).count();
  out_ << fmt::format("{:9.3f} ms  {:<14}  {}\n", milliseconds, OutcomeOf(event),
                      Indented(WithoutPassword(event.statement)))
       << std::flush;
}

}  // namespace tarvoni::host

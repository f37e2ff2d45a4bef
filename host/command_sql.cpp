#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

#include "host/batch_reader.h"
#include "host/commands.h"
#include "host/error_report.h"
#include "host/line_prompt.h"
#include "host/open_database.h"
#include "src/context/data/password.h"

namespace tarvoni::host {
namespace {

// Runs batches on one connection and prints what they give.
class SqlSession {
 public:
  explicit SqlSession(const SqlOptions& options)
      : connection_(OpenDatabase(options.database, options.create ? OpenMode::kCreate : OpenMode::kExisting)),
        format_(options.format) {}

  // False when the batch failed; what is wrong has been reported then.
  bool Run(const BatchReader::Batch& batch) {
    try {
      connection_->OpenAll(SqlText::Verbatim(batch.text), [this](const BatchPart& part) { Print(part); });
      return true;
    } catch (const DatabaseError& error) {
      std::fflush(stdout);
      fmt::print(stderr, "{}", DescribeError(error, batch.lines_before));
      return false;
    }
  }

 private:
  void Print(const BatchPart& part) const {
    if (part.rows.IsOpen())
      fmt::print("{}", FormatRows(part.rows, format_));
    else if (format_ == OutputFormat::kTable)
      fmt::print("{} betroffen\n", CountOfRows(part.affected));
  }

  std::shared_ptr<Connection> connection_;
  OutputFormat format_;
};

ExitCode RunStream(SqlSession& session, std::istream& input) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  BatchReader reader(BatchReader::End::kGo);
  bool first = true;
  for (std::string line; std::getline(input, line); first = false) {
    if (first && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    if (const auto batch = reader.Take(line); batch && !session.Run(*batch)) return kFailed;
  }
  const auto rest = reader.Finish();
  return !rest || session.Run(*rest) ? kOk : kFailed;
}

ExitCode RunFile(SqlSession& session, const std::string& name) {
  if (name == "-") return RunStream(session, std::cin);
  std::ifstream file(name);
  const bool folder = std::filesystem::is_directory(name);
  if (file && !folder) return RunStream(session, file);
  fmt::print(stderr, "Die Datei {} lässt sich nicht lesen{}.\n", WithoutPassword(name),
             folder ? ": das ist ein Ordner" : "");
  return kFailed;
}

bool IsQuit(const std::string& line) {
  return line == "exit" || line == "quit" || line == "ende";
}

ExitCode RunPrompt(SqlSession& session) {
  fmt::print("T-SQL; ein Strichpunkt am Zeilenende oder eine Zeile mit go führt aus, ende verlässt.\n");
  LinePrompt prompt;
  BatchReader reader(BatchReader::End::kGoOrSemicolon);
  while (const auto line = prompt.Read(reader.InBatch() ? "     -> " : "tarvoni> ")) {
    if (!reader.InBatch() && IsQuit(*line)) return kOk;
    if (const auto batch = reader.Take(*line)) session.Run(*batch);
  }
  fmt::print("\n");
  return kOk;
}

}  // namespace

ExitCode RunSql(const SqlOptions& options) {
  SqlSession session(options);
  if (options.text) return session.Run({*options.text, 0}) ? kOk : kFailed;
  if (!options.file.empty()) return RunFile(session, options.file);
  return isatty(STDIN_FILENO) != 0 ? RunPrompt(session) : RunStream(session, std::cin);
}

}  // namespace tarvoni::host

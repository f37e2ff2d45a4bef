#pragma once

#include <optional>
#include <string>

#include "host/command_line.h"
#include "host/output.h"

// The commands of `tarvoni`, one file each. Results go to stdout, everything else to stderr.
namespace tarvoni::host {

struct SqlOptions {
  std::string database;
  std::optional<std::string> text;  // else the file, else stdin: a prompt when it is a terminal
  std::string file;                 // "-" is stdin
  OutputFormat format = OutputFormat::kTable;
  bool create = false;
};
ExitCode RunSql(const SqlOptions& options);

struct DemoCommand {
  std::string database;
  int scale = 1;
};
ExitCode RunDemo(const DemoCommand& command);

ExitCode RunSchema();
ExitCode RunBackup(const std::string& database, const std::string& target);
ExitCode RunCheck(const std::string& database);

}  // namespace tarvoni::host

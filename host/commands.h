#pragma once

#include <optional>
#include <string>
#include <vector>

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

struct ScriptCommand {
  std::vector<std::string> files;
  bool update = false;  // rewrite the expected rows instead of comparing
  bool all = false;     // go on behind a comparison that fails
  bool desktop = false;
  bool tell = false;          // print the script's remarks as it reaches them
  std::string trace;          // file for the statements; "" for none
  std::string shots;          // folder for pictures; "" for none
  std::string database = {};  // instead of that of the scripts; "" for theirs
};
ExitCode RunScript(const ScriptCommand& command);

ExitCode RunSchema();

struct BackupCommand {
  std::string database;
  std::string target;
  bool force = false;  // also over a file that is no older backup of the database
};
ExitCode RunBackup(const BackupCommand& command);
ExitCode RunCheck(const std::string& database);

}  // namespace tarvoni::host

#pragma once

namespace tarvoni::host {

// What `tarvoni` returns to the shell.
enum ExitCode : int {
  kOk = 0,
  kFailed = 1,  // something failed, or a check found something
  kUsage = 2,   // the command line is wrong
};

// The program: reads the command line, runs the command, reports errors on stderr.
int RunCommandLine(int argc, char** argv);

}  // namespace tarvoni::host

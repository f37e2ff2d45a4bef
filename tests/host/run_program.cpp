#include "tests/host/run_program.h"

#include <sys/wait.h>

#include <cstdio>

namespace tarvoni::host {

Outcome RunProgram(const std::string& arguments, const std::string& environment) {
  const std::string command = environment + " " TARVONI_PROGRAM " 2>&1 " + arguments;
  std::FILE* pipe = popen(command.c_str(), "r");
  Outcome outcome{-1, {}};
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) outcome.output += static_cast<char>(c);
  outcome.exit_code = WEXITSTATUS(pclose(pipe));
  return outcome;
}

}  // namespace tarvoni::host

#pragma once

#include <string>

namespace tarvoni::host {

struct Outcome {
  int exit_code;
  std::string output;  // stdout and stderr together
};

// Runs the program through the shell; `environment` stands before its name.
Outcome RunProgram(const std::string& arguments, const std::string& environment = {});

}  // namespace tarvoni::host

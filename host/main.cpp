#include <csignal>

#include "host/command_line.h"

int main(int argc, char** argv) {
  // A limit of the system on the size of files is an error of the write, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  return tarvoni::host::RunCommandLine(argc, argv);
}

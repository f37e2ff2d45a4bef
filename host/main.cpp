#include "host/command_line.h"

int main(int argc, char** argv) {
  return tarvoni::host::RunCommandLine(argc, argv);
}

#include <sys/wait.h>

#include <cstdlib>
#include <string_view>

#include "tests/odbc/engine_server.h"

// server_scripts [--reversed] PROGRAM SCRIPT…: plays each script with the program `tarvoni` on a server with an empty
// database. --reversed: rows of a statement that orders none come the other way round than from a file.
int main(int argc, char** argv) {
  const bool reversed = argc > 1 && std::string_view(argv[1]) == "--reversed";
  const int program = reversed ? 2 : 1;
  int failed = 0;
  for (int i = program + 1; i < argc; ++i) {
    const tarvoni::odbc::EngineServer server(reversed);
    const std::string command =
        std::string(argv[program]) + " script --database '" + server.ConnectionText() + "' '" + argv[i] + "'";
    const int status = std::system(command.c_str());
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) ++failed;
  }
  return failed == 0 ? 0 : 1;
}

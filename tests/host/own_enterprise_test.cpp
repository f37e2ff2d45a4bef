#include "host/own_enterprise.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "src/context/values/call_error.h"
#include "tests/host/demo_database.h"
#include "tests/host/run_program.h"

namespace tarvoni::host {
namespace {

OwnEnterprise HofHagenwald() {
  return {.number = "1000",
          .name = "Hof Hagenwald",
          .forest_year = 2026,
          .workers = {"Huber Anna", "Wolf, Eva Maria"}};
}

// What no Screen makes must be there from the start: the script goes through all nine of them.
TEST(OwnEnterprise, EachMethodOfTheComponentCanBeUsed) {
  const std::string file = TemporaryFile().string();
  MakeOwnEnterprise(file, HofHagenwald());
  for (const std::string& command :
       {"script --database " + file + " " OWN_ENTERPRISE_SCRIPT, "check " + file}) {
    const Outcome outcome = RunProgram(command);
    EXPECT_EQ(outcome.exit_code, 0) << outcome.output;
  }
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace tarvoni::host

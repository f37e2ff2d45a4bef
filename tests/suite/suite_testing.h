#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/services/environment.h"
#include "src/schema/schema.h"
#include "tests/support/fake_suite.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni::test {

// One service over the suite's empty tables, before a user whose answers the test gives. Messages read "M1713".
class SuiteTest : public testing::Test {
 protected:
  SuiteTest() { context.dbAdo = db; }

  static std::shared_ptr<Connection> EmptyTables() {
    auto made = sqlite::OpenDatabase(":memory:", {.create = true});
    made->Execute(SchemaSql());
    return made;
  }

  std::shared_ptr<Connection> db = EmptyTables();
  TvnVar_Dll context;
  FakeSuite suite;
  QuietToolkit toolkit;
  Environment environment{
      .toolkit = &toolkit, .suite = &suite, .connect = [this](const std::string&) { return db; }};
  EnvironmentScope scope{environment};
};

}  // namespace tarvoni::test

#pragma once

#include <memory>

#include "bench/bench_database.h"
#include "src/context/services/environment.h"
#include "suite/tarvoni_suite.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni::bench {

// Where a Screen is shown without a window and closed at once.
class Shown {
 public:
  explicit Shown(Connection& database = Database()) : db_(&database, [](Connection*) {}) {
    context.dbAdo = db_;
    context.strConString = db_->ConnectionString();
  }

  // One Screen to be shown and closed.
  void Next() {
    toolkit.script = [](UserActions& user) { user.Close(); };
  }

  TvnVar_Dll context;
  test::QuietToolkit toolkit;

 private:
  std::shared_ptr<Connection> db_;
  TarvoniSuite suite_;
  Environment environment_{
      .toolkit = &toolkit, .suite = &suite_, .connect = [this](const std::string&) { return db_; }};
  EnvironmentScope scope_{environment_};
};

}  // namespace tarvoni::bench

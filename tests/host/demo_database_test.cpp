#include "tests/host/demo_database.h"

#include <unistd.h>

#include "host/demo/demo.h"
#include "host/open_database.h"
#include "platform/sqlite/public/sqlite_database.h"

namespace tarvoni::host {

std::filesystem::path TemporaryFile() {
  static int count = 0;
  const auto name = "tarvoni_test_" + std::to_string(getpid()) + "_" + std::to_string(++count) + ".db";
  const auto file = std::filesystem::temp_directory_path() / name;
  std::filesystem::remove(file);
  return file;
}

Connection& Demo() {
  static const auto connection = [] {
    auto made = OpenDatabase(":memory:", OpenMode::kCreate);
    demo::BuildDemo(*made);
    return made;
  }();
  return *connection;
}

DemoCopy::DemoCopy() : file_(TemporaryFile()) {
  sqlite::Backup(Demo(), file_.string());
  connection_ = OpenDatabase(file_.string());
}

DemoCopy::~DemoCopy() {
  connection_.reset();
  std::filesystem::remove(file_);
}

}  // namespace tarvoni::host

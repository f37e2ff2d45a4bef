#include "tests/database_common/backend.h"

#include "platform/odbc/public/odbc_database.h"
#include "platform/sqlite/public/sqlite_database.h"

namespace tarvoni::dbtest {
namespace {

std::string FileIn(const TempFolder& folder) {
  return folder.File("lohn.db");
}

Backend Embedded() {
  const auto empty = [](const TempFolder& folder) {
    sqlite::OpenDatabase(FileIn(folder), {.create = true});
    return FileIn(folder);
  };
  const auto open = [](const std::string& text) { return sqlite::OpenDatabase(text); };
  const auto nowhere = [](const TempFolder& folder) { return folder.File("kein/Ordner.db"); };
  return {"Embedded", {.counts_in_silence = true}, empty, open, nowhere};
}

std::shared_ptr<Connection> OpenByOdbc(const std::string& text) {
  return odbc::OpenOdbc(text);
}

Backend SqliteDriver() {
  constexpr const char* kDriver = "odbc:Driver=" SQLITE_ODBC_DRIVER ";Database=";
  const auto empty = [](const TempFolder& folder) { return kDriver + FileIn(folder); };
  const auto nowhere = [](const TempFolder& folder) { return kDriver + folder.File("kein/Ordner.db"); };
  return {"SqliteDriver",
          {.transact_sql = false, .exact_decimals = false, .folds_case = false},
          empty,
          OpenByOdbc,
          nowhere};
}

std::string ServerText() {
  const char* text = std::getenv("TARVONI_TEST_SERVER");
  return text == nullptr ? "" : text;
}

// All tests keep to the two tables that are removed here.
Backend Server() {
  const auto empty = [](const TempFolder&) {
    odbc::OpenOdbc(ServerText())
        ->Execute(
            "IF OBJECT_ID('PROBE') IS NOT NULL DROP TABLE PROBE\n"
            "IF OBJECT_ID('ZEILE') IS NOT NULL DROP TABLE ZEILE");
    return ServerText();
  };
  const auto nowhere = [](const TempFolder&) {
    return std::string("odbc:Driver=" FREETDS_ODBC_DRIVER ";Server=127.0.0.1;Port=1;UID=a;PWD=b");
  };
  return {"Server", {}, empty, OpenByOdbc, nowhere};
}

}  // namespace

std::vector<Backend> Backends() {
  std::vector<Backend> backends = {Embedded(), SqliteDriver()};
  if (!ServerText().empty()) backends.push_back(Server());
  return backends;
}

std::vector<Backend> TransactBackends() {
  std::vector<Backend> backends = Backends();
  std::erase_if(backends, [](const Backend& backend) { return !backend.traits.transact_sql; });
  return backends;
}

}  // namespace tarvoni::dbtest

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/database_common/backend.h"
#include "tests/support/sql.h"

namespace tarvoni::dbtest {

// One contract for all backends: a fixture with an empty database and a connection to it.
class DatabaseTest : public ::testing::TestWithParam<Backend> {
 protected:
  const BackendTraits& Traits() const { return GetParam().traits; }
  std::shared_ptr<Connection> OpenAgain() const { return GetParam().open(connection_->ConnectionString()); }
  long long Execute(std::string_view text) { return connection_->Execute(Sql(text)); }
  Recordset Open(std::string_view text) { return connection_->Open(Sql(text)); }
  std::string Rows(std::string_view query) { return dbtest::Rows(*connection_, query); }
  int NumberOf(std::string_view text) {
    return ErrorNumber([&] { connection_->Execute(Sql(text)); });
  }

  // PROBE with the rows 1, 2 and 3.
  void MakeProbe() {
    Execute("CREATE TABLE PROBE (ID INT NOT NULL PRIMARY KEY, NAME NVARCHAR(40), BETRAG DECIMAL(9,2))");
    Execute("INSERT INTO PROBE (ID,NAME,BETRAG) VALUES (1,'Fichte',10.5)");
    Execute("INSERT INTO PROBE (ID,NAME,BETRAG) VALUES (2,'Buche',NULL)");
    Execute("INSERT INTO PROBE (ID,NAME,BETRAG) VALUES (3,'Eiche',0.25)");
  }

  TempFolder folder_;
  std::shared_ptr<Connection> connection_ = GetParam().open(GetParam().empty_database(folder_));
};

inline std::string NameOf(const ::testing::TestParamInfo<Backend>& info) {
  return info.param.name;
}

}  // namespace tarvoni::dbtest

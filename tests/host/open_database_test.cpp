#include "host/open_database.h"

#include <gtest/gtest.h>

#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/data/handler_scope.h"
#include "src/schema/schema.h"
#include "tests/host/demo_database.h"
#include "tests/support/sql.h"

namespace tarvoni::host {
namespace {

// A file as an earlier release left it: no index, the tariff without its marks, no wage orders at all.
class OldFile : public ::testing::Test {
 protected:
  OldFile() {
    const auto made = sqlite::OpenDatabase(path_, {.create = true});
    HandlerScope together(*made);
    for (const SqlText& statement : SchemaStatements()) {
      const auto is = [&](const char* begin) {
        return statement.Text().find(begin) != std::string_view::npos;
      };
      if (is("CREATE TABLE ") && !is("CREATE TABLE TARIFTABELLE ") && !is("CREATE TABLE ARA_KOPF "))
        made->Execute(statement);
    }
    made->Execute("CREATE TABLE TARIFTABELLE (ID INT NOT NULL PRIMARY KEY, HS_GRUPPE NVARCHAR(10))");
  }
  ~OldFile() override { std::filesystem::remove(path_); }

  // How many of the file's indexes it has, and has not.
  std::pair<int, int> Indexes() {
    const auto names = sqlite::NamesInFile(*sqlite::OpenDatabase(path_, {.read_only = true}));
    std::pair<int, int> found;
    for (const SchemaIndex& index : IndexesOfFile())
      ++(names.contains(index.table + "." + index.name) ? found.first : found.second);
    return found;
  }

  std::string path_ = TemporaryFile().string();
};

TEST_F(OldFile, GetsTheIndexesThatItsTablesAllowWhenItIsOpenedForWriting) {
  OpenDatabase(path_, OpenMode::kReadOnly);
  EXPECT_EQ(Indexes().first, 0);
  int without = 0;
  for (const SchemaIndex& index : IndexesOfFile())
    without += index.table == "TARIFTABELLE" || index.table == "ARA_KOPF" ? 1 : 0;
  EXPECT_EQ(without, 4);
  const int all = static_cast<int>(IndexesOfFile().size());
  OpenDatabase(path_);
  EXPECT_EQ(Indexes(), std::pair(all - without, without));

  OpenDatabase(path_)->Execute("DROP TABLE TARIFTABELLE");
  for (const SqlText& statement : SchemaStatements())
    if (statement.Text().find("CREATE TABLE TARIFTABELLE ") != std::string_view::npos)
      OpenDatabase(path_)->Execute(statement);
  OpenDatabase(path_);
  EXPECT_EQ(Indexes(), std::pair(all - 2, 2));
}

// As a list does that opens its own connection while a handler writes.
TEST_F(OldFile, ASecondConnectionLeavesTheCommitToTheHandlerAtWork) {
  const auto connection = OpenDatabase(path_);
  HandlerScope handler(*connection);
  connection->Execute("INSERT INTO OPTIONEN (PROPERTY_ID) VALUES ('NEU')");
  const auto arranged = sqlite::FailCommit(*connection, 1);
  OpenDatabase(path_);
  EXPECT_THROW(handler.Finish(), DatabaseError);
}

}  // namespace
}  // namespace tarvoni::host

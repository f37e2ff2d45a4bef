#include "tests/database/database_testing.h"

namespace tarvoni::sqlite {
namespace {

using tsql::Type;

class CatalogueTest : public ::testing::Test {
 protected:
  const tsql::TableDefinition& Table(std::string_view name) {
    table_ = SharedOf(connection_).Tables().FindTable(name);
    return *table_;
  }

  std::shared_ptr<Connection> connection_ = OpenDatabase(":memory:");
  std::shared_ptr<const tsql::TableDefinition> table_;
};

TEST_F(CatalogueTest, ReadsBackWhatWasDeclared) {
  connection_->Execute(
      "CREATE TABLE Ort (ID INT IDENTITY(5,3) NOT NULL PRIMARY KEY, NR SMALLINT, KURZ NCHAR(4) NOT NULL "
      "DEFAULT 'x', "
      "NAME NVARCHAR(30), LANG NVARCHAR(MAX), FM DECIMAL(9,4), LOHN MONEY, STD FLOAT, AM DATETIME, JA BIT, "
      "TAG TINYINT, "
      "VIEL BIGINT)");
  const auto& table = Table("ORT");
  EXPECT_EQ(table.name, "Ort");
  std::string types;
  for (const auto& column : table.columns) types += ToSql(column.type) + " ";
  EXPECT_EQ(types,
            "INT SMALLINT NCHAR(4) NVARCHAR(30) NVARCHAR(MAX) DECIMAL(9,4) MONEY FLOAT DATETIME BIT TINYINT "
            "BIGINT ");
  EXPECT_EQ(table.IdentityColumn(), 0);
  EXPECT_EQ(table.columns[0].seed, 5);
  EXPECT_EQ(table.columns[0].step, 3);
  EXPECT_FALSE(table.columns[0].nullable);
  EXPECT_TRUE(table.columns[1].nullable);
  EXPECT_FALSE(table.columns[2].nullable);
  EXPECT_TRUE(table.columns[2].has_default);
  EXPECT_FALSE(table.columns[3].has_default);
  EXPECT_EQ(table.unique_keys, (std::vector<std::vector<int>>{{0}}));
}

TEST_F(CatalogueTest, KnowsTheKeysWithThePrimaryOneFirst) {
  connection_->Execute(
      "CREATE TABLE A (X INT NOT NULL, Y INT NOT NULL, Z NVARCHAR(9) NOT NULL, UNIQUE (Z,X), PRIMARY KEY "
      "(Y,X)) "
      "CREATE TABLE B (X NVARCHAR(9) NOT NULL PRIMARY KEY, Y INT NOT NULL) "
      "CREATE UNIQUE INDEX B_Y ON B (Y) CREATE INDEX B_X ON B (X,Y) "
      "CREATE TABLE C (X INT UNIQUE, Y INT NOT NULL)");
  EXPECT_EQ(Table("A").unique_keys, (std::vector<std::vector<int>>{{1, 0}, {2, 0}}));
  EXPECT_EQ(Table("B").unique_keys, (std::vector<std::vector<int>>{{0}, {1}}));
  // One that may be NULL has a key over an expression, which says nothing of the column itself.
  EXPECT_EQ(Table("C").unique_keys.size(), 0U);
}

TEST_F(CatalogueTest, FindsNamesInAnyLettersAndHidesItsOwn) {
  connection_->Execute("CREATE TABLE [Löhne und Zulagen] (ID INT IDENTITY(1,1), [Größe] INT)");
  EXPECT_EQ(Table("LÖHNE UND ZULAGEN").Find("GRÖSSE"), -1);
  EXPECT_EQ(Table("LÖHNE UND ZULAGEN").Find("gRÖßE"), 1);
  auto& tables = SharedOf(connection_).Tables();
  EXPECT_EQ(tables.FindTable("LÖHNE UND ZULAGEN"), tables.FindTable("löhne und zulagen"));
  EXPECT_EQ(tables.FindTable("tarvoni_identity"), nullptr);
  EXPECT_EQ(tables.FindTable("sqlite_schema"), nullptr);
  EXPECT_EQ(tables.FindTable("sqlite_sequence"), nullptr);
}

TEST_F(CatalogueTest, FollowsChangesOfTables) {
  connection_->Execute("CREATE TABLE A (X INT NOT NULL)");
  EXPECT_EQ(Table("A").unique_keys.size(), 0U);
  connection_->Execute("CREATE UNIQUE INDEX A_X ON A (X)");
  EXPECT_EQ(Table("A").unique_keys.size(), 1U);
  EXPECT_EQ(Rows(*connection_, "SELECT * FROM A"), "");
  connection_->Execute("DROP TABLE A CREATE TABLE A (Y FLOAT, Z INT)");
  EXPECT_EQ(Table("A").columns.size(), 2U);
  EXPECT_EQ(connection_->Open("SELECT * FROM A").Columns().size(), 2U);
}

}  // namespace
}  // namespace tarvoni::sqlite

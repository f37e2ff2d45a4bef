#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "platform/odbc/public/odbc_database.h"
#include "tests/support/database_testing.h"
#include "tests/support/sql.h"

// The backend on a driver that is there on every machine. It speaks SQLite's SQL.
namespace tarvoni::odbc {
namespace {

using dbtest::ErrorIn;
using dbtest::ErrorNumber;
using dbtest::ExpectField;
using dbtest::Rows;
using ::testing::HasSubstr;
using ::testing::Not;

class SqliteDriverTest : public ::testing::Test {
 protected:
  std::string Text(const std::string& file) const {
    return "odbc:Driver=" SQLITE_ODBC_DRIVER ";FKSupport=1;Database=" + folder_.File(file);
  }

  dbtest::TempFolder folder_;
  std::shared_ptr<Connection> connection_ = OpenOdbc(Text("lohn.db"));
};

TEST_F(SqliteDriverTest, EveryTypeComesAsWhatItIs) {
  connection_->Execute(
      "CREATE TABLE T (B BIT, TI TINYINT, SI SMALLINT, I INT, BI BIGINT, F FLOAT, R REAL, D DECIMAL(9,4), M "
      "MONEY, "
      "N NVARCHAR(20), V VARCHAR(30), C CHAR(5), DT DATETIME, TX NTEXT)");
  connection_->Execute(
      "INSERT INTO T VALUES (1, 255, -3, -70000, 1099511627776, 0.1, 0.5, '-12.3456', '1234567.4567', "
      "'ÄÖÜß€', 'v', "
      "'c', '2024-02-29 13:45:10.250', 't')");
  Recordset rows = connection_->Open("SELECT * FROM T");
  ExpectField(rows, "B", FieldType::kBoolean, 0, true);
  ExpectField(rows, "TI", FieldType::kUnsignedTinyInt, 0, std::int64_t{255});
  ExpectField(rows, "SI", FieldType::kSmallInt, 0, std::int64_t{-3});
  ExpectField(rows, "I", FieldType::kInteger, 0, std::int64_t{-70000});
  ExpectField(rows, "BI", FieldType::kBigInt, 0, std::int64_t{1} << 40);
  ExpectField(rows, "F", FieldType::kDouble, 0, 0.1);
  ExpectField(rows, "R", FieldType::kDouble, 0, 0.5);
  ExpectField(rows, "D", FieldType::kNumeric, 0, Decimal(-123456, 4));
  ExpectField(rows, "M", FieldType::kCurrency, 0, Decimal(12345674567, 4));
  ExpectField(rows, "N", FieldType::kVarWChar, 20, "ÄÖÜß€");
  ExpectField(rows, "V", FieldType::kVarChar, 30, "v");
  ExpectField(rows, "C", FieldType::kChar, 5, "c");
  ExpectField(rows, "DT", FieldType::kDbTimeStamp, 0,
              DateTime{2024, 2, 29, ((13 * 60 + 45) * 60 + 10) * 1000 + 250});
  EXPECT_EQ(rows.Fields()["TX"].Value(), Value("t"));
}

TEST_F(SqliteDriverTest, ListsItsTables) {
  EXPECT_TRUE(TableNames(*connection_).empty());
  connection_->Execute("CREATE TABLE ARA_KOPF (A INT)");
  connection_->Execute("CREATE TABLE [Größen] (A INT)");
  connection_->Execute("CREATE VIEW V AS SELECT 1 AS A");
  EXPECT_THAT(TableNames(*connection_), ::testing::UnorderedElementsAre("ARA_KOPF", "Größen"));
}

TEST_F(SqliteDriverTest, UmlautsSurviveInTextsNamesMessagesAndPaths) {
  const auto other = OpenOdbc(Text("Jürgens Löhne.db"));
  other->Execute("CREATE TABLE GRÖßE (STRAßE NVARCHAR(20))");
  EXPECT_TRUE(std::filesystem::exists(folder_.File("Jürgens Löhne.db")));
  EXPECT_EQ(other->Open("SELECT STRAßE FROM GRÖßE").Columns()[0].name, "STRAßE");
  const auto error = ErrorIn([&] { other->Execute("SELECT 1 FROM ÄRA"); });
  ASSERT_TRUE(error);
  EXPECT_THAT(error->what(), HasSubstr("ÄRA"));
}

TEST_F(SqliteDriverTest, ErrorsCarryTheServersNumbersAndTheStatement) {
  connection_->Execute("CREATE TABLE T (ID INT PRIMARY KEY, N INT NOT NULL CHECK (N > 0))");
  connection_->Execute("CREATE TABLE K (T_ID INT REFERENCES T (ID))");
  connection_->Execute("INSERT INTO T VALUES (1, 1)");
  const auto number = [&](const char* text) { return ErrorNumber([&] { connection_->Execute(Sql(text)); }); };
  EXPECT_EQ(number("INSERT INTO T VALUES (2, 0)"), 547);
  EXPECT_EQ(number("INSERT INTO K VALUES (9)"), 547);
  EXPECT_EQ(number("INSERT INTO T (X) VALUES (1)"), 207);

  const auto error = ErrorIn([&] { connection_->Open("SELECT X FROM T WHERE 'PWD=geheim' <> ''"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Statement(), "SELECT X FROM T WHERE 'PWD=***");
  EXPECT_THAT(error->what(), ::testing::StartsWith("no such column: X"));
}

TEST_F(SqliteDriverTest, ASecondStatementInABatchIsRefusedByThisDriverAndNotLost) {
  connection_->Execute("CREATE TABLE T (ID INT)");
  EXPECT_NE(ErrorNumber([&] { connection_->Execute("INSERT INTO T VALUES (1); INSERT INTO T VALUES (2)"); }),
            0);
  EXPECT_EQ(Rows(*connection_, "SELECT COUNT(*) FROM T"), "0");
}

TEST_F(SqliteDriverTest, AFailedConnectionSaysSoInGermanWithoutThePassword) {
  const auto message_of = [](const std::string& text) {
    const auto error = ErrorIn([&] { OpenOdbc(text); });
    EXPECT_TRUE(error && error->Number() == kErrorConnection) << text;
    return std::string(error ? error->what() : "");
  };
  const std::string no_driver = message_of("odbc:Driver=/nirgends/geheim.so;UID=sa;PWD={ge}}h;eim};Port=1");
  EXPECT_THAT(no_driver, HasSubstr("lässt sich nicht öffnen. Meldung: "));
  EXPECT_THAT(no_driver, Not(HasSubstr("h;eim")));
  message_of("odbc:DSN=Keine_solche_Quelle;PWD=x");
  message_of("odbc:Driver=" SQLITE_ODBC_DRIVER ";Database=" + folder_.File("kein/Ordner.db"));
  message_of("sqlite:lohn.db");
}

TEST_F(SqliteDriverTest, AFileOfAnotherProgramSaysWhatItIs) {
  std::ofstream(folder_.File("brief.db")) << std::string(4096, 'x');
  const int number = ErrorNumber([&] { OpenOdbc(Text("brief.db"))->Execute("CREATE TABLE T (ID INT)"); });
  EXPECT_EQ(number, kErrorDamaged);
}

}  // namespace
}  // namespace tarvoni::odbc

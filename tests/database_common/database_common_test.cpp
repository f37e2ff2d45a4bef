#include <chrono>
#include <vector>

#include "src/context/data/handler_scope.h"
#include "tests/database_common/database_fixture.h"

// What every backend does with statements that T-SQL and SQLite's SQL have in common.
namespace tarvoni::dbtest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class DatabaseCommon : public DatabaseTest {};
INSTANTIATE_TEST_SUITE_P(All, DatabaseCommon, ::testing::ValuesIn(Backends()), NameOf);

TEST_P(DatabaseCommon, CountsWhatAStatementChanged) {
  MakeProbe();
  EXPECT_EQ(Execute("UPDATE PROBE SET NAME = NAME WHERE ID > 1"), 2);
  EXPECT_EQ(Execute("DELETE FROM PROBE WHERE ID = 99"), 0);
  EXPECT_EQ(Execute("INSERT INTO PROBE (ID) SELECT ID+10 FROM PROBE"), 3);
  EXPECT_EQ(Execute("DELETE FROM PROBE"), 6);
}

TEST_P(DatabaseCommon, ValuesComeBackAsTheirTypes) {
  Execute(
      "CREATE TABLE PROBE (I INT, S SMALLINT, B BIT, D DECIMAL(9,4), M MONEY, F FLOAT, T DATETIME, N "
      "NVARCHAR(20))");
  Execute("INSERT INTO PROBE VALUES (-7, 3, 1, -12.3456, 99.5, 0.125, '2024-02-29 13:45:00', 'Text')");
  const Recordset rows = Open("SELECT I,S,B,D,M,F,T,N FROM PROBE");
  ExpectField(rows, "I", FieldType::kInteger, 0, std::int64_t{-7});
  ExpectField(rows, "S", FieldType::kSmallInt, 0, std::int64_t{3});
  ExpectField(rows, "B", FieldType::kBoolean, 0, true);
  ExpectField(rows, "D", FieldType::kNumeric, 0, Decimal(-123456, 4));
  ExpectField(rows, "M", FieldType::kCurrency, 0, Decimal(995, 1));
  ExpectField(rows, "F", FieldType::kDouble, 0, 0.125);
  ExpectField(rows, "T", FieldType::kDbTimeStamp, 0, DateTime{2024, 2, 29, (13 * 60 + 45) * 60 * 1000});
  ExpectField(rows, "N", FieldType::kVarWChar, 20, "Text");
}

TEST_P(DatabaseCommon, LargeDecimalsAreExactWhereTheBackendStoresThem) {
  Execute("CREATE TABLE PROBE (D DECIMAL(20,4))");
  Execute("INSERT INTO PROBE VALUES (1234567890123456.7891)");
  const Value expected = Decimal(*Decimal::Parse("1234567890123456.7891"));
  EXPECT_EQ(Open("SELECT D FROM PROBE").GetRows().at(0).at(0) == expected, Traits().exact_decimals);
}

TEST_P(DatabaseCommon, ABatchWithNothingInItIsAccepted) {
  for (const char* text : {"", "  \n", "-- nichts", "/* nichts */ -- mehr\n"}) {
    EXPECT_EQ(connection_->Execute(Sql(text)), -1) << text;
    EXPECT_FALSE(connection_->Open(Sql(text)).IsOpen()) << text;
  }
}

TEST_P(DatabaseCommon, NullIsNotAnEmptyTextNorZero) {
  Execute("CREATE TABLE PROBE (I INT, B BIT, D DECIMAL(9,2), T DATETIME, N NVARCHAR(5))");
  Execute("INSERT INTO PROBE VALUES (NULL,NULL,NULL,NULL,NULL)");
  EXPECT_EQ(Rows("SELECT I,B,D,T,N FROM PROBE WHERE N IS NULL"), "NULL,NULL,NULL,NULL,NULL");
  Execute("UPDATE PROBE SET N = '', I = 0");
  EXPECT_EQ(Rows("SELECT I,N FROM PROBE"), "0,");
  EXPECT_EQ(Rows("SELECT I FROM PROBE WHERE N IS NULL"), "");
}

TEST_P(DatabaseCommon, UmlautsAndTheEuroSignSurvive) {
  MakeProbe();
  Execute("UPDATE PROBE SET NAME = 'ÄÖÜäöüß € Jürgen''s' WHERE ID = 1");
  EXPECT_EQ(Rows("SELECT NAME FROM PROBE WHERE ID = 1"), "ÄÖÜäöüß € Jürgen's");
  EXPECT_EQ(Rows("SELECT ID FROM PROBE WHERE NAME = 'ÄÖÜäöüß € Jürgen''s'"), "1");
  EXPECT_EQ(Rows("SELECT ID FROM PROBE WHERE NAME = 'äöüÄÖÜß € JÜRGEN''S'"), Traits().folds_case ? "1" : "");
  EXPECT_EQ(Open("SELECT ID AS Größe FROM PROBE").Columns()[0].name, "Größe");
}

TEST_P(DatabaseCommon, LongTextsComeWhole) {
  std::string text;
  while (text.size() < 100'000) text += "Kahlschlag € " + std::to_string(text.size()) + "; ";
  Execute("CREATE TABLE PROBE (ID INT, NOTIZ NTEXT)");
  Execute("INSERT INTO PROBE VALUES (1, '" + text + "')");
  EXPECT_EQ(Rows("SELECT NOTIZ,ID FROM PROBE"), text + ",1");
}

TEST_P(DatabaseCommon, ErrorsCarryNumberAndStatementAndHarmNothingElse) {
  MakeProbe();
  EXPECT_EQ(NumberOf("INSERT INTO PROBE (ID) VALUES (1)"), 2627);
  EXPECT_EQ(NumberOf("INSERT INTO PROBE (NAME) VALUES ('x')"), 515);
  EXPECT_EQ(NumberOf("SELECT ID FROM KEINE"), 208);
  EXPECT_EQ(NumberOf("SELECT KEINE FROM PROBE"), 207);
  EXPECT_EQ(NumberOf("SELECT ID FROM PROBE WHERE ID ="), 102);
  EXPECT_EQ(NumberOf("SELECT ID FROM PROBE WHERE NAME = 'x"), 105);
  EXPECT_EQ(NumberOf("CREATE TABLE PROBE (ID INT)"), 2714);
  const auto error = ErrorIn([&] { Open("SELECT KEINE FROM PROBE"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Statement(), "SELECT KEINE FROM PROBE");
  EXPECT_THAT(error->what(), HasSubstr("KEINE"));
  EXPECT_EQ(Rows("SELECT ID FROM PROBE ORDER BY ID"), "1;2;3");
}

TEST_P(DatabaseCommon, ARecordsetStandsOnItsOwn) {
  MakeProbe();
  Recordset rows = Open("SELECT ID,NAME FROM PROBE ORDER BY ID");
  Execute("DELETE FROM PROBE");
  EXPECT_EQ(rows.RecordCount(), 3U);
  rows.Find("NAME = 'buche'");
  EXPECT_EQ(rows.Fields()["id"].Value(), Value(std::int64_t{2}));
  rows.Sort("NAME DESC");
  EXPECT_EQ(rows.Fields()["NAME"].Value(), Value("Fichte"));
  Recordset clone = rows.Clone();
  connection_.reset();
  EXPECT_EQ(clone.GetRows().size(), 3U);
}

TEST_P(DatabaseCommon, AResultWithoutRowsIsOpenAndNoResultIsClosed) {
  MakeProbe();
  Recordset none = Open("SELECT ID,NAME FROM PROBE WHERE ID = 99");
  EXPECT_TRUE(none.IsOpen() && none.EndOfFile() && none.BeginOfFile());
  EXPECT_EQ(none.Fields()[1].Name(), "NAME");
  EXPECT_EQ(ErrorNumber([&] { none.MoveNext(); }), kErrorNoCurrentRow);
  EXPECT_FALSE(Open("UPDATE PROBE SET NAME = NULL").IsOpen());
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM PROBE WHERE NAME IS NULL"), "3");
}

TEST_P(DatabaseCommon, TwoConnectionsOfOneTextAreOneDatabase) {
  MakeProbe();
  const auto second = OpenAgain();
  EXPECT_EQ(dbtest::Rows(*second, "SELECT NAME FROM PROBE WHERE ID = 2"), "Buche");
  second->Execute("UPDATE PROBE SET NAME = 'Hainbuche' WHERE ID = 2");
  EXPECT_EQ(Rows("SELECT NAME FROM PROBE WHERE ID = 2"), "Hainbuche");
  EXPECT_EQ(second->ConnectionString(), connection_->ConnectionString());
}

TEST_P(DatabaseCommon, WhatAHandlerWroteIsThereForTheOthersWhenItEnds) {
  MakeProbe();
  const auto second = OpenAgain();
  {
    HandlerScope handler(*connection_);
    Execute("DELETE FROM PROBE WHERE ID = 1");
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM PROBE"), "2");
    connection_->CommitHandler();
    EXPECT_EQ(dbtest::Rows(*second, "SELECT COUNT(*) FROM PROBE"), "2");
    Execute("DELETE FROM PROBE WHERE ID = 2");
    EXPECT_NE(NumberOf("DELETE FROM KEINE"), 0);
    handler.Finish();
  }
  EXPECT_EQ(dbtest::Rows(*second, "SELECT ID FROM PROBE"), "3");
}

TEST_P(DatabaseCommon, TheTraceHearsEveryStatement) {
  struct Heard {
    std::string statement;
    long long affected;
    int error;
    bool operator==(const Heard&) const = default;
  };
  MakeProbe();
  std::vector<Heard> heard;
  connection_->SetTraceHook([&](const TraceEvent& event) {
    heard.push_back({std::string(event.statement), event.affected_rows, event.error_number});
    EXPECT_GT(event.elapsed, std::chrono::nanoseconds(0));
  });
  Execute("UPDATE PROBE SET NAME = 'x' WHERE ID < 3");
  Open("SELECT ID FROM PROBE");
  EXPECT_NE(NumberOf("SELECT KEINE FROM PROBE"), 0);
  EXPECT_NE(NumberOf("SELECT 'x"), 0);
  EXPECT_THAT(heard, ElementsAre(Heard{"UPDATE PROBE SET NAME = 'x' WHERE ID < 3", 2, 0},
                                 Heard{"SELECT ID FROM PROBE", -1, 0},
                                 Heard{"SELECT KEINE FROM PROBE", -1, 207}, Heard{"SELECT 'x", -1, 105}));
  connection_->SetTraceHook(nullptr);
  Execute("DELETE FROM PROBE");
  EXPECT_EQ(heard.size(), 4U);
}

TEST_P(DatabaseCommon, ADatabaseThatCannotBeReachedIsSaidInGerman) {
  const auto error = ErrorIn([&] { GetParam().open(GetParam().nowhere(folder_)); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorConnection);
  EXPECT_THAT(error->what(), HasSubstr("Datenbank"));
}

}  // namespace
}  // namespace tarvoni::dbtest

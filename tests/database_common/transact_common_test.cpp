#include "tests/database_common/database_fixture.h"

// What the backends that take T-SQL do with batches.
namespace tarvoni::dbtest {
namespace {

class TransactCommon : public DatabaseTest {};
INSTANTIATE_TEST_SUITE_P(All, TransactCommon, ::testing::ValuesIn(TransactBackends()), NameOf);

TEST_P(TransactCommon, ABatchGivesItsFirstResultSetAndItsLastCount) {
  MakeProbe();
  EXPECT_EQ(
      Rows("UPDATE PROBE SET NAME = 'x' WHERE ID = 1\nSELECT ID FROM PROBE WHERE NAME = 'x'\nSELECT 77"),
      "1");
  EXPECT_EQ(Execute("DELETE FROM PROBE WHERE ID = 1\nUPDATE PROBE SET NAME = 'y'"), 2);
  EXPECT_EQ(Open("SELECT ID FROM PROBE WHERE ID = 99\nSELECT 77").RecordCount(), 0U);
  const bool tells = Traits().counts_in_silence;
  EXPECT_EQ(Execute("SET NOCOUNT ON\nUPDATE PROBE SET NAME = 'y'"), tells ? 2 : -1);
}

TEST_P(TransactCommon, AfterAViolationTheBatchGoesOnAndItsFirstErrorIsGiven) {
  MakeProbe();
  const auto error = ErrorIn([&] {
    Execute(
        "INSERT INTO PROBE (ID) VALUES (1)\nUPDATE PROBE SET NAME = 'x'\nINSERT INTO PROBE (NAME) VALUES "
        "('y')");
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 2627);
  EXPECT_EQ(error->Line(), 1);
  EXPECT_EQ(Rows("SELECT DISTINCT NAME FROM PROBE"), "x");
}

TEST_P(TransactCommon, AnErrorBehindAResultSetIsNotLost) {
  MakeProbe();
  EXPECT_EQ(NumberOf("SELECT ID FROM PROBE\nINSERT INTO PROBE (ID) VALUES (1)"), 2627);
  // Not even in a row that nobody reads.
  EXPECT_EQ(ErrorNumber([&] { Open("SELECT ID FROM PROBE\nSELECT 1/(ID-2) FROM PROBE"); }), 8134);
}

TEST_P(TransactCommon, AListOverATemporaryTableIsOpenedAgainAndAgain) {
  MakeProbe();
  constexpr std::string_view kList =
      "SET NOCOUNT ON\nCREATE TABLE #auswahl (ID int)\nINSERT INTO #auswahl (ID) SELECT ID FROM PROBE WHERE "
      "NAME <> 'it''s'\n"
      "SELECT PROBE.NAME FROM PROBE INNER JOIN #auswahl ON #auswahl.ID = PROBE.ID ORDER BY PROBE.ID";
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Rows(kList), "Fichte;Buche;Eiche") << i;
  EXPECT_EQ(NumberOf("SELECT ID FROM #auswahl"), 208);
}

TEST_P(TransactCommon, ANewRowTellsItsKey) {
  Execute("CREATE TABLE ZEILE (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, NAME NVARCHAR(20))");
  constexpr std::string_view kInsert =
      "SET NOCOUNT ON\nINSERT INTO ZEILE (NAME) VALUES ('x')\nSELECT IDENT_CURRENT('ZEILE')";
  EXPECT_EQ(Rows(kInsert), "1");
  EXPECT_EQ(Rows(kInsert), "2");
}

TEST_P(TransactCommon, AllResultsOfABatchComeInOrderAlsoBeforeItsError) {
  MakeProbe();
  std::vector<std::string> results;
  const auto take = [&results](const BatchPart& part) {
    results.push_back(part.rows.IsOpen() ? ToDisplayText(part.rows.Fields()[0].Value()) + " row"
                                         : std::to_string(part.affected) + " changed");
  };
  connection_->OpenAll("SELECT 7; UPDATE PROBE SET NAME = 'x' WHERE ID < 3; SELECT 8;", take);
  EXPECT_THAT(results, testing::ElementsAre("7 row", "2 changed", "8 row"));
  results.clear();
  EXPECT_NE(ErrorNumber([&] { connection_->OpenAll("SELECT 9; INSERT INTO PROBE (ID) VALUES (1);", take); }),
            0);
  EXPECT_THAT(results, testing::ElementsAre("9 row"));
}

}  // namespace
}  // namespace tarvoni::dbtest

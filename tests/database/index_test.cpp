#include "tests/database/database_testing.h"
#include "tests/support/sql.h"

// Which index SQLite takes for a statement, once the front end has written it.
namespace tarvoni::sqlite {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class IndexTest : public ::testing::Test {
 protected:
  IndexTest() {
    Run("CREATE TABLE TARIF (ID INT NOT NULL PRIMARY KEY, GRUPPE NVARCHAR(9), MARKE NVARCHAR(9), ZAHL INT)"
        "CREATE TABLE STAMM (ID INT NOT NULL PRIMARY KEY, MARKE NVARCHAR(9))"
        "CREATE INDEX TARIF_MARKE ON TARIF (GRUPPE, ISNULL(MARKE,''))");
  }

  void Run(std::string_view text) { connection_->Execute(Sql(text)); }

  // How SQLite goes about the last statement that the text becomes.
  std::string PlanOf(std::string_view text) {
    sqlite3* const db = SharedOf(connection_).File().Raw();
    std::string sent;
    const auto hear = [](unsigned, void* to, void*, void* sql) {
      return *static_cast<std::string*>(to) = static_cast<const char*>(sql), 0;
    };
    sqlite3_trace_v2(db, SQLITE_TRACE_STMT, hear, &sent);
    Run(text);
    sqlite3_trace_v2(db, 0, nullptr, nullptr);
    std::string plan;
    const auto add = [](void* to, int, char** cells, char**) {
      return *static_cast<std::string*>(to) += std::string(cells[3]) + "\n", 0;
    };
    sqlite3_exec(db, ("EXPLAIN QUERY PLAN " + sent).c_str(), add, &plan, nullptr);
    return plan;
  }

  std::shared_ptr<Connection> connection_ = OpenDatabase(":memory:");
};

TEST_F(IndexTest, ServesWhatFoldsAndWhatTakesNullForABlank) {
  for (const char* condition :
       {"UPPER(TARIF.GRUPPE) = UPPER('a') AND UPPER(ISNULL(TARIF.MARKE,'')) = UPPER(ISNULL(STAMM.MARKE,''))",
        "TARIF.GRUPPE = 'a' AND ISNULL(STAMM.MARKE,'') = ISNULL(TARIF.MARKE,'')",
        "TARIF.GRUPPE = 'b' AND RTRIM(ISNULL(TARIF.MARKE,'')) = 'x'"})
    EXPECT_THAT(PlanOf("SELECT TARIF.ID FROM STAMM LEFT JOIN TARIF ON " + std::string(condition)),
                HasSubstr("TARIF_MARKE (GRUPPE=? AND <expr>=?)"))
        << condition;
  for (const char* condition : {"TARIF.GRUPPE = 'a' AND ISNULL(TARIF.MARKE,'-') = STAMM.MARKE",
                                "TARIF.GRUPPE = 'a' AND TARIF.MARKE = STAMM.MARKE"})
    EXPECT_THAT(PlanOf("SELECT TARIF.ID FROM STAMM LEFT JOIN TARIF ON " + std::string(condition)),
                Not(HasSubstr("<expr>")))
        << condition;
}

TEST_F(IndexTest, FindsTheSameRowsWithItAndWithout) {
  Run("INSERT INTO TARIF VALUES (1,'FI','a',1),(2,'fi','A ',2),(3,'FI',NULL,3),(4,'fi','',4),(5,'TA',NULL,5)"
      "INSERT INTO STAMM VALUES (1,'A'),(2,NULL),(3,' '),(4,'b')");
  const auto pairs = [this] {
    return Rows(
        *connection_,
        "SELECT STAMM.ID,TARIF.ID FROM STAMM LEFT JOIN TARIF ON UPPER(TARIF.GRUPPE) = UPPER('Fi') AND "
        "UPPER(ISNULL(TARIF.MARKE,'')) = UPPER(ISNULL(STAMM.MARKE,'')) ORDER BY STAMM.ID,TARIF.ID");
  };
  EXPECT_EQ(pairs(), "1,1;1,2;2,3;2,4;3,3;3,4;4,NULL");
  SharedOf(connection_).File().Execute("DROP INDEX \"TARIF.TARIF_MARKE\"");
  EXPECT_EQ(pairs(), "1,1;1,2;2,3;2,4;3,3;3,4;4,NULL");
}

// Groups of which an outer row needs one are not all made first.
TEST_F(IndexTest, FindsTheOneGroupThatAFilterAsksFor) {
  Run("CREATE TABLE LISTE (NAME NVARCHAR(9), ZAHL INT)"
      "CREATE TABLE STAMMLISTE (LISTE NVARCHAR(9), NR INT, OHNE NVARCHAR(9), AA INT)"
      "CREATE INDEX STAMMLISTE_LISTE ON STAMMLISTE (LISTE, AA)"
      "INSERT INTO LISTE VALUES ('a',1),('B ',2),('c',3),(NULL,4),('d',5)"
      "INSERT INTO STAMMLISTE VALUES ('A',1,'a',NULL),('a ',2,'a',NULL),('b',1,'b',NULL),('b',2,'b',7),"
      "('C',1,'c',NULL),(NULL,1,NULL,NULL)");
  struct Case {
    const char* condition;
    const char* rows;
    bool narrowed;
  };
  for (const Case& one :
       {Case{"NAME IN (SELECT LISTE FROM STAMMLISTE GROUP BY LISTE HAVING MAX(AA) IS NULL)", "1;3", true},
        Case{"ZAHL > 1 AND NAME IN (SELECT LISTE FROM STAMMLISTE GROUP BY LISTE HAVING COUNT(AA) < 1)", "3",
             true},
        Case{"NAME IN (SELECT LISTE FROM STAMMLISTE GROUP BY LISTE HAVING MAX(AA) > 0)", "2", true},
        // Unknown is not false here.
        Case{"NAME NOT IN (SELECT LISTE FROM STAMMLISTE GROUP BY LISTE HAVING MAX(AA) IS NULL)", "", false},
        Case{"NOT (NAME IN (SELECT LISTE FROM STAMMLISTE GROUP BY LISTE HAVING MAX(AA) IS NULL))", "", false},
        // No index, another column, and tests that may fail on another group.
        Case{"NAME IN (SELECT OHNE FROM STAMMLISTE GROUP BY OHNE HAVING MAX(AA) IS NULL)", "1;3", false},
        Case{"NAME IN (SELECT MIN(OHNE) FROM STAMMLISTE GROUP BY LISTE HAVING MAX(AA) IS NULL)", "1;3",
             false},
        Case{"NAME IN (SELECT LISTE FROM STAMMLISTE GROUP BY LISTE HAVING SUM(NR) = 1)", "3", false},
        Case{"NAME IN (SELECT LISTE FROM STAMMLISTE WHERE AA = 7 GROUP BY LISTE HAVING MAX(AA) = 7)", "2",
             false}}) {
    const std::string text = "SELECT ZAHL FROM LISTE WHERE " + std::string(one.condition) + " ORDER BY ZAHL";
    EXPECT_EQ(Rows(*connection_, text), one.rows) << one.condition;
    EXPECT_EQ(PlanOf(text).find("STAMMLISTE_LISTE (LISTE=?)") != std::string::npos, one.narrowed)
        << one.condition;
  }
}

TEST_F(IndexTest, OtherExpressionsAreRefused) {
  for (const char* term : {"UPPER(MARKE)", "ISNULL(MARKE,'x')", "ISNULL(ZAHL,'')", "ISNULL(MARKE,0)"})
    EXPECT_EQ(ErrorNumber([&] { Run("CREATE INDEX X ON TARIF (" + std::string(term) + ")"); }),
              kErrorNotSupported)
        << term;
  EXPECT_EQ(ErrorNumber([&] { Run("CREATE UNIQUE INDEX X ON TARIF (ISNULL(MARKE,''))"); }),
            kErrorNotSupported);
  EXPECT_EQ(ErrorNumber([&] { Run("CREATE INDEX X ON TARIF (ISNULL(FEHLT,''))"); }), 1911);
}

}  // namespace
}  // namespace tarvoni::sqlite

#include "tests/database/database_testing.h"
#include "tests/support/sql.h"

namespace tarvoni::sqlite {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// A row as another program may leave it, beside a sound one.
class DamagedCellsTest : public ::testing::Test {
 protected:
  DamagedCellsTest() {
    OpenDatabase(path_, {.create = true})
        ->Execute(
            "CREATE TABLE T (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, D DATETIME, I INT, M MONEY, F FLOAT, "
            "N NVARCHAR(20), P NVARCHAR(9) NOT NULL)\n"
            "INSERT INTO T (D,I,M,F,N,P) VALUES ('20240229',1,1.5,0.5,'Ärmel','x')");
    // The table forbids NULL again only when the row is there.
    Declare("TSQL NOT NULL", "TSQL", 98);
    EXPECT_EQ(OtherProgram(path_).Run(
                  "INSERT INTO T VALUES (2,'2024-13-45','viel',2.5,9e999,CAST(x'41FF' AS TEXT),NULL)"),
              SQLITE_OK);
    Declare("NVARCHAR(9) COLLATE TSQL", "NVARCHAR(9) COLLATE TSQL NOT NULL", 99);
    connection_ = OpenDatabase(path_);
  }

  void Declare(const std::string& from, const std::string& to, int version) {
    OtherProgram(path_).Run("PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = replace(sql, '" +
                            from + "', '" + to +
                            "') WHERE name = 'T'; PRAGMA schema_version = " + std::to_string(version));
  }

  TempFolder folder_;
  std::string path_ = folder_.File("lohn.db");
  std::shared_ptr<Connection> connection_;
};

TEST_F(DamagedCellsTest, TheCheckNamesTableKeyColumnAndContent) {
  EXPECT_THAT(CheckIntegrity(*connection_),
              ElementsAre("Tabelle T, ID 2, Spalte D: kein gültiges Datum („2024-13-45“).",
                          "Tabelle T, ID 2, Spalte I: keine ganze Zahl („viel“).",
                          "Tabelle T, ID 2, Spalte M: keine genaue Zahl („2.5“).",
                          "Tabelle T, ID 2, Spalte F: unendlich („Inf“).",
                          "Tabelle T, ID 2, Spalte N: kein gültiges UTF-8 („A\uFFFD“).",
                          "Tabelle T, ID 2, Spalte P: leer, obwohl dort ein Wert stehen muss.",
                          "Tabelle T: als letzte Nummer ist 1 vermerkt, es gibt aber schon 2."));
}

TEST_F(DamagedCellsTest, TheCheckNamesTextsBeyondTheirColumn) {
  EXPECT_EQ(OtherProgram(path_).Run("DELETE FROM T WHERE ID = 2; UPDATE T SET P = 'zehn Zeich'; "
                                    "INSERT INTO T (ID,P) VALUES (-7,'neunZeich')"),
            SQLITE_OK);
  EXPECT_THAT(CheckIntegrity(*connection_),
              ElementsAre("Tabelle T, ID 1, Spalte P: zu lang („zehn Zeich“)."));
}

TEST_F(DamagedCellsTest, DifferencesFromAModelAreTold) {
  const auto model = OpenDatabase(":memory:");
  model->Execute(
      "CREATE TABLE T (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, D DATETIME, I BIGINT, X INT)\n"
      "CREATE TABLE U (A INT)");
  OtherProgram(path_).Run("DROP TABLE tarvoni_identity");
  EXPECT_THAT(DifferencesFrom(*model, *OpenDatabase(path_, {.read_only = true})),
              ElementsAre("Die Spalte ID der Tabelle T vergibt keine Nummern.",
                          "Die Spalte I der Tabelle T ist INT statt BIGINT.",
                          "In der Tabelle T fehlt die Spalte X.", "Die Tabelle U fehlt."));
}

TEST_F(DamagedCellsTest, AListShowsTheCellsAsTheyAreBehindAMark) {
  EXPECT_EQ(Rows(*connection_, "SELECT D,I,M,F,N FROM T ORDER BY ID"),
            "2024-02-29,1,1.5,0.5,Ärmel;⚠ 2024-13-45,⚠ viel,⚠ 2.5,⚠ Inf,⚠ A\uFFFD");
}

TEST_F(DamagedCellsTest, AStatementThatNeedsTheValueNamesTheCell) {
  for (const char* text : {"SELECT D+1 FROM T", "SELECT A.ID FROM T A WHERE A.D+1 > '20240101'"}) {
    const auto error = ErrorIn([&] { connection_->Open(Sql(text)); });
    ASSERT_TRUE(error) << text;
    EXPECT_EQ(error->Number(), kErrorDamaged) << text;
    EXPECT_THAT(error->what(), HasSubstr("Tabelle T, ID 2, Spalte ")) << text;
  }
}

}  // namespace
}  // namespace tarvoni::sqlite

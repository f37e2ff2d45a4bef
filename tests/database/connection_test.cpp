#include <signal.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

#include "src/context/data/handler_scope.h"
#include "tests/database/database_testing.h"
#include "tests/support/sql.h"

namespace tarvoni::sqlite {
namespace {

using std::chrono::milliseconds;
namespace fs = std::filesystem;

class ConnectionTest : public ::testing::Test {
 protected:
  std::shared_ptr<Connection> Create(milliseconds busy_timeout = milliseconds(20)) {
    auto connection = OpenDatabase(path_, {.create = true, .busy_timeout = busy_timeout});
    connection->Execute(
        "CREATE TABLE ZEILE (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, N INT NOT NULL, T NVARCHAR(200))");
    return connection;
  }

  TempFolder folder_;
  std::string path_ = folder_.File("lohn.db");
};

TEST_F(ConnectionTest, ABatchCommitsByItselfAndAHandlerAtItsEnd) {
  const auto connection = Create();
  OtherProgram other(path_);
  connection->Execute("INSERT INTO ZEILE (N) VALUES (1)");
  EXPECT_EQ(other.Ask("SELECT COUNT(*) FROM ZEILE"), "1");

  connection->BeginHandler();
  connection->BeginHandler();
  connection->Execute("INSERT INTO ZEILE (N) VALUES (2)");
  connection->EndHandler();
  connection->Execute("INSERT INTO ZEILE (N) VALUES (3)");
  EXPECT_EQ(other.Ask("SELECT COUNT(*) FROM ZEILE"), "1");
  connection->CommitHandler();
  EXPECT_EQ(other.Ask("SELECT COUNT(*) FROM ZEILE"), "3");
  connection->Execute("INSERT INTO ZEILE (N) VALUES (4)");
  EXPECT_EQ(other.Ask("SELECT COUNT(*) FROM ZEILE"), "3");
  connection->EndHandler();
  EXPECT_EQ(other.Ask("SELECT COUNT(*) FROM ZEILE"), "4");
}

TEST_F(ConnectionTest, WhatAHandlerWroteStaysAfterItsError) {
  const auto connection = Create();
  OtherProgram other(path_);
  EXPECT_EQ(ErrorNumber([&] {
              HandlerScope handler(*connection);
              connection->Execute("INSERT INTO ZEILE (N) VALUES (1)");
              connection->Execute("INSERT INTO ZEILE (N) VALUES (NULL)");
              handler.Finish();
            }),
            515);
  EXPECT_EQ(other.Ask("SELECT COUNT(*) FROM ZEILE"), "1");
}

TEST_F(ConnectionTest, ReadsTakeNoWriteLock) {
  const auto connection = Create();
  OtherProgram other(path_);
  ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
  connection->BeginHandler();
  EXPECT_EQ(Rows(*connection,
                 "SET NOCOUNT ON CREATE TABLE #t (A INT) INSERT INTO #t (A) SELECT 5 "
                 "IF EXISTS(SELECT A FROM #t) SELECT (SELECT COUNT(*) FROM ZEILE),A FROM #t"),
            "0,5");
  connection->EndHandler();
  EXPECT_EQ(ErrorNumber([&] { connection->Execute("INSERT INTO ZEILE (N) VALUES (1)"); }), kErrorBusy);
}

TEST_F(ConnectionTest, ABusyFileIsWaitedForAndTold) {
  const auto connection = Create(milliseconds(60));
  OtherProgram other(path_);
  ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorNumber([&] { connection->Execute("INSERT INTO ZEILE (N) VALUES (1)"); }), kErrorBusy);
  EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(50));
  ASSERT_EQ(other.Run("ROLLBACK"), SQLITE_OK);
  connection->Execute("INSERT INTO ZEILE (N) VALUES (1)");
  EXPECT_EQ(Rows(*connection, "SELECT ID,N FROM ZEILE"), "1,1");
}

TEST_F(ConnectionTest, AFailedCommitKeepsNothingAndTheConnectionUsable) {
  const auto connection = Create();
  connection->Execute("INSERT INTO ZEILE (N) VALUES (1)");
  OtherProgram other(path_);
  sqlite3_stmt* reading = nullptr;
  sqlite3_prepare_v2(other.Raw(), "SELECT * FROM ZEILE", -1, &reading, nullptr);
  ASSERT_EQ(sqlite3_step(reading), SQLITE_ROW);

  connection->BeginHandler();
  connection->Execute("INSERT INTO ZEILE (N) VALUES (2)");
  connection->Execute("CREATE TABLE NEU (A INT)");
  EXPECT_EQ(ErrorNumber([&] { connection->EndHandler(); }), kErrorBusy);
  EXPECT_EQ(Rows(*connection, "SELECT ID,N FROM ZEILE"), "1,1");
  EXPECT_EQ(ErrorNumber([&] { connection->Open("SELECT A FROM NEU"); }), 208);
  // A batch of its own tells of the failed commit even if it went wrong before.
  EXPECT_EQ(ErrorNumber([&] { connection->Execute("INSERT INTO ZEILE (N) VALUES (3) SELECT 1/0"); }),
            kErrorBusy);

  sqlite3_finalize(reading);
  connection->Execute("INSERT INTO ZEILE (N) VALUES (4)");
  EXPECT_EQ(Rows(*connection, "SELECT ID,N FROM ZEILE"), "1,1;2,4");
}

TEST_F(ConnectionTest, AFullDiskGivesUpTheWholeHandler) {
  const auto connection = Create();
  connection->Execute("INSERT INTO ZEILE (N) VALUES (0)");
  SharedOf(connection).File().Execute("PRAGMA max_page_count = 20");
  const std::string line = "INSERT INTO ZEILE (N,T) VALUES (1,'" + std::string(200, 'x') + "')";
  connection->BeginHandler();
  EXPECT_EQ(ErrorNumber([&] {
              for (int i = 0; i < 1000; ++i) connection->Execute(Sql(line));
            }),
            kErrorDiskFull);
  // The rest of a given-up save must not be kept alone.
  EXPECT_EQ(ErrorNumber([&] { connection->Execute("UPDATE ZEILE SET N = 7"); }), kErrorDiskFull);
  connection->EndHandler();
  EXPECT_EQ(Rows(*connection, "SELECT ID,N FROM ZEILE"), "1,0");
  connection->Execute("UPDATE ZEILE SET N = 8");
  EXPECT_EQ(Rows(*connection, "SELECT ID,N FROM ZEILE"), "1,8");
}

TEST_F(ConnectionTest, TemporaryTablesOutliveARollback) {
  const auto connection = Create();
  const std::string list =
      "SET NOCOUNT ON UPDATE ZEILE SET N = N CREATE TABLE #t (A INT IDENTITY(3,1), B INT) "
      "INSERT INTO #t (B) VALUES (7) SELECT A,B FROM #t";
  EXPECT_EQ(Rows(*connection, list), "3,7");
  connection->BeginHandler();
  EXPECT_EQ(Rows(*connection, list), "3,7");
  SharedOf(connection).File().Execute("ROLLBACK");
  SharedOf(connection).NoteFailure(DatabaseError(kErrorDiskFull, "voll"));
  connection->EndHandler();
  EXPECT_EQ(Rows(*connection, list), "3,7");
  EXPECT_EQ(Rows(*connection, list), "3,7");
}

// A child that saves forty rows at a time without an end; the parent kills it at any moment.
[[noreturn]] void SaveForever(const std::string& path) noexcept {
  const auto connection = OpenDatabase(path);
  for (;;) {
    HandlerScope handler(*connection);
    for (int i = 0; i < 40; ++i)
      connection->Execute(Sql("INSERT INTO ZEILE (N,T) VALUES (" + std::to_string(i) + ",'x')"));
    handler.Finish();
  }
}

TEST_F(ConnectionTest, AKilledProgramLeavesWholeSaves) {
  Create();
  long long rows = 0;
  for (const int life : {11, 23, 37, 52, 71}) {
    const pid_t child = ::fork();
    if (child == 0) SaveForever(path_);
    std::this_thread::sleep_for(milliseconds(life));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const auto connection = OpenDatabase(path_);
    const auto found = std::stoll(Rows(*connection, "SELECT COUNT(*) FROM ZEILE"));
    EXPECT_EQ(found % 40, 0);
    EXPECT_EQ(Rows(*connection, "SELECT ISNULL(MAX(ID),1) FROM ZEILE"),
              Rows(*connection, "SELECT IDENT_CURRENT('ZEILE')"));
    EXPECT_THAT(CheckIntegrity(*connection), ::testing::IsEmpty());
    rows = found;
  }
  EXPECT_GT(rows, 0);
}

TEST_F(ConnectionTest, ConnectionsToOneFileShareWhatIsNotCommitted) {
  const auto connection = Create();
  const auto data_control = OpenDatabase(connection->ConnectionString());
  const auto by_detour = OpenDatabase(folder_.File("./lohn.db"));
  connection->BeginHandler();
  connection->Execute("INSERT INTO ZEILE (N) VALUES (5)");
  EXPECT_EQ(Rows(*data_control, "SELECT N FROM ZEILE"), "5");
  by_detour->Execute("UPDATE ZEILE SET N = 6");
  EXPECT_EQ(OtherProgram(path_).Ask("SELECT COUNT(*) FROM ZEILE"), "0");
  connection->EndHandler();
  EXPECT_EQ(OtherProgram(path_).Ask("SELECT N FROM ZEILE"), "6");
}

TEST_F(ConnectionTest, AConnectionThatGoesEndsItsHandlers) {
  const auto other = Create();
  {
    const auto connection = OpenDatabase(path_);
    connection->BeginHandler();
    connection->Execute("INSERT INTO ZEILE (N) VALUES (5)");
  }
  EXPECT_EQ(OtherProgram(path_).Ask("SELECT COUNT(*) FROM ZEILE"), "1");
}

TEST_F(ConnectionTest, SettingsBelongToOneConnection) {
  const auto first = Create();
  const auto second = OpenDatabase(path_);
  first->Execute("SET NOCOUNT ON SET DATEFORMAT dmy SET IDENTITY_INSERT ZEILE ON");
  EXPECT_EQ(second->Execute("INSERT INTO ZEILE (N) VALUES (1)"), 1);
  EXPECT_EQ(first->Execute("INSERT INTO ZEILE (ID,N) VALUES (7,1)"), 1);
  EXPECT_EQ(ErrorNumber([&] { second->Execute("INSERT INTO ZEILE (ID,N) VALUES (8,1)"); }), 544);
  EXPECT_EQ(Rows(*first, "SELECT CAST('03.02.2024' AS DATETIME)"), "2024-02-03");
  EXPECT_EQ(Rows(*second, "SELECT CAST('03.02.2024' AS DATETIME)"), "2024-03-02");
}

TEST_F(ConnectionTest, IdentityInsertOfATemporaryTableEndsWithIt) {
  const auto connection = Create();
  const std::string batch =
      "SET NOCOUNT ON CREATE TABLE #t (ID INT IDENTITY(1,1), N INT) SET IDENTITY_INSERT #t ON "
      "INSERT INTO #t (ID,N) VALUES (7,1) SET IDENTITY_INSERT #t OFF INSERT INTO #t (N) VALUES (2) "
      "SET IDENTITY_INSERT #t ON SELECT ID FROM #t ORDER BY ID";
  EXPECT_EQ(Rows(*connection, batch), "7;8");
  EXPECT_EQ(Rows(*connection, batch), "7;8");
  connection->Execute("SET IDENTITY_INSERT ZEILE ON");
}

TEST(MemoryDatabase, IsNewEachTimeAndOpensAgainByItsName) {
  const auto first = OpenDatabase(":memory:");
  const auto second = OpenDatabase(":memory:");
  first->Execute("CREATE TABLE A (ID INT)");
  EXPECT_EQ(ErrorNumber([&] { second->Open("SELECT ID FROM A"); }), 208);
  auto again = OpenDatabase(first->ConnectionString());
  EXPECT_EQ(Rows(*again, "SELECT COUNT(*) FROM A"), "0");

  const std::string gone = second->ConnectionString();
  EXPECT_NE(gone, first->ConnectionString());
  EXPECT_EQ(ErrorNumber([&] {
              auto closed = OpenDatabase(":memory:");
              const std::string name = closed->ConnectionString();
              closed.reset();
              OpenDatabase(name);
            }),
            kErrorConnection);
}

TEST_F(ConnectionTest, RefusesWhatCannotBeOpened) {
  EXPECT_EQ(ErrorNumber([&] { OpenDatabase(path_); }), kErrorConnection);
  EXPECT_FALSE(fs::exists(path_));
  fs::create_directory(path_);
  EXPECT_EQ(ErrorNumber([&] { OpenDatabase(path_); }), kErrorConnection);
  EXPECT_EQ(ErrorNumber([&] { OpenDatabase(folder_.File("kein/ordner.db"), {.create = true}); }),
            kErrorConnection);
}

TEST_F(ConnectionTest, AWriteProtectedFileOpensForReadingOnly) {
  Create()->Execute("INSERT INTO ZEILE (N) VALUES (1)");
  fs::permissions(path_, fs::perms::owner_read);
  const auto error = ErrorIn([&] { OpenDatabase(path_); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorReadOnly);
  EXPECT_THAT(error->what(), ::testing::HasSubstr("schreibgeschützt"));

  const auto reader = OpenDatabase(path_, {.read_only = true});
  EXPECT_EQ(Rows(*reader, "SELECT N FROM ZEILE"), "1");
  EXPECT_EQ(Rows(*reader, "IF EXISTS(SELECT N FROM ZEILE) SELECT 1 ELSE UPDATE ZEILE SET N = 2"), "1");
  EXPECT_EQ(ErrorNumber([&] { reader->Execute("UPDATE ZEILE SET N = 2"); }), kErrorReadOnly);
}

TEST_F(ConnectionTest, LeavesWhatItRefusesUntouched) {
  Create()->Execute("INSERT INTO ZEILE (N) VALUES (1)");
  const std::string sound = BytesOf(path_);
  std::string garbled = sound;
  garbled.replace(100, 400, std::string(400, '\xEE'));
  std::string newer = sound;
  newer[63] = 9;  // the lowest byte of user_version
  const struct {
    std::string bytes;
    int number;
  } files[] = {
      {"Das ist ein Brief und keine Datenbank.", kErrorDamaged},
      {std::string(5000, 'x'), kErrorDamaged},
      {sound.substr(0, sound.size() / 2), kErrorDamaged},
      {garbled, kErrorDamaged},
      {newer, kErrorNewerSchema},
  };
  const std::string path = folder_.File("andere.db");
  for (const auto& file : files) {
    WriteBytes(path, file.bytes);
    EXPECT_EQ(ErrorNumber([&] { OpenDatabase(path, {.create = true, .schema_version = 8}); }), file.number);
    EXPECT_EQ(BytesOf(path), file.bytes);
    EXPECT_EQ(folder_.FileCount(), 2U);
  }
  EXPECT_NO_THROW(OpenDatabase(path, {.schema_version = 9}));
}

TEST_F(ConnectionTest, ManyBranchesAndTemporaryTablesEndInTime) {
  // Compared with each other the branches' constants would take minutes.
  constexpr int kBranches = 100'000;
  const auto connection = OpenDatabase(":memory:");
  std::string text = "SELECT CASE (SELECT 99999 AS A)";
  for (int i = 0; i < kBranches; ++i) text += " WHEN " + std::to_string(i) + " THEN " + std::to_string(i + 1);
  EXPECT_EQ(Rows(*connection, text + " END"), "100000");

  std::string tables;
  const auto add = [&](int number) { tables += "CREATE TABLE #t" + std::to_string(number) + " (A INT) "; };
  for (int i = 0; i < 250; ++i) add(i);
  connection->Execute(Sql(tables));
  // More are refused, at the first one too many, before anything runs.
  for (int i = 250; i < kBranches; ++i) add(i);
  const auto error = ErrorIn([&] { connection->Execute(Sql("CREATE TABLE T (A INT) " + tables)); });
  EXPECT_EQ(error ? error->Number() : 0, kErrorNotSupported);
  EXPECT_EQ(ErrorNumber([&] { connection->Execute("SELECT A FROM T"); }), 208);
}

TEST_F(ConnectionTest, TheTraceCountsUnderNocountToo) {
  const auto connection = Create();
  std::vector<long long> heard;
  connection->SetTraceHook([&heard](const TraceEvent& event) { heard.push_back(event.affected_rows); });
  EXPECT_EQ(connection->Execute("SET NOCOUNT ON INSERT INTO ZEILE (N) VALUES (1),(2)"), 2);
  EXPECT_THAT(heard, ::testing::ElementsAre(2));
}

TEST_F(ConnectionTest, AnErrorTellsItsPlaceInTheTextThatWasSent) {
  const auto connection = Create();
  for (const std::string first : {"1", "123456"}) {
    const std::string text = "UPDATE ZEILE SET N = " + first + " WHERE ID = 1 SELECT 1/0 AS A";
    const auto error = ErrorIn([&] { connection->Execute(Sql(text)); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Line(), 1);
    EXPECT_EQ(error->Column(), static_cast<int>(text.find("SELECT")) + 1);
    EXPECT_EQ(error->Statement(), text);
  }
}

TEST_F(ConnectionTest, TextsOfOneShapeShareAPlan) {
  const auto connection = Create();
  auto& plans = SharedOf(connection).Plans();
  connection->Execute("INSERT INTO ZEILE (N,T) VALUES (1,'a')");
  const auto before = plans.Size();
  connection->Execute("INSERT INTO ZEILE (N,T) VALUES (25,'ein längerer Text')");
  EXPECT_EQ(plans.Size(), before);
  EXPECT_EQ(Rows(*connection, "SELECT N,T FROM ZEILE ORDER BY ID"), "1,a;25,ein längerer Text");

  // A literal that is part of the plan makes a variant of it.
  EXPECT_EQ(Rows(*connection, "SELECT N,T FROM ZEILE ORDER BY 1 DESC"), "25,ein längerer Text;1,a");
  EXPECT_EQ(Rows(*connection, "SELECT N,T FROM ZEILE ORDER BY 2 DESC"), "25,ein längerer Text;1,a");
  EXPECT_EQ(Rows(*connection, "SELECT ROUND(125.55,1)"), "125.6");
  EXPECT_EQ(Rows(*connection, "SELECT ROUND(125.55,0)"), "126");
  EXPECT_EQ(Rows(*connection, "SELECT ROUND(125.55,1)"), "125.6");
  EXPECT_EQ(Rows(*connection, "SELECT CAST(1.25 AS DECIMAL(9,2))"), "1.25");
  EXPECT_EQ(Rows(*connection, "SELECT CAST(1.25 AS DECIMAL(9,1))"), "1.3");
}

TEST_F(ConnectionTest, KeepsTheShapesUsedLast) {
  const auto connection = Create();
  auto& plans = SharedOf(connection).Plans();
  const auto ask = [&](std::size_t shape) {
    connection->Execute(Sql("SELECT N AS A" + std::to_string(shape) + " FROM ZEILE"));
  };
  for (std::size_t shape = 0; shape < Database::kPlans + 50; ++shape) {
    ask(shape);
    ask(0);
  }
  EXPECT_EQ(plans.Size(), Database::kPlans);
  const auto knows = [&](std::size_t shape) {
    return plans.Find(tsql::Lex("SELECT N AS A" + std::to_string(shape) + " FROM ZEILE"), "") != nullptr;
  };
  EXPECT_TRUE(knows(0));
  EXPECT_FALSE(knows(1));
  EXPECT_TRUE(knows(Database::kPlans));
}

TEST_F(ConnectionTest, GivesNoIdentityValueThatAnotherProgramHasGiven) {
  const auto connection = Create();
  const std::string insert = "INSERT INTO ZEILE (N) VALUES (1)";
  connection->Execute(Sql(insert));
  ASSERT_EQ(OtherProgram(path_).Run(
                "INSERT INTO ZEILE VALUES (50, 1, NULL); UPDATE tarvoni_identity SET last = 50"),
            SQLITE_OK);
  connection->BeginHandler();
  connection->Execute(Sql(insert));
  connection->Execute(Sql(insert));
  EXPECT_EQ(Rows(*connection, "SELECT IDENT_CURRENT('ZEILE')"), "52");
  connection->EndHandler();
  EXPECT_EQ(OtherProgram(path_).Ask("SELECT last FROM tarvoni_identity"), "52");
  EXPECT_EQ(Rows(*connection, "SELECT MAX(ID) FROM ZEILE"), "52");
}

TEST_F(ConnectionTest, NoticesTablesThatAnotherProgramChanges) {
  const auto connection = Create();
  const std::string list = "SELECT * FROM ZEILE";
  connection->Execute("INSERT INTO ZEILE (N) VALUES (1)");
  EXPECT_EQ(Rows(*connection, list), "1,1,NULL");
  EXPECT_EQ(ErrorNumber([&] { connection->Open("SELECT A FROM NEU"); }), 208);

  OtherProgram other(path_);
  ASSERT_EQ(other.Run("CREATE TABLE NEU (A INT); INSERT INTO NEU VALUES (3)"), SQLITE_OK);
  EXPECT_EQ(Rows(*connection, "SELECT A FROM NEU"), "3");
  // A plan that is already known fails first where it reads,
  ASSERT_EQ(other.Run("ALTER TABLE ZEILE RENAME COLUMN T TO TEXTE"), SQLITE_OK);
  EXPECT_EQ(Rows(*connection, list), "1,1,NULL");
  EXPECT_EQ(connection->Open(Sql(list)).Columns().at(2).name, "TEXTE");
  // and is made anew before it writes, for it might do so without an error.
  const std::string insert_new = "INSERT INTO NEU (A) VALUES (4)";
  connection->Execute(Sql(insert_new));
  ASSERT_EQ(other.Run("DROP TABLE NEU; CREATE TABLE NEU (A MONEY)"), SQLITE_OK);
  connection->Execute(Sql(insert_new));
  EXPECT_EQ(other.Ask("SELECT A FROM NEU"), "40000");

  ASSERT_EQ(other.Run("DROP TABLE NEU"), SQLITE_OK);
  EXPECT_EQ(ErrorNumber([&] { connection->Open("SELECT A FROM NEU"); }), 208);
}

// SQLite prepares a known statement again by itself, and would read the new column in the old way.
TEST_F(ConnectionTest, AKnownPlanServesNoOtherTables) {
  const auto connection = Create();
  connection->Execute("CREATE TABLE ORT (N DECIMAL(9,2)) INSERT INTO ORT (N) VALUES (250)");
  OtherProgram other(path_);
  bool more_places = false;
  for (const std::string query : {"SELECT N*1 AS A FROM ORT", "SELECT COUNT(*) AS A FROM ORT WHERE N < 300",
                                  "IF (SELECT SUM(N) FROM ORT) = 250 SELECT 1 AS A ELSE SELECT 2 AS A"}) {
    const std::string before = Rows(*connection, query);
    more_places = !more_places;
    const std::string table = more_places ? "(N DECIMAL(9,4)); INSERT INTO ORT VALUES (2500000)"
                                          : "(N DECIMAL(9,2)); INSERT INTO ORT VALUES (25000)";
    ASSERT_EQ(other.Run("DROP TABLE ORT; CREATE TABLE ORT " + table), SQLITE_OK);
    EXPECT_EQ(Rows(*connection, query), before) << query;
  }
}

}  // namespace
}  // namespace tarvoni::sqlite

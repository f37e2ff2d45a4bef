#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/sqlite/public/partial_file.h"
#include "src/context/data/statement.h"
#include "tests/database/database_testing.h"
#include "tests/disk/faulty_disk.h"

namespace tarvoni::sqlite {
namespace {

namespace fs = std::filesystem;

class BackupTest : public ::testing::Test {
 protected:
  BackupTest() {
    connection_->Execute(
        "CREATE TABLE A (ID INT NOT NULL PRIMARY KEY, T NVARCHAR(20) NOT NULL UNIQUE CHECK (T <> 'x'))");
    connection_->Execute("INSERT INTO A (ID,T) VALUES (1,'Ärmel')");
  }

  TempFolder folder_;
  std::string path_ = folder_.File("lohn.db");
  std::string copy_ = folder_.File("sicherung.db");
  std::shared_ptr<Connection> connection_ = OpenDatabase(path_, {.create = true});
};

TEST_F(BackupTest, CopiesWhatTheHandlerHasWritten) {
  Backup(*connection_, copy_);
  connection_->BeginHandler();
  connection_->Execute("INSERT INTO A (ID,T) VALUES (2,'b')");
  Backup(*connection_, copy_);
  connection_->Execute("INSERT INTO A (ID,T) VALUES (3,'c')");
  connection_->EndHandler();
  EXPECT_EQ(Rows(*OpenDatabase(copy_), "SELECT ID,T FROM A ORDER BY ID"), "1,Ärmel;2,b");
  EXPECT_EQ(Rows(*connection_, "SELECT COUNT(*) FROM A"), "3");
  EXPECT_EQ(folder_.FileCount(), 2U);
}

TEST_F(BackupTest, KeepsALinkToADiskThatIsNotThere) {
  fs::create_symlink("/nicht/da/sicherung.db", copy_);
  for (const bool force : {false, true})
    EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, copy_, {.force = force}); }), kErrorConnection);
  EXPECT_TRUE(fs::is_symlink(copy_));
}

TEST_F(BackupTest, CopiesADatabaseInMemory) {
  const auto memory = OpenDatabase(":memory:");
  memory->Execute("CREATE TABLE B (ID INT) INSERT INTO B (ID) VALUES (7)");
  Backup(*memory, copy_);
  EXPECT_EQ(Rows(*OpenDatabase(copy_), "SELECT ID FROM B"), "7");
}

TEST_F(BackupTest, LeavesTheTargetWhenTheDatabaseIsDamagedOrEmpty) {
  Backup(*connection_, copy_);
  const std::string before = BytesOf(copy_);
  // A row that refers to nothing, as another program may leave it.
  connection_->Execute("CREATE TABLE C (A INT REFERENCES A (ID))");
  OtherProgram(path_).Run("INSERT INTO C VALUES (99)");
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, copy_); }), kErrorDamaged);
  EXPECT_THAT(CheckIntegrity(*connection_), ::testing::ElementsAre(::testing::HasSubstr("Tabelle C")));
  WriteBytes(folder_.File("leer.db"), "");
  EXPECT_EQ(ErrorNumber([&] { Backup(*OpenDatabase(folder_.File("leer.db")), copy_); }), kErrorDamaged);
  EXPECT_EQ(BytesOf(copy_), before);
  EXPECT_EQ(folder_.FileCount(), 3U);
}

TEST_F(BackupTest, TakesTheNameOnlyOfAnOlderBackupUnlessForced) {
  const auto refused = [&] {
    const auto error = ErrorIn([&] { Backup(*connection_, copy_); });
    return error && error->Number() == kErrorConnection;
  };
  WriteBytes(copy_, "Einkaufsliste");
  EXPECT_TRUE(refused());
  EXPECT_EQ(BytesOf(copy_), "Einkaufsliste");
  Backup(*connection_, copy_, {.force = true});
  EXPECT_EQ(Rows(*OpenDatabase(copy_), "SELECT ID FROM A"), "1");

  // A file of another enterprise, with the same tables.
  fs::remove(copy_);
  OpenDatabase(copy_, {.create = true})->Execute("CREATE TABLE A (ID INT)");
  EXPECT_TRUE(refused());

  // A copy in which work went on.
  connection_->Execute("CREATE TABLE N (ID INT IDENTITY(1,1) NOT NULL, A INT)");
  Backup(*connection_, copy_, {.force = true});
  OpenDatabase(copy_)->Execute("INSERT INTO N (A) VALUES (5)");
  EXPECT_TRUE(refused());
  connection_->Execute("INSERT INTO N (A) VALUES (6)");
  EXPECT_FALSE(refused());
  EXPECT_EQ(Rows(*OpenDatabase(copy_), "SELECT A FROM N"), "6");
}

TEST_F(BackupTest, CopiesNoFileOfAnotherProgram) {
  const std::string foreign = folder_.File("fremd.db");
  OtherProgram(foreign).Run("CREATE TABLE X (A)");
  const std::string before = BytesOf(foreign);
  EXPECT_EQ(ErrorNumber([&] { Backup(*OpenDatabase(foreign), copy_); }), kErrorDamaged);
  EXPECT_EQ(BytesOf(foreign), before);
  EXPECT_FALSE(fs::exists(copy_));
}

TEST_F(BackupTest, AJournalLeftAtTheTargetGoesWithIt) {
  // A journal that would undo what is in the file: that of a killed program.
  const std::string killed = folder_.File("alt.db");
  fs::copy_file(path_, killed);
  {
    OtherProgram other(killed);
    other.Run(
        "PRAGMA cache_size = 1; BEGIN; UPDATE A SET ID = 7; CREATE TABLE X AS SELECT zeroblob(99999) AS B");
    fs::copy_file(killed, copy_);
    fs::copy_file(killed + "-journal", copy_ + "-journal");
  }
  connection_->Execute("INSERT INTO A (ID,T) VALUES (2,'b')");
  Backup(*connection_, copy_);
  EXPECT_EQ(Rows(*OpenDatabase(copy_), "SELECT ID FROM A ORDER BY ID"), "1;2");

  // A journal whose database somebody removed.
  fs::copy_file(path_, copy_ + "-journal", fs::copy_options::overwrite_existing);
  fs::remove(copy_);
  Backup(*connection_, copy_);
  EXPECT_FALSE(fs::exists(copy_ + "-journal"));
}

TEST_F(BackupTest, RefusesATargetThatCannotBeOne) {
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, path_); }), kErrorConnection);
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, folder_.File("kein/ordner.db")); }), kErrorConnection);
  fs::create_directory(copy_);
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, copy_, {.force = true}); }), kErrorConnection);
  const std::string pipe = folder_.File("rohr");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, pipe, {.force = true}); }), kErrorConnection);
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_EQ(ErrorNumber([&] { OpenDatabase(pipe); }), kErrorConnection);
  EXPECT_EQ(Rows(*connection_, "SELECT ID FROM A"), "1");
}

TEST_F(BackupTest, AFullDiskIsToldAsTheTargetsAndLeavesNothing) {
  disktest::FaultyDisk disk;
  std::string said;
  for (long at = 1; said.find("der Sicherung") == std::string::npos; ++at) {
    ASSERT_LT(at, 100);
    disk.FailAt(at, SQLITE_FULL);
    const auto error = ErrorIn([&] { Backup(*connection_, copy_); });
    if (error) said = error->what();
    fs::remove(copy_);
  }
  EXPECT_THAT(said, ::testing::HasSubstr("kein Platz mehr"));
  EXPECT_EQ(folder_.FileCount(), 1U);
}

TEST_F(BackupTest, ClearsAwayWhatAKilledOneLeft) {
  for (int i = 0; i < 2; ++i) {
    if (const pid_t child = fork(); child != 0) {
      int status = 0;
      waitpid(child, &status, 0);
    } else {
      const PartialFile partial(copy_ + std::to_string(i));
      raise(SIGKILL);
    }
  }
  EXPECT_EQ(folder_.FileCount(), 2U);  // the second has cleared away what the first left
  const PartialFile at_work(folder_.File("anderswo.db"));
  EXPECT_EQ(ErrorNumber([&] { PartialFile(folder_.File("anderswo.db")); }), kErrorBusy);
  Backup(*connection_, copy_);
  EXPECT_EQ(folder_.FileCount(), 3U);
  EXPECT_TRUE(fs::exists(at_work.Path()));
}

TEST_F(BackupTest, TellsOfDamage) {
  EXPECT_THAT(CheckIntegrity(*connection_), ::testing::IsEmpty());
  connection_->BeginHandler();
  for (int i = 2; i < 400; ++i) {
    connection_->Execute(
        Compose("INSERT INTO A (ID,T) VALUES ({},'{}')", Id(i), tarvoni::Quoted(std::to_string(i))));
  }
  connection_->EndHandler();
  connection_.reset();
  std::string bytes = BytesOf(path_);
  constexpr std::size_t kSound = 2 * 4096;
  WriteBytes(path_, bytes.replace(kSound, bytes.size() - kSound, bytes.size() - kSound, '\x7F'));
  connection_ = OpenDatabase(path_);
  EXPECT_THAT(CheckIntegrity(*connection_), ::testing::Not(::testing::IsEmpty()));
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, copy_); }), kErrorDamaged);
  EXPECT_FALSE(fs::exists(copy_));
}

}  // namespace
}  // namespace tarvoni::sqlite

#include "src/context/data/statement.h"
#include "tests/database/database_testing.h"

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
  WriteBytes(copy_, "eine ältere Sicherung");
  connection_->BeginHandler();
  connection_->Execute("INSERT INTO A (ID,T) VALUES (2,'b')");
  Backup(*connection_, copy_);
  connection_->Execute("INSERT INTO A (ID,T) VALUES (3,'c')");
  connection_->EndHandler();
  EXPECT_EQ(Rows(*OpenDatabase(copy_), "SELECT ID,T FROM A ORDER BY ID"), "1,Ärmel;2,b");
  EXPECT_EQ(Rows(*connection_, "SELECT COUNT(*) FROM A"), "3");
  EXPECT_EQ(folder_.FileCount(), 2U);
}

TEST_F(BackupTest, CopiesADatabaseInMemory) {
  const auto memory = OpenDatabase(":memory:");
  memory->Execute("CREATE TABLE B (ID INT) INSERT INTO B (ID) VALUES (7)");
  Backup(*memory, copy_);
  EXPECT_EQ(Rows(*OpenDatabase(copy_), "SELECT ID FROM B"), "7");
}

TEST_F(BackupTest, LeavesTheTargetWhenItFails) {
  WriteBytes(copy_, "eine ältere Sicherung");
  // A row that refers to nothing, as another program may leave it.
  connection_->Execute("CREATE TABLE C (A INT REFERENCES A (ID))");
  OtherProgram(path_).Run("INSERT INTO C VALUES (99)");
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, copy_); }), kErrorDamaged);
  EXPECT_EQ(BytesOf(copy_), "eine ältere Sicherung");
  EXPECT_EQ(folder_.FileCount(), 2U);
  EXPECT_THAT(CheckIntegrity(*connection_), ::testing::ElementsAre(::testing::HasSubstr("C")));
}

TEST_F(BackupTest, RefusesATargetThatCannotBeOne) {
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, path_); }), kErrorConnection);
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, folder_.File("kein/ordner.db")); }), kErrorConnection);
  fs::create_directory(copy_);
  EXPECT_EQ(ErrorNumber([&] { Backup(*connection_, copy_); }), kErrorConnection);
  EXPECT_EQ(Rows(*connection_, "SELECT ID FROM A"), "1");
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

#include "platform/odbc/application_lock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <set>

#include "platform/odbc/public/odbc_database.h"
#include "src/context/data/handler_scope.h"
#include "tests/odbc/tds_server.h"
#include "tests/support/database_testing.h"

namespace tarvoni::odbc {
namespace {

using dbtest::ErrorIn;
using std::chrono::seconds;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

std::string Whole(long long number) {
  return TdsAnswer().Columns({{"A", TdsAnswer::Type::kInt}}).Row().Whole(number).Done(1).Bytes();
}

// A server with one table that numbers its rows, and with the lock. The statements of a batch run one after another,
// and those of other sessions between them.
class NumberingServer {
 public:
  std::string Text(const std::string& more = "") const {
    return "odbc:Driver=" FREETDS_ODBC_DRIVER ";Server=127.0.0.1;Port=" + std::to_string(server_.Port()) +
           ";UID=sa;PWD=x" + more;
  }
  std::vector<std::string> Batches() const { return server_.Batches(); }

 private:
  std::string Answer(const std::string& batch, int session) {
    if (batch.find("sp_getapplock") != std::string::npos) return Whole(Lock(session) ? 0 : -1);
    if (batch.find("sp_releaseapplock") != std::string::npos) return Unlock(), TdsAnswer().Done().Bytes();
    if (batch.find("INSERT") == std::string::npos) return TdsAnswer().Done(1).Bytes();
    ++last_;
    std::this_thread::sleep_for(std::chrono::microseconds(200));
    return Whole(last_);
  }

  bool Lock(int session) {
    std::unique_lock lock(mutex_);
    const bool granted = freed_.wait_for(lock, wait_, [&] { return owner_ == 0 || owner_ == session; });
    if (granted) owner_ = session;
    return granted;
  }

  void Unlock() {
    const std::lock_guard lock(mutex_);
    owner_ = 0;
    freed_.notify_one();
  }

  std::mutex mutex_;
  std::condition_variable freed_;
  std::chrono::milliseconds wait_{10'000};
  int owner_ = 0;
  std::atomic<long long> last_{0};
  TdsServer server_{TdsServer::SessionAnswer(
      [this](const std::string& batch, int session) { return Answer(batch, session); })};

  friend class ApplicationLockTest;
};

class ApplicationLockTest : public ::testing::Test {
 protected:
  // How many keys are given twice when sessions save side by side.
  std::size_t KeysGivenTwice(int sessions, int saves, const std::string& more) {
    std::multiset<std::int64_t> keys;
    std::mutex mutex;
    std::vector<std::thread> workstations;
    for (int i = 0; i < sessions; ++i) {
      workstations.emplace_back([&] {
        const auto connection = OpenOdbc(server_.Text(more));
        for (int save = 0; save < saves; ++save) {
          HandlerScope handler(*connection);
          const Recordset made =
              connection->Open("INSERT INTO KOPF (N) SELECT 1 SELECT IDENT_CURRENT('KOPF')");
          connection->Execute("UPDATE KOPF SET N = 2");
          handler.Finish();
          const std::lock_guard lock(mutex);
          keys.insert(std::get<std::int64_t>(made.Fields()[0].Value()));
        }
      });
    }
    for (std::thread& workstation : workstations) workstation.join();
    return keys.size() - std::set(keys.begin(), keys.end()).size();
  }

  // What was sent behind the settings of the session: the words of the lock in short.
  std::vector<std::string> Sent() {
    auto batches = server_.Batches();
    batches.erase(batches.begin());
    for (std::string& batch : batches) {
      if (batch == TakeLockText(seconds(10))) batch = "lock";
      if (batch == kGiveLockBack) batch = "unlock";
    }
    return batches;
  }
  void HoldLockElsewhere() {
    server_.owner_ = 99;
    server_.wait_ = std::chrono::milliseconds(50);
  }

  NumberingServer server_;
};

TEST_F(ApplicationLockTest, KeysOfSessionsSideBySideAreNobodyElses) {
  EXPECT_GT(KeysGivenTwice(4, 25, ";ApplicationLock=no"), 0U);
  for (const int sessions : {2, 4, 8}) EXPECT_EQ(KeysGivenTwice(sessions, 25, ""), 0U) << sessions;
}

TEST_F(ApplicationLockTest, IsTakenAtTheFirstWriteAndGivenBackAtTheEndAndBeforeAModalWindow) {
  const auto connection = OpenOdbc(server_.Text());
  {
    HandlerScope handler(*connection);
    connection->Execute("SELECT 1");
    connection->Execute("UPDATE A SET B = 1");
    connection->Execute("UPDATE A SET B = 2");
    HandlerScope::CommitAll();
    connection->Execute("SELECT 2");
    connection->Execute("UPDATE A SET B = 3");
    handler.Finish();
  }
  connection->Execute("UPDATE A SET B = 4");
  EXPECT_THAT(Sent(), ElementsAre("SELECT 1", "lock", "UPDATE A SET B = 1", "UPDATE A SET B = 2", "unlock",
                                  "SELECT 2", "lock", "UPDATE A SET B = 3", "unlock", "lock",
                                  "UPDATE A SET B = 4", "unlock"));
}

TEST_F(ApplicationLockTest, NothingIsWrittenWhenTheLimitRunsOut) {
  const auto connection = OpenOdbc(server_.Text());
  HoldLockElsewhere();
  const auto error = ErrorIn([&] { connection->Execute("UPDATE A SET B = 1"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorBusy);
  EXPECT_THAT(error->what(), HasSubstr("Ein anderer Arbeitsplatz speichert gerade"));
  EXPECT_THAT(Sent(), Not(Contains("UPDATE A SET B = 1")));
}

TEST_F(ApplicationLockTest, CanBeSwitchedOff) {
  OpenOdbc(server_.Text(";ApplicationLock=no"))->Execute("UPDATE A SET B = 1");
  EXPECT_THAT(Sent(), ElementsAre("UPDATE A SET B = 1"));
}

}  // namespace
}  // namespace tarvoni::odbc

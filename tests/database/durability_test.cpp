#include <chrono>
#include <set>
#include <thread>

#include "tests/database/database_testing.h"
#include "tests/disk/child.h"
#include "tests/disk/faulty_disk.h"
#include "tests/disk/saves.h"

namespace tarvoni::sqlite {
namespace {

using disktest::FaultsOf;
using disktest::FaultyDisk;
using disktest::SaveUntilItFails;
using ::testing::IsEmpty;

TEST(Durability, APowerCutLosesNothingThatWasAcknowledged) {
  constexpr int kSaves = 2;
  const TempFolder folder;
  using enum FaultyDisk::Unsynced;
  long cuts = 0;
  for (const auto unsynced : {kLost, kKept, kByChance, kByChance}) {
    for (long at = 1;; ++at) {
      const std::string path = folder.File(std::to_string(++cuts) + ".db");
      disktest::MakeSavesFile(path);
      FaultyDisk disk;
      disk.CutAt(at);
      const auto acknowledged = SaveUntilItFails(path, kSaves);
      const bool cut = disk.IsCut();
      disk.PowerCut(unsynced, static_cast<unsigned>(cuts));
      ASSERT_THAT(FaultsOf(path, acknowledged), IsEmpty()) << "power cut at operation " << at;
      if (!cut) break;
    }
  }
  EXPECT_GT(cuts, 100);
}

TEST(Durability, AFailedOperationKeepsNothingOfItsSaveAndTheFileUsable) {
  const TempFolder folder;
  for (const int code : {SQLITE_IOERR_WRITE, SQLITE_FULL}) {
    bool failed = true;
    for (long at = 1; failed; ++at) {
      const std::string path = folder.File(std::to_string(code) + "_" + std::to_string(at) + ".db");
      disktest::MakeSavesFile(path);
      FaultyDisk disk;
      disk.FailAt(at, code);
      const auto before = disk.Operations();
      auto acknowledged = SaveUntilItFails(path, 2);
      failed = disk.Operations() - before >= at;
      disk.FailAt(0, SQLITE_OK);
      const auto connection = OpenDatabase(path);
      acknowledged.push_back(disktest::Save(*connection));
      ASSERT_THAT(FaultsOf(path, acknowledged), IsEmpty()) << "operation " << at << " failed with " << code;
    }
  }
}

// Saves that are killed at any moment, one after another and several side by side.
TEST(Durability, AKilledProgramLosesNothingThatWasAcknowledged) {
  const TempFolder folder;
  const std::string path = folder.File("lohn.db");
  disktest::MakeSavesFile(path);
  std::vector<long long> acknowledged;
  for (int kill = 0; kill < 25; ++kill) {
    std::vector<std::unique_ptr<disktest::Child>> programs;
    for (int i = 0; i <= kill % 3; ++i) {
      programs.push_back(std::make_unique<disktest::Child>([&path](const disktest::Child::Tell& tell) {
        for (const auto connection = OpenDatabase(path);;) tell(disktest::Save(*connection));
      }));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(3 + kill));
    for (const auto& program : programs) program->Kill();
    for (const auto& program : programs) {
      for (const long long key : program->Told()) acknowledged.push_back(key);
    }
    ASSERT_THAT(FaultsOf(path, acknowledged), IsEmpty()) << "kill " << kill;
  }
  EXPECT_THAT(std::set(acknowledged.begin(), acknowledged.end()), ::testing::SizeIs(acknowledged.size()));
}

}  // namespace
}  // namespace tarvoni::sqlite

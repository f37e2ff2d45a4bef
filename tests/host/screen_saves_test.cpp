#include "tests/disk/screen_saves.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "host/invariants.h"
#include "host/open_database.h"
#include "tests/host/demo_database.h"
#include "tests/support/file_bytes.h"

namespace tarvoni::host {
namespace {

using disktest::ScreenSaves;
using Fault = ScreenSaves::Fault;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct Saves {
  const char *setup, *script;
  std::size_t commits;        // that change the file
  std::size_t total_due = 0;  // the one behind which an order's total is not yet that of its hours
};

void PrintTo(const Saves& saves, std::ostream* out) {
  *out << saves.script;
}

std::vector<std::string> BrokenRules(Connection& connection) {
  std::vector<std::string> broken;
  for (const Invariant& rule : Invariants()) {
    if (connection.Open(rule.statement).RecordCount() > 0) broken.push_back(rule.sentence);
  }
  return broken;
}

class ScreenSave : public testing::TestWithParam<Saves> {
 protected:
  ~ScreenSave() override { std::filesystem::remove_all(folder_); }

  const std::filesystem::path folder_ = TemporaryFile();
  const ScreenSaves saves_{folder_.string(), GetParam().setup, GetParam().script};
};

// What belongs together is one commit, and each leaves data that keep all rules but one: hours are saved while their
// Screen is open, the order's total when it closes.
TEST_P(ScreenSave, IsOneCommitThatKeepsTheRules) {
  EXPECT_EQ(saves_.States().size() - 1, GetParam().commits);
  std::vector<std::string> at_first;
  for (std::size_t i = 0; i < saves_.States().size(); ++i) {
    const auto file = folder_ / (std::to_string(i) + ".db");
    dbtest::WriteBytes(file, saves_.States()[i]);
    const auto broken = BrokenRules(*OpenDatabase(file.string(), OpenMode::kReadOnly));
    if (i == 0) at_first = broken;  // some fixtures have no more than they need
    if (i > 0 && i == GetParam().total_due)
      EXPECT_THAT(broken, ElementsAre(StartsWith("Der Betrag eines Lohnauftrags")));
    else
      EXPECT_EQ(broken, at_first) << "behind commit " << i;
  }
}

TEST_P(ScreenSave, IsThereWholeOrNotAtAllWhateverTheDiskDoes) {
  constexpr long kTries = 30;
  using enum disktest::FaultyDisk::Unsynced;
  for (long i = 0; i < kTries; ++i) {
    const long n = 1 + i * saves_.Operations() / kTries;
    const auto faults = i % 3 == 0   ? saves_.FaultsAfter(Fault::kPowerCut, n, kKept)
                        : i % 3 == 1 ? saves_.FaultsAfter(Fault::kPowerCut, n, kByChance, 7)
                                     : saves_.FaultsAfter(Fault::kFullDisk, n);
    ASSERT_THAT(faults, IsEmpty()) << "fault " << i % 3 << " at operation " << n;
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, ScreenSave,
                         testing::Values(Saves{"disk/screens/demo.tvi", "disk/screens/wage.tvs", 8, 6},
                                         Saves{"disk/screens/demo.tvi", "disk/screens/position.tvs", 2},
                                         Saves{"scripts/vouchers/vouchers.tvi", "disk/screens/voucher.tvs",
                                               3},
                                         Saves{"scripts/wage/journal.tvi", "disk/screens/journal.tvs", 5}));

}  // namespace
}  // namespace tarvoni::host

#include "tests/torture/attacks.h"

#include <chrono>
#include <filesystem>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <thread>

#include "platform/sqlite/public/partial_file.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "tests/disk/child.h"
#include "tests/disk/faulty_disk.h"
#include "tests/disk/saves.h"
#include "tests/disk/screen_saves.h"
#include "tests/support/file_bytes.h"
#include "tests/support/sql.h"

namespace tarvoni::torture {
namespace {

namespace fs = std::filesystem;
using disktest::Child;
using disktest::FaultsOf;
using disktest::FaultyDisk;
using disktest::SaveUntilItFails;
using Found = std::vector<std::string>;
using Chance = std::minstd_rand;

constexpr int kSaves = 4;

unsigned Below(Chance& chance, unsigned limit) {
  return static_cast<unsigned>(chance() % limit);
}

void SleepUpTo(Chance& chance, unsigned milliseconds) {
  std::this_thread::sleep_for(std::chrono::microseconds(Below(chance, milliseconds * 1000)));
}

std::string NewFile(const std::string& folder) {
  const std::string path = folder + "/lohn.db";
  disktest::MakeSavesFile(path);
  return path;
}

Found CutPower(const std::string& folder, Chance& chance) {
  const std::string path = NewFile(folder);
  FaultyDisk disk;
  disk.CutAt(1 + Below(chance, 160));
  const auto acknowledged = SaveUntilItFails(path, kSaves);
  using enum FaultyDisk::Unsynced;
  constexpr FaultyDisk::Unsynced kEach[] = {kLost, kKept, kByChance};
  disk.PowerCut(kEach[Below(chance, 3)], Below(chance, 1'000'000));
  return FaultsOf(path, acknowledged);
}

Found FailAnOperation(const std::string& folder, Chance& chance) {
  constexpr int kCodes[] = {SQLITE_IOERR, SQLITE_IOERR_WRITE, SQLITE_FULL, SQLITE_IOERR_FSYNC};
  const std::string path = NewFile(folder);
  FaultyDisk disk;
  disk.FailAt(1 + Below(chance, 160), kCodes[Below(chance, 4)]);
  auto acknowledged = SaveUntilItFails(path, kSaves);
  disk.FailAt(0, SQLITE_OK);
  acknowledged.push_back(disktest::Save(*sqlite::OpenDatabase(path)));
  return FaultsOf(path, acknowledged);
}

// A script of a Screen's saves, on a disk that fails at any moment.
Found SaveOnAScreen(const std::string& folder, Chance& chance) {
  using disktest::ScreenSaves;
  struct Script {
    const char *setup, *script;
  };
  static const std::vector<Script> kScripts = {{"disk/screens/demo.tvi", "disk/screens/wage.tvs"},
                                               {"disk/screens/demo.tvi", "disk/screens/position.tvs"},
                                               {"scripts/vouchers/vouchers.tvi", "disk/screens/voucher.tvs"},
                                               {"scripts/wage/journal.tvi", "disk/screens/journal.tvs"}};
  static std::map<unsigned, ScreenSaves> made;
  const unsigned which = Below(chance, static_cast<unsigned>(kScripts.size()));
  const auto [setup, script] = kScripts[which];
  const ScreenSaves& saves = made.try_emplace(which, folder, setup, script).first->second;
  constexpr ScreenSaves::Fault kFaults[] = {ScreenSaves::Fault::kPowerCut, ScreenSaves::Fault::kFullDisk,
                                            ScreenSaves::Fault::kBrokenDisk};
  using enum FaultyDisk::Unsynced;
  constexpr FaultyDisk::Unsynced kEach[] = {kLost, kKept, kByChance};
  const auto fault = kFaults[Below(chance, 3)];
  const auto unsynced = kEach[Below(chance, 3)];
  const auto at = 1 + Below(chance, static_cast<unsigned>(saves.Operations()));
  return saves.FaultsAfter(fault, at, unsynced, Below(chance, 1'000'000));
}

std::unique_ptr<Child> Saving(const std::string& path, int saves) {
  return std::make_unique<Child>([path, saves](const Child::Tell& tell) {
    const auto connection = sqlite::OpenDatabase(path, {.busy_timeout = std::chrono::seconds(60)});
    for (int i = 0; i < saves; ++i) tell(disktest::Save(*connection));
  });
}

Found KillPrograms(const std::string& folder, Chance& chance) {
  const std::string path = NewFile(folder);
  std::vector<std::unique_ptr<Child>> programs;
  for (unsigned i = 0; i <= Below(chance, 4); ++i) programs.push_back(Saving(path, 100'000));
  SleepUpTo(chance, 60);
  std::vector<long long> acknowledged;
  for (const auto& program : programs) program->Kill();
  for (const auto& program : programs) {
    for (const long long key : program->Told()) acknowledged.push_back(key);
  }
  return FaultsOf(path, acknowledged);
}

Found SaveSideBySide(const std::string& folder, Chance& chance) {
  constexpr int kSavesOfEach = 10;
  const std::string path = NewFile(folder);
  std::vector<std::unique_ptr<Child>> programs;
  const unsigned count = 2 + Below(chance, 7);
  for (unsigned i = 0; i < count; ++i) programs.push_back(Saving(path, kSavesOfEach));
  std::vector<long long> acknowledged;
  for (const auto& program : programs) {
    for (const long long key : program->Told()) acknowledged.push_back(key);
  }
  Found found = FaultsOf(path, acknowledged);
  if (std::set(acknowledged.begin(), acknowledged.end()).size() != acknowledged.size())
    found.emplace_back("a key was given twice");
  if (acknowledged.size() != count * kSavesOfEach)
    found.emplace_back("a save was refused though all can wait");
  return found;
}

Found KillBackups(const std::string& folder, Chance& chance) {
  const std::string path = NewFile(folder), copy = folder + "/sicherung.db";
  std::vector<long long> kept = {disktest::Save(*sqlite::OpenDatabase(path))};
  sqlite::Backup(*sqlite::OpenDatabase(path), copy);
  disktest::Save(*sqlite::OpenDatabase(path));
  Child backing_up([&](const Child::Tell&) {
    for (;;) sqlite::Backup(*sqlite::OpenDatabase(path), copy);
  });
  SleepUpTo(chance, 40);
  backing_up.Kill();
  backing_up.Wait();
  Found found = FaultsOf(copy, kept);
  sqlite::Backup(*sqlite::OpenDatabase(path), copy);
  const auto files = std::distance(fs::directory_iterator(folder), {});
  if (files != 2) found.push_back(std::to_string(files) + " files are left instead of 2");
  return found;
}

Found MakeOneFileTogether(const std::string& folder, Chance& chance) {
  const std::string target = folder + "/neu.db";
  std::vector<std::unique_ptr<Child>> programs;
  for (unsigned i = 0; i < 2 + Below(chance, 4); ++i) {
    programs.push_back(std::make_unique<Child>([&target](const Child::Tell& tell) {
      sqlite::PartialFile file(target);
      disktest::MakeSavesFile(file.Path());
      if (file.TakeFreeName()) tell(1);
    }));
  }
  std::size_t winners = 0;
  for (const auto& program : programs) winners += program->Told().size();
  Found found =
      winners == 1 ? FaultsOf(target, {}) : Found{std::to_string(winners) + " programs made the file"};
  if (std::distance(fs::directory_iterator(folder), {}) != 1)
    found.emplace_back("something is left beside the file");
  return found;
}

// Whatever stands in the file, reading it ends in rows or in an error, and never in a crash.
Found DamageAFile(const std::string& folder, Chance& chance) {
  const std::string path = NewFile(folder);
  SaveUntilItFails(path, kSaves);
  std::string bytes = dbtest::BytesOf(path);
  for (unsigned i = 0; i <= Below(chance, 30); ++i)
    bytes[Below(chance, static_cast<unsigned>(bytes.size()))] = static_cast<char>(Below(chance, 256));
  if (Below(chance, 4) == 0) bytes.resize(Below(chance, static_cast<unsigned>(bytes.size())));
  dbtest::WriteBytes(path, bytes);
  Child reader([&](const Child::Tell&) {
    const auto connection = sqlite::OpenDatabase(path);
    sqlite::CheckIntegrity(*connection);
    connection->Open("SELECT * FROM KOPF INNER JOIN ZEILE ON ZEILE.KOPF = KOPF.ID");
    disktest::Save(*connection);
  });
  return reader.Wait() ? Found() : Found{"reading a damaged file ends in a crash"};
}

std::string Mutated(std::string text, Chance& chance) {
  static const std::vector<std::string> kPieces = {"'",     "--", "(", ")",  ",",    " NULL ", " SELECT ",
                                                   "9e999", "/*", "]", "[",  "\xC3", "-1",     " FROM ",
                                                   "#t",    "\n", ";", "''", "*",    "0"};
  for (unsigned i = 0; i <= Below(chance, 4); ++i) {
    const std::size_t at = Below(chance, static_cast<unsigned>(text.size()) + 1);
    switch (Below(chance, 3)) {
      case 0:
        text.insert(at, kPieces[Below(chance, static_cast<unsigned>(kPieces.size()))]);
        break;
      case 1:
        text.erase(at, Below(chance, 9));
        break;
      default:
        text.insert(at,
                    text.substr(Below(chance, static_cast<unsigned>(text.size()) + 1), Below(chance, 40)));
    }
  }
  return text;
}

Found MutateStatements(const std::string&, Chance& chance) {
  static const std::vector<std::string> kSeeds = {
      "SET NOCOUNT ON CREATE TABLE #t (A INT, B NVARCHAR(9)) INSERT INTO #t SELECT ID,T FROM ZEILE SELECT * "
      "FROM #t",
      "SELECT K.ID,COUNT(*) AS N,SUM(Z.ID*1.5) FROM KOPF K LEFT JOIN ZEILE Z ON Z.KOPF = K.ID GROUP BY K.ID "
      "HAVING "
      "COUNT(*) > 1 ORDER BY N DESC",
      "IF EXISTS(SELECT ID FROM KOPF WHERE NUMMER = 7) SELECT 1 ELSE BEGIN UPDATE KOPF SET NUMMER = 7 SELECT "
      "0 END",
      "SELECT CASE WHEN T LIKE 'x[a-z]%' THEN CAST(ROUND(ID/3.0,2) AS NVARCHAR(20)) ELSE ISNULL(T,'') END "
      "FROM ZEILE",
      "INSERT INTO KOPF (NUMMER) SELECT ISNULL((SELECT MAX(NUMMER) FROM KOPF),0)+1 SELECT "
      "IDENT_CURRENT('KOPF')"};
  Child sender([&chance](const Child::Tell&) {
    const auto connection = sqlite::OpenDatabase(":memory:");
    connection->Execute(
        "CREATE TABLE KOPF (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, NUMMER INT NOT NULL)\n"
        "CREATE TABLE ZEILE (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, KOPF INT NOT NULL, T NVARCHAR(900))");
    for (int i = 0; i < 400; ++i) {
      try {
        connection->Open(Sql(Mutated(kSeeds[Below(chance, static_cast<unsigned>(kSeeds.size()))], chance)));
      } catch (const DatabaseError&) {  // most are none any more
      }
    }
  });
  const bool sound = sender.Wait();
  chance.discard(1);  // the child drew from a copy
  return sound ? Found() : Found{"a mutated statement ends in a crash"};
}

}  // namespace

const std::vector<Attack>& Attacks() {
  static const std::vector<Attack> attacks = {
      {"power cut during saves", CutPower},
      {"file operation fails", FailAnOperation},
      {"disk fails while a Screen saves", SaveOnAScreen},
      {"programs killed while they save", KillPrograms},
      {"programs save side by side", SaveSideBySide},
      {"backup killed", KillBackups},
      {"programs make one file together", MakeOneFileTogether},
      {"file damaged", DamageAFile},
      {"400 statements mutated", MutateStatements},
  };
  return attacks;
}

}  // namespace tarvoni::torture

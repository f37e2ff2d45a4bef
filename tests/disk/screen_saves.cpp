#include "tests/disk/screen_saves.h"

#include <filesystem>
#include <stdexcept>
#include <utility>

#include "host/open_database.h"
#include "host/script/script_hooks.h"
#include "host/script/script_stage.h"
#include "platform/script/public/script_player.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/entry/screen_runs.h"
#include "suite/tarvoni_suite.h"
#include "tests/support/file_bytes.h"

namespace tarvoni::disktest {
namespace {

using dbtest::BytesOf;
using dbtest::WriteBytes;

// What failed, empty if nothing did. Nothing is open afterwards.
std::string PlayScript(const std::string& script, const std::string& database) {
  const auto stage = host::MakeHeadlessStage();
  TarvoniSuite suite;
  Environment environment{
      .toolkit = &stage->ItsToolkit(), .suite = &suite, .connect = [](const std::string& name) {
        return host::OpenDatabase(name, host::OpenMode::kCreate);
      }};
  ScriptPlayer player(environment, stage->ItsDriver(), host::MakeScriptHooks(), {.database = database});
  stage->SetPartner(&player);
  std::string failure;
  try {
    player.Play(Script::Load(TESTS_FOLDER + script));
  } catch (const ScriptFailure& line) {
    failure = line.Text();
  }
  ForgetScreens();
  return failure;
}

std::vector<std::string> Damages(const std::string& path) {
  try {
    return sqlite::CheckIntegrity(*sqlite::OpenDatabase(path));
  } catch (const DatabaseError& error) {
    return {error.what()};
  }
}

}  // namespace

ScreenSaves::ScreenSaves(const std::string& folder, const std::string& setup, std::string script)
    : path_(folder + "/lohn.db"), script_(std::move(script)) {
  std::filesystem::create_directories(folder);
  std::string failure = PlayScript(setup, path_);
  if (failure.empty()) {
    states_ = {BytesOf(path_)};
    FaultyDisk disk;
    failure = Play(disk, states_);
    operations_ = disk.Operations();
  }
  if (!failure.empty()) throw std::runtime_error(failure);
}

std::string ScreenSaves::Play(FaultyDisk& disk, std::vector<std::string>& states) const {
  disk.OnCommit([&] {
    std::string state = BytesOf(path_);
    if (state != states.back()) states.push_back(std::move(state));
  });
  return PlayScript(script_, path_);
}

std::vector<std::string> ScreenSaves::FaultsAfter(Fault fault, long n, FaultyDisk::Unsynced unsynced,
                                                  unsigned seed) const {
  WriteBytes(path_, states_.front());
  std::vector<std::string> acknowledged = {states_.front()};
  FaultyDisk disk;
  if (fault == Fault::kPowerCut) disk.CutAt(n);
  if (fault == Fault::kFullDisk) disk.FailAt(n, SQLITE_FULL);
  if (fault == Fault::kBrokenDisk) disk.FailAt(n, SQLITE_IOERR_WRITE);
  Play(disk, acknowledged);
  if (fault == Fault::kPowerCut) disk.PowerCut(unsynced, seed);
  auto found = Damages(path_);
  const std::string left = BytesOf(path_);
  const std::size_t last = acknowledged.size() - 1;
  if (last >= states_.size() || acknowledged.back() != states_[last])
    found.push_back("save " + std::to_string(last) + " is another one than without the fault");
  else if (left != states_[last] && (last + 1 == states_.size() || left != states_[last + 1]))
    found.push_back("what is left behind save " + std::to_string(last) + " is no whole save");
  return found;
}

}  // namespace tarvoni::disktest

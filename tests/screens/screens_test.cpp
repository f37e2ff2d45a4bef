#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/desktop/desktop_stage.h"
#include "host/open_database.h"
#include "host/script/script_hooks.h"
#include "host/script/script_stage.h"
#include "platform/script/public/script_player.h"
#include "suite/tarvoni_suite.h"
#include "tests/screens/f_probe.h"

#include SCREENS_EXAMPLE  // the Screen of docs/screens.md

namespace tarvoni {
namespace {

ScriptHooks::Values RunHere(const std::string& screen, const ScriptHooks::Values& arguments,
                            TvnVar_Dll& context) {
  static test::RecentUnit recent_unit;
  AnswerTo<test::UnitQuestion>() = &recent_unit;
  if (screen == "F_Einheit") F_Einheit().Run(context);
  if (screen == "F_Probe") test::F_Probe().Run(context);
  return arguments;
}

class Screens : public testing::TestWithParam<std::tuple<const char*, bool>> {};

TEST_P(Screens, PlayTheirScripts) {
  const auto [script, desktop] = GetParam();
  const auto stage = desktop ? host::MakeDesktopStage(SHOTS_FOLDER) : host::MakeHeadlessStage();
  TarvoniSuite suite;
  Environment environment{
      .toolkit = &stage->ItsToolkit(), .suite = &suite, .connect = [](const std::string& database) {
        return host::OpenDatabase(database, host::OpenMode::kCreate);
      }};
  ScriptHooks hooks = host::MakeScriptHooks();
  hooks.run = RunHere;
  ScriptPlayer player(environment, stage->ItsDriver(), hooks);
  stage->SetPartner(&player);
  try {
    player.Play(Script::Load(std::string(SCRIPTS) + script));
  } catch (const ScriptFailure& failure) {
    FAIL() << failure.Text();
  }
}

INSTANTIATE_TEST_SUITE_P(Kit, Screens,
                         testing::Combine(testing::Values("example.tvs", "probe.tvs"), testing::Bool()));

}  // namespace
}  // namespace tarvoni

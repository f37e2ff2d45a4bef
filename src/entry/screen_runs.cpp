#include "src/entry/screen_runs.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "src/context/values/call_error.h"
#include "src/entry/slot_call.h"
#include "src/machines/f_kostenart.h"
#include "src/machines/f_maschine_stamm.h"
#include "src/machines/f_maschinenbuch.h"
#include "src/stores/f_positionen.h"
#include "src/wage/f_ara.h"
#include "src/wage/f_arbeitnehmer.h"

namespace tarvoni {
namespace {

using enum ParameterKind;

struct ScreenRun {
  std::string screen;
  std::vector<Parameter> parameters;
  std::function<void(const TvnVar_Dll&, Arguments&)> run;
};

template <typename ScreenType>
std::function<void(const TvnVar_Dll&, Arguments&)> RunOf(void (*run)(ScreenType&, const TvnVar_Dll&,
                                                                     Arguments&)) {
  return [run](const TvnVar_Dll& tvnvar, Arguments& arguments) {
    CallThroughSlot<ScreenType>([&](ScreenType& screen) { run(screen, tvnvar, arguments); });
  };
}

const std::vector<ScreenRun>& ScreenRuns() {
  static const std::vector<ScreenRun> runs = {
      {"F_ARA",
       {{"strPersonal_dll", kText}, {"mode_dll", kByte}},
       RunOf<F_ARA>([](F_ARA& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Text("strPersonal_dll"), arguments.Byte("mode_dll"));
       })},
      {"F_Arbeitnehmer",
       {{"curAraId", kLong}},
       RunOf<F_Arbeitnehmer>([](F_Arbeitnehmer& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Long("curAraId"));
       })},
      {"F_Kostenart",
       {{"strParam", kText}},
       RunOf<F_Kostenart>([](F_Kostenart& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Text("strParam"));
       })},
      {"F_Positionen",
       {{"intPersonal", kLong}, {"Lager_ID", kLong}, {"mode_dll", kByte}},
       RunOf<F_Positionen>([](F_Positionen& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Long("intPersonal"), arguments.Long("Lager_ID"),
                    arguments.Byte("mode_dll"));
       })},
      {"F_MaschineStamm",
       {},
       RunOf<F_MaschineStamm>(
           [](F_MaschineStamm& screen, const TvnVar_Dll& tvnvar, Arguments&) { screen.Run(tvnvar); })},
      {"F_Maschinenbuch",
       {{"intNummer_dll", kLong}, {"bolNew", kBoolean}},
       RunOf<F_Maschinenbuch>([](F_Maschinenbuch& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(arguments.Long("intNummer_dll"), arguments.Boolean("bolNew"), tvnvar);
       })},
  };
  return runs;
}

}  // namespace

Arguments::Values RunScreen(const std::string& screen, const Arguments::Values& arguments,
                            const TvnVar_Dll& tvnvar) {
  const auto found = std::ranges::find(ScreenRuns(), screen, &ScreenRun::screen);
  if (found == ScreenRuns().end()) throw CallError("Den Bildschirm " + screen + " gibt es nicht.");
  Arguments given(found->parameters, arguments);
  found->run(tvnvar, given);
  return given.Results();
}

void ForgetScreens() {
  ClearSlots();
}

}  // namespace tarvoni

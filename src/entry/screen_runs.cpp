#include "src/entry/screen_runs.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "src/context/values/call_error.h"
#include "src/context/values/number_text.h"
#include "src/entry/slot_call.h"
#include "src/machines/f_kostenart.h"
#include "src/machines/f_maschine_stamm.h"
#include "src/machines/f_maschinenbuch.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_liste_select.h"
#include "src/orders/f_new_arbeitsauftrag.h"
#include "src/orders/f_new_rechnung.h"
#include "src/orders/f_pa_gruppe.h"
#include "src/piecework/f_est_stucklohn.h"
#include "src/piecework/f_naturalvollzug.h"
#include "src/piecework/f_sonst_stucklohn.h"
#include "src/piecework/f_zeilohn.h"
#include "src/stores/f_positionen.h"
#include "src/vouchers/f_belege_new.h"
#include "src/wage/f_ara.h"
#include "src/wage/f_arbeitnehmer.h"
#include "src/wage/f_bruttolohn.h"

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
      {"F_Arbeitsauftrag",
       {{"idPersonal_dll", kText}, {"ID", kLong}, {"Plan_dll", kBoolean}},
       RunOf<F_Arbeitsauftrag>([](F_Arbeitsauftrag& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Text("idPersonal_dll"), arguments.Long("ID"),
                    arguments.Boolean("Plan_dll"));
       })},
      {"F_Belege_New",
       {{"strPersonal_dll", kText}, {"mode_dll", kByte}},
       RunOf<F_Belege_New>([](F_Belege_New& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Text("strPersonal_dll"), arguments.Byte("mode_dll"));
       })},
      {"F_Bruttolohn",
       {{"Id_StundenBuch", kLong}},
       RunOf<F_Bruttolohn>([](F_Bruttolohn& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Long("Id_StundenBuch"));
       })},
      {"F_EST_Stucklohn",
       {{"ID_Mandant_dll", kLong}, {"ID_ARA_Kopf_dll", kLong}},
       RunOf<F_EST_Stucklohn>([](F_EST_Stucklohn& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Long("ID_Mandant_dll"), arguments.Long("ID_ARA_Kopf_dll"));
       })},
      {"F_Kostenart",
       {{"strParam", kText}},
       RunOf<F_Kostenart>([](F_Kostenart& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Text("strParam"));
       })},
      {"F_ListeSelect",
       {{"strSQLAll", kText}, {"strSQLSel", kText}},
       RunOf<F_ListeSelect>([](F_ListeSelect& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.strSQLAll = SqlText::Verbatim(arguments.Text("strSQLAll"));
         screen.strSQLSel = SqlText::Verbatim(arguments.Text("strSQLSel"));
         screen.Run(tvnvar);
         arguments.Give("SelectListe", screen.SelectListe);
         arguments.Give("SelectListeDelete", screen.SelectListeDelete);
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
      {"F_Naturalvollzug",
       {{"strConString_dll", kText},
        {"bolOnlyRead_dll", kBoolean},
        {"ID_ARBEITSAUFTRAG_DLL", kLong},
        {"intLeistungsart_Dll", kLong}},
       RunOf<F_Naturalvollzug>([](F_Naturalvollzug& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Text("strConString_dll"), arguments.Boolean("bolOnlyRead_dll"),
                    arguments.Long("ID_ARBEITSAUFTRAG_DLL"), ToInt16(arguments.Long("intLeistungsart_Dll")));
       })},
      {"F_NewArbeitsauftrag",
       {{"curPersonal", kLong}},
       RunOf<F_NewArbeitsauftrag>(
           [](F_NewArbeitsauftrag& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
             std::int32_t header = 0, cost_centre = 0;
             screen.Run(arguments.Long("curPersonal"), header, cost_centre, tvnvar);
             arguments.Give("header", header);
             arguments.Give("cost_centre", cost_centre);
           })},
      {"F_NewRechnung",
       {{"RechName", kText, true}, {"intPersonal", kLong}, {"oldRechName", kText}},
       RunOf<F_NewRechnung>([](F_NewRechnung& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Reference("RechName"), arguments.Long("intPersonal"),
                    arguments.Text("oldRechName"));
       })},
      {"F_PA_Gruppe",
       {{"Id_PA_Gruppe", kLong}, {"ID_Mandant", kLong}},
       RunOf<F_PA_Gruppe>([](F_PA_Gruppe& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(arguments.Long("Id_PA_Gruppe"), arguments.Long("ID_Mandant"), tvnvar);
       })},
      {"F_Positionen",
       {{"intPersonal", kLong}, {"Lager_ID", kLong}, {"mode_dll", kByte}},
       RunOf<F_Positionen>([](F_Positionen& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Long("intPersonal"), arguments.Long("Lager_ID"),
                    arguments.Byte("mode_dll"));
       })},
      {"F_Sonst_Stucklohn",
       {{"ID_Mandant_dll", kLong}, {"ID_ARA_Kopf_dll", kLong}},
       RunOf<F_Sonst_Stucklohn>(
           [](F_Sonst_Stucklohn& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
             screen.Run(tvnvar, arguments.Long("ID_Mandant_dll"), arguments.Long("ID_ARA_Kopf_dll"));
           })},
      {"F_Zeilohn",
       {{"ID_Mandant_dll", kLong}, {"ID_ARA_Kopf_dll", kLong}},
       RunOf<F_Zeilohn>([](F_Zeilohn& screen, const TvnVar_Dll& tvnvar, Arguments& arguments) {
         screen.Run(tvnvar, arguments.Long("ID_Mandant_dll"), arguments.Long("ID_ARA_Kopf_dll"));
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

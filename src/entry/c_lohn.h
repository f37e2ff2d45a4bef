#pragma once

#include <string>

#include "src/context/data/handler_scope.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/entry/call.h"
#include "src/entry/object.h"
#include "src/entry/slot_call.h"

namespace tarvoni {

// The class c_Lohn on a list of Screens (screens.h). A method uses its Screen's slot, calls the Screen and clears
// the slot; after a failure the instance stays there, and the next call uses it again.
template <typename Screens>
class c_Lohn final : public Object<_c_Lohn, kInterface_c_Lohn> {
 public:
  Result ARA(const TvnVar_Dll& tvnvar, std::string strPersonal_dll, std::uint8_t mode_dll) override {
    return Call<typename Screens::F_ARA>(
        "F_ARA", tvnvar, [&](auto& screen) { screen.Run(tvnvar, strPersonal_dll, mode_dll); });
  }

  Result Maschinenbuch(std::int32_t intNummer_dll, bool bolNew, const TvnVar_Dll& tvnvar) override {
    return Call<typename Screens::F_Maschinenbuch>(
        "F_Maschinenbuch", tvnvar, [&](auto& screen) { screen.Run(intNummer_dll, bolNew, tvnvar); });
  }

  Result MaschineStamm(const TvnVar_Dll& tvnvar) override {
    return Call<typename Screens::F_MaschineStamm>("F_MaschineStamm", tvnvar,
                                                   [&](auto& screen) { screen.Run(tvnvar); });
  }

  // The Screen may change ID_Mandant; the host keeps its own.
  Result PA_Gruppe(std::int32_t Id_PA_Gruppe, std::int32_t ID_Mandant, const TvnVar_Dll& tvnvar) override {
    return Call<typename Screens::F_PA_Gruppe>(
        "F_PA_Gruppe", tvnvar, [&](auto& screen) { screen.Run(Id_PA_Gruppe, ID_Mandant, tvnvar); });
  }

  Result BruttoLohn(const TvnVar_Dll& tvnvar, std::int32_t Id_StundenBuch) override {
    return Call<typename Screens::F_Bruttolohn>("F_Bruttolohn", tvnvar,
                                                [&](auto& screen) { screen.Run(tvnvar, Id_StundenBuch); });
  }

  Result Lager(const TvnVar_Dll& tvnvar, std::string strPersonal_dll, std::uint8_t mode_dll,
               std::string& strSelektion_Fr_Wh_dll, std::string& strSelektionFormula_dll) override {
    return Call<typename Screens::F_Lager>(
        "F_Lager", tvnvar,
        [&](auto& screen) {
          screen.Run(tvnvar, strPersonal_dll, mode_dll, strSelektion_Fr_Wh_dll, strSelektionFormula_dll);
        },
        [] { UnloadDefault<typename Screens::F_Lager>(); });
  }

  // It is the stores Screen that this unloads, and whose slot keeps its instance.
  Result Belege(const TvnVar_Dll& tvnvar, std::string strPersonal_dll, std::uint8_t mode_dll) override {
    return Call<typename Screens::F_Belege_New>(
        "F_Belege_New", tvnvar, [&](auto& screen) { screen.Run(tvnvar, strPersonal_dll, mode_dll); },
        [] { UnloadDefault<typename Screens::F_Lager>(); });
  }

  Result Arbeitsauftrag(const TvnVar_Dll& tvnvar, std::string idPersonal_dll, std::int32_t ID,
                        bool Plan_dll) override {
    return Call<typename Screens::F_Arbeitsauftrag>(
        "F_Arbeitsauftrag", tvnvar, [&](auto& screen) { screen.Run(tvnvar, idPersonal_dll, ID, Plan_dll); },
        [] { UnloadDefault<typename Screens::F_Arbeitsauftrag>(); });
  }

  Result PA_Gruppe_Delete(std::int32_t ID_Item_dll, const TvnVar_Dll& tvnvar) override {
    return Call<typename Screens::F_PA_Gruppe>("F_PA_Gruppe", tvnvar,
                                               [&](auto& screen) { screen.Delete(ID_Item_dll, tvnvar); });
  }

  // The Screen may change intPersonal; the host keeps its own.
  Result NewRechnung(const TvnVar_Dll& tvnvar, std::string& RechName, std::int32_t intPersonal,
                     std::string oldRechName) override {
    return Call<typename Screens::F_NewRechnung>("F_NewRechnung", tvnvar, [&](auto& screen) {
      screen.Run(tvnvar, RechName, intPersonal, oldRechName);
    });
  }

 private:
  template <typename ScreenType, typename Work, typename After = Nothing>
  static Result Call(const char* screen, const TvnVar_Dll& tvnvar, const Work& work,
                     const After& after = {}) {
    return RunCall(screen, "_c_Lohn", [&] {
      HandlerScope running(tvnvar.dbAdo.get());
      CallThroughSlot<ScreenType>(work, after);
      running.Finish();
    });
  }

  // Makes the instance if there is none, so that the unload always has a target.
  template <typename ScreenType>
  static void UnloadDefault() {
    Slot<ScreenType>::Use()->Unload();
  }
};

}  // namespace tarvoni

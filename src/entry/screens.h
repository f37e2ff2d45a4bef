#pragma once

#include "src/entry/c_lohn.h"
#include "src/machines/f_maschine_stamm.h"
#include "src/machines/f_maschinenbuch.h"
#include "src/stores/f_lager.h"
#include "src/wage/f_ara.h"

namespace tarvoni {

// The Screens behind the methods of c_Lohn, a line each.
struct Screens {
  using F_ARA = tarvoni::F_ARA;
  using F_Arbeitsauftrag = NotBuilt;
  using F_Belege_New = NotBuilt;
  using F_Bruttolohn = NotBuilt;
  using F_Lager = tarvoni::F_Lager;
  using F_MaschineStamm = tarvoni::F_MaschineStamm;
  using F_Maschinenbuch = tarvoni::F_Maschinenbuch;
  using F_NewRechnung = NotBuilt;
  using F_PA_Gruppe = NotBuilt;
};

template <typename ScreenType>
inline constexpr bool kIsBuilt = !std::is_same_v<ScreenType, NotBuilt>;

}  // namespace tarvoni

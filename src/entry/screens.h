#pragma once

#include "src/entry/c_lohn.h"
#include "src/machines/f_maschine_stamm.h"
#include "src/machines/f_maschinenbuch.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_new_rechnung.h"
#include "src/orders/f_pa_gruppe.h"
#include "src/stores/f_lager.h"
#include "src/wage/f_ara.h"
#include "src/wage/f_bruttolohn.h"

namespace tarvoni {

// The Screens behind the methods of c_Lohn, a line each.
struct Screens {
  using F_ARA = tarvoni::F_ARA;
  using F_Arbeitsauftrag = tarvoni::F_Arbeitsauftrag;
  using F_Belege_New = NotBuilt;
  using F_Bruttolohn = tarvoni::F_Bruttolohn;
  using F_Lager = tarvoni::F_Lager;
  using F_MaschineStamm = tarvoni::F_MaschineStamm;
  using F_Maschinenbuch = tarvoni::F_Maschinenbuch;
  using F_NewRechnung = tarvoni::F_NewRechnung;
  using F_PA_Gruppe = tarvoni::F_PA_Gruppe;
};

template <typename ScreenType>
inline constexpr bool kIsBuilt = !std::is_same_v<ScreenType, NotBuilt>;

}  // namespace tarvoni

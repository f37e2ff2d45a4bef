#pragma once

#include "src/machines/f_maschine_stamm.h"
#include "src/machines/f_maschinenbuch.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_new_rechnung.h"
#include "src/orders/f_pa_gruppe.h"
#include "src/stores/f_lager.h"
#include "src/vouchers/f_belege_new.h"
#include "src/wage/f_ara.h"
#include "src/wage/f_bruttolohn.h"

namespace tarvoni {

// The Screens behind the methods of c_Lohn, a line each.
struct Screens {
  using F_ARA = tarvoni::F_ARA;
  using F_Arbeitsauftrag = tarvoni::F_Arbeitsauftrag;
  using F_Belege_New = tarvoni::F_Belege_New;
  using F_Bruttolohn = tarvoni::F_Bruttolohn;
  using F_Lager = tarvoni::F_Lager;
  using F_MaschineStamm = tarvoni::F_MaschineStamm;
  using F_Maschinenbuch = tarvoni::F_Maschinenbuch;
  using F_NewRechnung = tarvoni::F_NewRechnung;
  using F_PA_Gruppe = tarvoni::F_PA_Gruppe;
};

}  // namespace tarvoni

#include <gtest/gtest.h>

#include "src/context/services/mnemonics.h"
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
#include "src/stores/f_lager.h"
#include "src/stores/f_positionen.h"
#include "src/vouchers/f_belege_new.h"
#include "src/wage/f_ara.h"
#include "src/wage/f_arbeitnehmer.h"
#include "src/wage/f_bruttolohn.h"

namespace tarvoni {
namespace {

template <typename ScreenType>
class Surface : public testing::Test {
 protected:
  Surface() { screen.Load(); }
  ScreenType screen;
};

using AllScreens = testing::Types<F_ARA, F_Arbeitnehmer, F_Bruttolohn, F_Zeilohn, F_EST_Stucklohn,
                                  F_Sonst_Stucklohn, F_Naturalvollzug, F_Arbeitsauftrag, F_NewArbeitsauftrag,
                                  F_NewRechnung, F_ListeSelect, F_PA_Gruppe, F_Belege_New, F_Lager,
                                  F_Positionen, F_Kostenart, F_MaschineStamm, F_Maschinenbuch>;
TYPED_TEST_SUITE(Surface, AllScreens);

// Two controls never share a letter: that is how letters are dealt.
TYPED_TEST(Surface, EveryButtonBoxAndTabIsReachedByALetter) {
  const auto letters = MnemonicsOf(this->screen);
  for (const Control* control : this->screen.Controls()) {
    const bool pressed = dynamic_cast<const Button*>(control) || dynamic_cast<const CheckBox*>(control) ||
                         dynamic_cast<const OptionButton*>(control) || dynamic_cast<const TabPage*>(control);
    EXPECT_TRUE(!pressed || letters.contains(control)) << control->FullName();
  }
}

}  // namespace
}  // namespace tarvoni

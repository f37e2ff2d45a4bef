#include "src/orders/f_new_rechnung.h"

namespace tarvoni {

layout::Node F_NewRechnung::BuildLayout() {
  using namespace layout;
  SetCaption("Neue Rechnung");
  return Stack(Group(frmRechnung, "Rechnung", Row(lblFWJ, "FWJ", Shown(txtFWJ, 6)),
                     Row(lblMandant, "FB", Box(txtMandant, 8)),
                     Row(lblKategorie, "Kategorie", Box(txtKategorie[0], 8), Shown(txtKategorie[1], 36))),
               Bar(Gap(), Push(cmdOK, "OK", Command::kSave), Push(cmdCancel, "Abbrechen", Command::kCancel)));
}

}  // namespace tarvoni

#include "src/orders/f_new_arbeitsauftrag.h"

namespace tarvoni {

layout::Node F_NewArbeitsauftrag::BuildLayout() {
  using namespace layout;
  SetCaption("Neuer Arbeitsauftrag");
  return Stack(Group(frmNummer, "Auftragsnummer", Row(lblMandant, "FB", Shown(txtMandant, 16)),
                     Row(lblFWJ, "FWJ", Shown(txtFWJ, 16)),
                     Row(lblPA_Gruppe, "PA-Gruppe", Box(txtPA_Gruppe[0], 16), Shown(txtPA_Gruppe[1], 36)),
                     Row(lblProdukt, "Produkt", Box(txtProdukt[0], 16), Shown(txtProdukt[1], 36)),
                     Row(lblSondermerkmal, "Sondermerkmal", Box(txtSondermerkmal[0], 16),
                         Shown(txtSondermerkmal[1], 36)),
                     Row(lblKostenstelle, "Revier", Box(txtKostenstelle[0], 16)),
                     Row(lblNummer, "Nummer", Box(txtNummer, 16)),
                     Row(lblBeschreibung, "Beschreibung", Box(txtBeschreibung))),
               Bar(Gap(), Push(cmdOK, "OK", Command::kSave), Push(cmdCancel, "Abbrechen", Command::kCancel)));
}

}  // namespace tarvoni

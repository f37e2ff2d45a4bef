#include "src/orders/f_pa_gruppe.h"

namespace tarvoni {

layout::Node F_PA_Gruppe::BuildLayout() {
  using namespace layout;
  SetCaption("PA-Gruppe");
  return Stack(
      Group(frmGruppe, "Gruppe", Row(lblPA_Gruppe, "PA-Gruppe", Shown(txtPA_Gruppe, 20)),
            Row(lblMandant, "Mandant", Shown(txtMandant[0], 8), Shown(txtMandant[1], 40)),
            Row(lblProdukt, "Produkt", Box(txtProdukt[0], 8), Shown(txtProdukt[1], 40)),
            Row(lblKategorie, "Kategorie", Box(txtKategorie[0], 8), Shown(txtKategorie[1], 40)),
            Row(lblFWJ, "FWJ", Box(txtFWJ, 8)), Row(lblPA_Nummer, "PA-Nummer", Box(txtPA_Nummer, 8))),
      Group(frmBeschreibung, "Beschreibung", Lines(txtBeschreibung, 6)),
      Bar(Push(btnBearbeiten, "Bearbeiten", Command::kEdit), Push(btnSpeichern, "Speichern", Command::kSave),
          Push(btnAbbrechen, "Bearb. abbr.", Command::kCancel), Gap(),
          Push(btnClose, "Schließen", Command::kClose)));
}

}  // namespace tarvoni

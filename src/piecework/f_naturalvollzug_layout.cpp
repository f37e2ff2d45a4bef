#include "src/piecework/f_naturalvollzug.h"

namespace tarvoni {

layout::Node F_Naturalvollzug::BuildLayout() {
  using namespace layout;
  SetCaption("Naturalvollzug");
  NaturalEntry& n = natural_;
  return Stack(
      Group(
          frmNaturallvollzug, "Naturalvollzug",
          Row(n.lblNutzungsart, "Nutzungsart", Box(n.txtNutzungsart[0], 8), Shown(n.txtNutzungsart[1])),
          Row(n.lblBestandeszieltyp, "Bestandeszieltyp", Box(n.txtBestandeszieltyp[0], 8),
              Shown(n.txtBestandeszieltyp[1])),
          Matrix({"", "Bundesland", "Landesstelle", "Herkunftsgebiet", "Lfd. Nr.", "Kategorie", "Bemerkung"},
                 Row(n.lblHerkunft, "Herkunft", Box(n.txtBundesland, 9), Box(n.txtLandesstelle, 9),
                     Box(n.txtBaum_Herk, 12), Box(n.txtLFD_Nummer, 6), Box(n.txtKategorie, 8),
                     Box(n.txtHerkunft))),
          Row(n.lblAstungshohe, "Asungshohe", Box(n.txtAstungshohe, 8), Check(n.chkZaunbau, "Zaunbau"),
              Gap())),
      Group(frmWaldort, "Waldort",
            Row(n.lblWaldort, "Waldort", List(n.ListWaldort, 5, 50),
                Stack(Push(n.btnWaldortEinfugen, "Add"), Push(n.btnWaldortLoschen, "Delete")), Gap())),
      Bar(Push(btnBearbeiten, "Bearbeiten", Command::kEdit), Push(btnSpeichern, "Speichern", Command::kSave),
          Push(btnAbbrechen, "btnAbbrechen", Command::kCancel), Gap(),
          Push(btnClose, "Schließen", Command::kClose)));
}

}  // namespace tarvoni

#include "src/piecework/wage_lines.h"

namespace tarvoni {

layout::Node WageLines::NaturalGroup() {
  using namespace layout;
  NaturalEntry& n = natural_;
  return Group(
      frmNaturalvollzug, "Naturalvollzug",
      Side(Stack(Row(n.lblNutzungsart, "Vollzugsmerkm", Box(n.txtNutzungsart[0], 8),
                     Shown(n.txtNutzungsart[1], 13), Text(n.lblAstungshohe, "Astungshöhe"),
                     Box(n.txtAstungshohe, 7)),
                 Row(n.lblBestandeszieltyp, "Bestandeszieltyp", Box(n.txtBestandeszieltyp[0], 8),
                     Shown(n.txtBestandeszieltyp[1]), Check(n.chkZaunbau, "Zaunbau"))),
           Stack(Row(n.lblWaldort, "Waldort", List(n.ListWaldort, 4, 27),
                     Stack(Push(n.btnWaldortEinfugen, "Einfügen"), Push(n.btnWaldortLoschen, "Löschen"))))),
      Matrix(
          {"", "Bundesland", "Landesstelle", "Herkunftsgebiet", "Lfd. Nr.", "Kategorie", "Bemerkung"},
          Row(n.lblHerkunft, "Herkunft", Box(n.txtBundesland, 9), Box(n.txtLandesstelle, 9),
              Box(n.txtBaum_Herk, 12), Box(n.txtLFD_Nummer, 6), Box(n.txtKategorie, 8), Box(n.txtHerkunft))));
}

layout::Node WageLines::ButtonBar() {
  using namespace layout;
  return Bar(
      Push(btnNeu, "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
      Push(btnSpeichern, "Speichern", Command::kSave), Push(btnAbbrechen, "Bearb. abbr.", Command::kCancel),
      Push(btnLoschen, "Löschen", Command::kDelete), Gap(), Push(btnClose, "Schließen", Command::kClose));
}

}  // namespace tarvoni

#include "src/piecework/f_zeilohn.h"

namespace tarvoni {

layout::Node F_Zeilohn::BuildLayout() {
  using namespace layout;
  return Stack(
      Side(Group(frmKennzeichen, "Kennzeichen",
                 Row(lblZuchslagA, "Prozentsatz MZ", Box(txtZuchslagA, 8), Text(lblPercent, "%"), Gap()),
                 Row("", Check(chkWerkzeuggeld, "Werkzeuggeld"), Check(chkARAUntypisch, "ARA untypisch"),
                     Gap())),
           Group(frmErfassung, "Erfassung",
                 Row(lblHolzart, "Holzart", Box(txtHolzart[0], 8), Shown(txtHolzart[1])),
                 Row(lblFlache, "Fläche", Box(txtFlache, 10), Text(lblMengeKLR, "Menge KLR"),
                     Box(txtMenge, 10), Shown(txtMengeeinheit[0], 6), Shown(txtMengeeinheit[1])))),
      NaturalGroup(),
      Group(frmZuordnung, "Zuordnung der HABs",
            Row("", Stack(Text(lblAll, "Freie Listen"), List(listeAll, 5, 30)),
                Stack(Text(""), Push(cmdAddSel, "Zuordnen"), Push(cmdDelSel, "Freigeben"),
                      Push(cmdAddAll, "Alle zuordnen"), Push(cmdDelAll, "Alle freigeben")),
                Stack(Text(lblSel, "Zugeordnete Listen"), List(listeSel, 5, 30)), Gap())),
      Table(DataGridLines), ButtonBar(), Hidden({&AdodcLines}));
}

}  // namespace tarvoni

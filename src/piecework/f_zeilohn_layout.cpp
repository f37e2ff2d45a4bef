#include "src/piecework/f_zeilohn.h"

namespace tarvoni {

layout::Node F_Zeilohn::BuildLayout() {
  using namespace layout;
  constexpr int kLists = 15, kListRows = 6;
  return Stack(
      Side(Stack(Group(frmKennzeichen, "Kennzeichen",
                       Row(lblZuchslagA, "Prozentsatz MZ", Box(txtZuchslagA, 8), Text(lblPercent, "%"),
                           Check(chkWerkzeuggeld, "Werkzeuggeld"), Check(chkARAUntypisch, "ARA untypisch"),
                           Gap())),
                 Group(frmErfassung, "Erfassung",
                       Row(lblHolzart, "Holzart", Box(txtHolzart[0], 8), Shown(txtHolzart[1])),
                       Row(lblFlache, "Fläche", Box(txtFlache, 10), Text(lblMengeKLR, "Menge KLR"),
                           Box(txtMenge, 10), Shown(txtMengeeinheit[0], 5), Shown(txtMengeeinheit[1], 10)))),
           Group(frmZuordnung, "Zuordnung der HABs",
                 Side(Stack(Text(lblAll, "Frei"), List(listeAll, kListRows, kLists)),
                      Stack(Text(""), Push(cmdAddSel, "Zuordnen"), Push(cmdDelSel, "Freigeben"),
                            Push(cmdAddAll, "Alle zuordnen"), Push(cmdDelAll, "Alle freigeben")),
                      Stack(Text(lblSel, "Zugeordnet"), List(listeSel, kListRows, kLists))))),
      NaturalGroup(), Table(DataGridLines), ButtonBar(), Hidden({&AdodcLines}));
}

}  // namespace tarvoni

#include "src/orders/f_liste_select.h"

namespace tarvoni {

layout::Node F_ListeSelect::BuildLayout() {
  using namespace layout;
  constexpr int kLines = 18;
  SetCaption("Listen auswählen");
  return Stack(Group(Frame1, "Listen", Row(lblSuche, "Suchen im Angebot", Box(txtSuche)),
                     Side(Stack(Text(lblAll, "Angebot"), List(listeAll, kLines, 40)),
                          Stack(Text(lblSel, "Auswahl"), List(listeSel, kLines, 40)))),
               Bar(Push(cmdAdd, "Hinzufügen >"), Push(cmdDel, "< Entfernen"), Gap(),
                   Push(cmdOK, "OK", Command::kSave), Push(cmdCancel, "Abbrechen", Command::kCancel)));
}

}  // namespace tarvoni

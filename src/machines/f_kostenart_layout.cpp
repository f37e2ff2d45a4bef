#include "src/machines/f_kostenart.h"

namespace tarvoni {

layout::Node F_Kostenart::BuildLayout() {
  using namespace layout;
  SetCaption("Kostenart");
  return Stack(Group(Frame1, "", Table(DataGrid1, 10)),
               Bar(Push(btnNeu, "Neu", Command::kNew), Push(btnLoschen, "Löschen", Command::kDelete), Gap(),
                   Push(btnOk, "Schließen", Command::kClose)),
               Hidden({&Data1}));
}

}  // namespace tarvoni

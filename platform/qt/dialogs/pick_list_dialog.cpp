#include "platform/qt/dialogs/pick_list_dialog.h"

#include "platform/qt/dialogs/modal.h"
#include "platform/qt/public/pick_dialog.h"

namespace tarvoni::qt {

PickResult ShowPickList(QWidget* parent, const PickRequest& request, const Locale& locale) {
  constexpr PickDialog::Words kWords{
      .filter = "&Suchen:", .placeholder = "Anfang oder Teil eines Eintrags", .none = "Kein Eintrag passt."};
  Modal dialog(new PickDialog(parent, request, locale, kWords));
  return dialog.Run() ? dialog->Result() : PickResult{};
}

}  // namespace tarvoni::qt

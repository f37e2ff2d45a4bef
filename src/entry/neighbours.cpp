#include "src/entry/neighbours.h"

#include "src/common/contracts.h"
#include "src/common/m_common.h"
#include "src/common/slot.h"
#include "src/context/services/toolkit.h"
#include "src/orders/f_liste_select.h"
#include "src/orders/f_new_arbeitsauftrag.h"

namespace tarvoni {
namespace {

// Its Screen is still to come.
class TimeWageToCome final : public TimeWage {
  void Open(const TvnVar_Dll& /*context*/, std::int32_t /*client*/, std::int32_t /*order*/) override {
    AppMsgBox("Die Vorgaben für Zeitlohn sind noch nicht verfügbar.", kBoxInformation);
  }
};

class NewWorkOrderDialog final : public NewWorkOrder {
  Made Ask(const TvnVar_Dll& context, std::int32_t client) override {
    Made made;
    const auto dialog = Slot<F_NewArbeitsauftrag>::Use();
    dialog->Run(client, made.header, made.cost_centre, context);
    Slot<F_NewArbeitsauftrag>::Clear();
    return made;
  }
};

class ListSelectionDialog final : public ListSelection {
  Chosen Ask(const TvnVar_Dll& context, const SqlText& offered, const SqlText& selected) override {
    const auto dialog = Slot<F_ListeSelect>::Use();
    dialog->strSQLAll = offered;
    dialog->strSQLSel = selected;
    dialog->Run(context);
    Slot<F_ListeSelect>::Clear();
    return {.selected = dialog->SelectListe, .left = dialog->SelectListeDelete};
  }
};

}  // namespace

void AnswerNeighbours() {
  thread_local TimeWageToCome time_wage;
  AnswerTo<TimeWage>() = &time_wage;
  thread_local NewWorkOrderDialog new_work_order;
  AnswerTo<NewWorkOrder>() = &new_work_order;
  thread_local ListSelectionDialog list_selection;
  AnswerTo<ListSelection>() = &list_selection;
}

}  // namespace tarvoni

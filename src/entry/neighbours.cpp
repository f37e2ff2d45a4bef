#include "src/entry/neighbours.h"

#include "src/common/contracts.h"
#include "src/common/query.h"
#include "src/common/slot.h"
#include "src/common/voucher_document.h"
#include "src/entry/slot_call.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_liste_select.h"
#include "src/orders/f_new_arbeitsauftrag.h"
#include "src/piecework/f_naturalvollzug.h"
#include "src/piecework/f_zeilohn.h"
#include "src/vouchers/f_belege_new.h"

namespace tarvoni {
namespace {

class TimeWageAnswer final : public TimeWage {
  void Open(const TvnVar_Dll& context, std::int32_t client, std::int32_t order) override {
    CallThroughSlot<F_Zeilohn>([&](F_Zeilohn& screen) { screen.Run(context, client, order); });
  }
};

class NaturalExecutionAnswer final : public NaturalExecution {
  void Open(const TvnVar_Dll& context, bool read_only, std::int32_t position,
            std::int16_t activity) override {
    CallThroughSlot<F_Naturalvollzug>([&](F_Naturalvollzug& screen) {
      screen.Run(context, context.strConString, read_only, position, activity);
    });
  }
  bool IsKnownTo(const TvnVar_Dll& context, std::int16_t activity) override {
    return F_Naturalvollzug::EnableForm(activity, DbOf(context));
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

class WorkOrdersAnswer final : public WorkOrders {
  std::optional<std::int32_t> CurrentPosition() override {
    if (!Slot<F_Arbeitsauftrag>::Holds()) return std::nullopt;
    return Slot<F_Arbeitsauftrag>::Use()->CurrentPosition();
  }
};

class VouchersAnswer final : public Vouchers {
  void OpenOfCurrentPosition(const TvnVar_Dll& context, std::int32_t client) override {
    CallThroughSlot<F_Belege_New>([&](F_Belege_New& screen) {
      screen.Run(context, std::to_string(client), F_Belege_New::kOfCurrentPosition);
    });
  }
};

class VoucherDocumentAnswer final : public VoucherDocument {
  std::optional<std::int32_t> OfCurrentVoucher() override {
    if (!Slot<F_Belege_New>::Holds()) return std::nullopt;
    return Slot<F_Belege_New>::Use()->CurrentDocument();
  }
};

}  // namespace

void AnswerNeighbours() {
  thread_local TimeWageAnswer time_wage;
  thread_local NaturalExecutionAnswer natural_execution;
  AnswerTo<TimeWage>() = &time_wage;
  AnswerTo<NaturalExecution>() = &natural_execution;
  thread_local NewWorkOrderDialog new_work_order;
  AnswerTo<NewWorkOrder>() = &new_work_order;
  thread_local ListSelectionDialog list_selection;
  AnswerTo<ListSelection>() = &list_selection;
  thread_local WorkOrdersAnswer work_orders;
  AnswerTo<WorkOrders>() = &work_orders;
  thread_local VouchersAnswer vouchers;
  AnswerTo<Vouchers>() = &vouchers;
  thread_local VoucherDocumentAnswer voucher_document;
  AnswerTo<VoucherDocument>() = &voucher_document;
}

}  // namespace tarvoni

#include "src/entry/neighbours.h"

#include "src/common/contracts.h"
#include "src/common/m_common.h"
#include "src/common/slot.h"
#include "src/context/services/toolkit.h"
#include "src/orders/f_arbeitsauftrag.h"

namespace tarvoni {
namespace {

// Its Screen is still to come.
class TimeWageToCome final : public TimeWage {
  void Open(const TvnVar_Dll& /*context*/, std::int32_t /*client*/, std::int32_t /*order*/) override {
    AppMsgBox("Die Vorgaben für Zeitlohn sind noch nicht verfügbar.", kBoxInformation);
  }
};

class WorkOrdersAnswer final : public WorkOrders {
  std::optional<std::int32_t> CurrentPosition() override {
    if (!Slot<F_Arbeitsauftrag>::Holds()) return std::nullopt;
    return Slot<F_Arbeitsauftrag>::Use()->CurrentPosition();
  }
};

// Their Screen is still to come.
class VouchersToCome final : public Vouchers {
  void OpenOfCurrentPosition(const TvnVar_Dll& /*context*/, std::int32_t /*client*/) override {
    AppMsgBox("Die Belege sind noch nicht verfügbar.", kBoxInformation);
  }
};

// Its Screen is still to come; until then no position has one.
class NaturalExecutionToCome final : public NaturalExecution {
  void Open(const TvnVar_Dll& /*context*/, bool /*read_only*/, std::int32_t /*position*/,
            std::int16_t /*activity*/) override {
    AppMsgBox("Der Naturalvollzug ist noch nicht verfügbar.", kBoxInformation);
  }
  bool IsKnownTo(const TvnVar_Dll& /*context*/, std::int16_t /*activity*/) override { return false; }
};

}  // namespace

void AnswerNeighbours() {
  thread_local TimeWageToCome time_wage;
  AnswerTo<TimeWage>() = &time_wage;
  thread_local WorkOrdersAnswer work_orders;
  AnswerTo<WorkOrders>() = &work_orders;
  thread_local VouchersToCome vouchers;
  AnswerTo<Vouchers>() = &vouchers;
  thread_local NaturalExecutionToCome natural_execution;
  AnswerTo<NaturalExecution>() = &natural_execution;
}

}  // namespace tarvoni

#include "src/entry/neighbours.h"

#include "src/common/contracts.h"
#include "src/common/m_common.h"
#include "src/common/voucher_document.h"
#include "src/context/services/toolkit.h"

namespace tarvoni {
namespace {

// Its Screen is still to come.
class TimeWageToCome final : public TimeWage {
  void Open(const TvnVar_Dll& /*context*/, std::int32_t /*client*/, std::int32_t /*order*/) override {
    AppMsgBox("Die Vorgaben für Zeitlohn sind noch nicht verfügbar.", kBoxInformation);
  }
};

// While there are no vouchers, no document belongs to one.
class NoVouchers final : public VoucherDocument {
  std::optional<std::int32_t> OfCurrentVoucher() override { return std::nullopt; }
};

}  // namespace

void AnswerNeighbours() {
  thread_local TimeWageToCome time_wage;
  AnswerTo<TimeWage>() = &time_wage;
  thread_local NoVouchers no_vouchers;
  AnswerTo<VoucherDocument>() = &no_vouchers;
}

}  // namespace tarvoni

#include "src/common/contracts.h"
#include "src/common/natural_state.h"
#include "src/common/timber_assignment.h"
#include "src/vouchers/f_belege_new.h"
#include "src/vouchers/f_belege_new_sql.h"

// Timber and natural execution of the current row.
namespace tarvoni {

namespace sql = voucher_sql;

void F_Belege_New::SetTimberStates() {
  const bool on_row = btnOk.Enabled() && rows_.CurrentId() != 0;
  btnHolz.SetEnabled(on_row && SSTab1.Tab() == 1 && AllowsTimber(Db(), activity_.id));
  btnNV.SetEnabled(on_row && HasNaturalExecution(Context(), txtFlache, txtMenge, activity_.id));
}

// Only wholly free lists of the cost centre are offered here, unlike on a work order.
void F_Belege_New::AssignLists() {
  const CurrentRow row = rows_.Row();
  const TimberOwner owner{
      .client = idPersonal, .position = rows_.CurrentId(), .header = row.Number("ARBEITSAUFTRAG_KOPF_ID")};
  const SqlText offered = sql::FreeTimberLists(idPersonal, row.Number("KOSTENSTELLE_ID"));
  try {
    Committed([&] {
      if (!AssignTimber(Context(), owner, offered) || !QuantityFollowsTimber(Db())) return;
      ShowTimberSums(Db(), owner.position, txtFlache, txtMenge);
      WriteTimberSums(Db(), owner.position, txtFlache, txtMenge);
    });
  } catch (...) {
    ShowRow();  // the sums were not written
    throw;
  }
  LoadRows(vouchers_.CurrentId(), owner.position);
}

void F_Belege_New::OpenNaturalExecution() {
  const bool closed = rows_.Row().Flag("ABGENSCHLOSEN");
  Neighbour<NaturalExecution>().Open(Context(), closed, rows_.CurrentId(),
                                     static_cast<std::int16_t>(activity_.id));
}

}  // namespace tarvoni

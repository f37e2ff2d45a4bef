#include "src/common/contracts.h"
#include "src/common/natural_state.h"
#include "src/common/timber_assignment.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// The timber lists of a position, and its natural execution.
namespace tarvoni {

namespace sql = work_order_sql;

bool F_Arbeitsauftrag::TimberOpen() {
  return btnOk.Enabled() && !isPlan && AllowsTimber(Db(), activityId_);
}

// The area is read from the lists too, but the position keeps its own.
void F_Arbeitsauftrag::AssignLists() {
  if (!StillOpen()) return;
  Committed([this] {
    const TimberOwner owner{.client = idPersonal, .position = positionId, .header = headerId};
    if (!AssignTimber(Context(), owner, sql::FreeLists(idPersonal)) || !QuantityFollowsTimber(Db())) return;
    ShowTimberSums(Db(), positionId, txtFlache, txtMenge);
    WriteTimberSums(Db(), positionId, txtFlache, txtMenge);
  });
  ReloadPositions();
  SetViewState(true);
}

// Also of a closed order, read-only; the state of the button rule.
bool F_Arbeitsauftrag::NaturalExecutionOpen() {
  return !isPlan && btnOk.Enabled() && HasNaturalExecution(Context(), txtFlache, txtMenge, activityId_);
}

void F_Arbeitsauftrag::OpenNaturalExecution() {
  Neighbour<NaturalExecution>().Open(Context(), chkAbgesch.Checked(), positionId,
                                     static_cast<std::int16_t>(activityId_));
}

}  // namespace tarvoni

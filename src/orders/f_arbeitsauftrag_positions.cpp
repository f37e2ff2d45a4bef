#include "src/common/currency_box.h"
#include "src/common/page_focus.h"
#include "src/context/values/clock.h"
#include "src/context/values/date_text.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_messages.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// A new position, a changed one, a cancelled one.
namespace tarvoni {

namespace sql = work_order_sql;

std::string F_Arbeitsauftrag::PositionTable() const {
  return isPlan ? "ARBEITSAUFTRAG_PLANN" : "ARBEITSAUFTRAG";
}

// Reads the list anew and stands on the current position again, without showing it.
void F_Arbeitsauftrag::ReloadPositions() {
  const auto hold = suppressEvents.Hold();
  positions_.Refresh();
  positions_.Find(positionId);
}

// The cost centre stays: a new position inherits it.
void F_Arbeitsauftrag::NewPosition() {
  isNewPosition = true;
  ClearPosition();
  SetFrames(true);
  SetViewState(false);
  txtDatum.SetText(FormatDate(Clock::Today(), "dd.mm.yyyy", CurrentLocale()));
  txtSondermerkmal[0].SetText(txtSM.Text());
  sondermerkmal_.Check();
  FocusOnPage(txtDatum);
}

void F_Arbeitsauftrag::ClearPosition() {
  const auto hold = suppressEvents.Hold();
  positionId = 0;
  activityId_ = 0;
  for (CodeField* code : {&objekt_, &leistungsart_, &verfahren_, &kostenart_, &sondermerkmal_, &holzart_,
                          &leistung_, &waldort_})
    code->Clear();
  LockTimberFields(false);
  for (TextBox* box : {&txtDatum, &txtHSGR, &txtKosten, &txtStunden, &txtMAS, &txtMeter, &txtQuelle})
    box->SetText("");
  for (TextBox* box : {&txtMenge, &txtKostenE, &txtErlos}) box->SetText("0");
  for (TextBox* box : {&txtMenge, &txtKostenE, &txtErlos}) FormatNumberBox(*box, "0.00");
  txtFlache.SetText("0");
  FormatNumberBox(txtFlache, "0.0000");
  if (txtEinheit.ListCount() > 0) txtEinheit.SetListIndex(0);
  ShowCurrency(txtValuta, false, Context());
  optMenge.SetValue(true);
  chkZaunsutz.SetChecked(false);
  for (std::size_t i = 0; i < kFree; ++i) {
    txtTFrei.at(i).SetText("");
    txtNFrei.at(i).SetText("");
  }
  FillPlanList();
}

// Without a position, once its entry was given up, it goes on with that entry.
void F_Arbeitsauftrag::EditPosition() {
  isNewPosition = positions_.Empty();
  SetFrames(true);
  SetViewState(false);
  FocusOnPage(txtDatum);
}

// A cancelled position keeps its row. One with timber stays.
void F_Arbeitsauftrag::RemovePosition() {
  const std::string orders = "'" + positions_.Row().Text("ORDERS") + "'";
  if (!Ask(Message(message::kShould) + " " + Message(message::kNumber) + " " + orders + " " +
           Message(message::kReally) + " " + Message(message::kBeDeleted)))
    return;
  const Recordset logs = Open(sql::LogsOfPosition(positionId, idPersonal));
  if (!logs.EndOfFile()) {
    AppMsgBox(Message(message::kNumber) + " " + orders + " " + Message(message::kTimberHangsOn) + " '" +
                  ToText(logs.Fields()["LISTE"].Value()) + "'.",
              kBoxWarning);
    return;
  }
  if (!StillOpen()) return;
  Committed([this] {
    ExecuteOnRow(isPlan ? sql::CancelPlanPosition(positionId)
                        : sql::CancelPosition(positionId, Clock::Today(), Context().strSqlDateFormat));
  });
  ReloadPositions();
  ShowPosition();
  ShowSum();
  FocusList();
}

}  // namespace tarvoni

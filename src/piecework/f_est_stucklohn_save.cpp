#include "src/common/messages.h"
#include "src/context/values/clock.h"
#include "src/piecework/f_est_stucklohn.h"
#include "src/piecework/f_est_stucklohn_sql.h"

// Editing: the lists of the order with its pay month, and what is saved.
namespace tarvoni {

namespace sql = est_stucklohn_sql;

// --- the lists and the pay month that comes and goes with them ---

void F_EST_Stucklohn::ConnectLists() {
  lists_.Pair().Connect(
      {.select = cmdAddSel, .release = cmdDelSel, .select_all = &cmdAddAll, .release_all = &cmdDelAll});
  lists_.Pair().Selecting = [this] {
    if (lists_.HasAssigned() || !txtAbrechnungsmonat[1].Empty()) return;
    txtAbrechnungsmonat[1].SetText(std::to_string(Clock::Today().month));
    txtAbrechnungsmonat[1].LostFocus();
  };
  lists_.Pair().Released = [this] {
    if (lists_.HasAssigned()) return;
    txtAbrechnungsmonat[1].SetText("");
    txtAbrechnungsmonat[1].LostFocus();
  };
  listeSel.MouseDown = [this](int /*button*/) {
    if (!lists_.HasAssigned()) ReloadAndReposition();
  };
}

void F_EST_Stucklohn::LoadLists(const CurrentRow& row) {
  lists_.Load(Db(), TimberOrder(ID_Mandant_dll_, ID_ARA_Kopf_dll_, row));
}

// The year is that of the enterprise, whichever stood there before.
void F_EST_Stucklohn::MonthLeft() {
  pay_month_.LeaveMonth();
  txtAbrechnungsmonat[3].SetText(pay_month_.Month() > 0 ? OptionText("STANDARD_FWJ") : "");
}

// --- buttons ---

void F_EST_Stucklohn::ConnectButtons() {
  btnBearbeiten.Click = [this] {
    SetViewState(false);
    SafeSetFocus(txtESTMerkmal[0]);
  };
  btnSpeichern.Click = [this] { Save(); };
  btnAbbrechen.Click = [this] { Cancel(); };
  btnAbbrechen.SetCausesValidation(false);
  btnAusdruck.Click = [this] {
    CurrentSuite().Reports().PrintGrid(Context(), "EST", std::to_string(ID_ARA_Kopf_dll_), "", true);
  };
  CloseBy(btnClose);
}

void F_EST_Stucklohn::Cancel() {
  ReloadAndReposition();
  SetViewState(true);
  SafeSetFocus(DataGridEST);
}

void F_EST_Stucklohn::Save() {
  if (!TestMonth()) return;
  Committed([this] { Write(); });
  btnAbbrechen.SetEnabled(false);  // the edit of this log ends; the next one may be of another list
  btnAbbrechen.Press();
}

// A month in the future is refused first, then lists without a month.
bool F_EST_Stucklohn::TestMonth() {
  const DateTime today = Clock::Today();
  const bool later = pay_month_.Key() > today.year * 100 + today.month;
  const bool missing = lists_.HasAssigned() && txtAbrechnungsmonat[1].Empty();
  return !(later || missing) || Refuse(Message(message::kEntryMissing), txtAbrechnungsmonat[1]);
}

// All statements are made before the first is sent, so that a text which none of them takes stops them all.
void F_EST_Stucklohn::Write() const {
  const CurrentRow row = logs_.Row();
  const TimberOrder order(ID_Mandant_dll_, ID_ARA_Kopf_dll_, row);
  const SqlText update_order = sql::UpdateOrder(ID_ARA_Kopf_dll_, {.tool_money = chkWerkzeuggeld.Checked(),
                                                                   .untypical = chkARAUntypisch.Checked(),
                                                                   .month = txtAbrechnungsmonat[1].Text(),
                                                                   .year = txtAbrechnungsmonat[3].Text()});
  const SqlText update_log = sql::UpdateLog(row.Text("ID_LOG"), {.est = txtESTMerkmal[0].Text(),
                                                                 .bark = txtRindenzustand[0].Text(),
                                                                 .skidding = txtVorlieferstufe[0].Text(),
                                                                 .diameter = txtDMSchichtholz.Text()});
  lists_.RequireStorable(Db(), order);
  ExecuteOnRow(update_order);
  lists_.Store(Db(), order);
  if (row.IsNull("ID_LOG")) {
    Execute(update_log);  // an order without logs: it meets none
  } else {
    ExecuteOnRow(update_log);
  }
}

}  // namespace tarvoni

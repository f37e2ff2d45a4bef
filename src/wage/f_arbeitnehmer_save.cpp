#include "src/common/current_row.h"
#include "src/wage/f_arbeitnehmer.h"
#include "src/wage/f_arbeitnehmer_sql.h"

// Entering, saving and deleting hours.
namespace tarvoni {

namespace sql = arbeitnehmer_sql;

void F_Arbeitnehmer::ConnectButtons() {
  btnNeu.Click = [this] { StartNew(); };
  btnBearbeiten.Click = [this] {
    btnNeu.SetTag("NO");
    SetViewState(false);
    SafeSetFocus(txtBearbeitungsmonat[1]);
  };
  btnSpeichern.ForEach([this](int index, Button& button) { button.Click = [this, index] { Save(index); }; });
  btnAbbrechen.Click = [this] { Cancel(); };
  btnAbbrechen.SetCausesValidation(false);
  btnLoschen.Click = [this] { Delete(); };
  btnClose.Click = [this] { Unload(); };
}

// The months stay as they are, for the next worker of the same month.
void F_Arbeitnehmer::StartNew() {
  btnNeu.SetTag("YES");
  SetViewState(false);
  SetSubject("neue Zeile");
  txtBearbeitungsmonat[3].SetText(curFwj);
  txtVerlohnungs[3].SetText(curFwj);
  worker_.Clear();
  txtStunden.SetText("");
  txtProzentsatz.SetText("");
  txtGesamtbetrag.SetText("");
  ClearRate();
  if (curStundenId == 0) ProposeFirst();
  txtVerlohnungs[0].SetText("1");
  txtVerlohnungs[0].LostFocus();
  SafeSetFocus(txtBearbeitungsmonat[1]);
}

// Month and direct wage type of the order, where the fields are still empty.
void F_Arbeitnehmer::ProposeFirst() {
  const std::string month = ReadText(sql::MonthOfOrder(curAraId));
  for (TextBox* box : {&txtBearbeitungsmonat[1], &txtVerlohnungs[1]}) {
    if (month.empty() || !box->Empty()) continue;
    box->SetText(month);
    box->LostFocus();
  }
  const std::string wage_type = ReadText(sql::DirectWageType(curAraId));
  if (wage_type.empty()) return wage_type_.Clear();
  if (!txtLohnart[0].Empty()) return;
  txtLohnart[0].SetText(wage_type);
  txtLohnart[0].LostFocus();
}

void F_Arbeitnehmer::Save(int index) {
  if (!TestEntry()) return;
  if (btnNeu.Tag() == "YES") curStundenId = ReadNumber(sql::InsertHours(curAraId));
  Execute(sql::UpdateHours(curStundenId,
                           {.working_month = working_month_.FirstDay(),
                            .day = Day(),
                            .worker = txtPersonalnummer[0].Tag(),
                            .wage_type = txtLohnart[0].Tag(),
                            .paying_month = paying_month_.FirstDay(),
                            .hours = txtStunden.Text(),
                            .percentage = txtProzentsatz.Text()},
                           Context().strSqlDateFormat));
  btnAbbrechen.Press();
  if (index == 1 && btnNeu.Enabled()) btnNeu.Press();
}

// A year that is missing, or is none, makes its month incomplete.
bool F_Arbeitnehmer::TestEntry() {
  const std::int32_t max_closed = CurrentRow(AdodcArbeitnehmer).Number("MAXLOHNABSCHLUSS");
  const auto require = [this](bool passed, const Label& label, TextBox& box) {
    return passed || Refuse(EntryMissing(label.Caption()), box);
  };
  return require(!txtBearbeitungsmonat[1].Empty(), lblBearbeitungsmonat, txtBearbeitungsmonat[1]) &&
         require(working_month_.Key() > max_closed, lblBearbeitungsmonat, txtBearbeitungsmonat[1]) &&
         require(!txtVerlohnungs[1].Empty(), lblVerlohnungs, txtVerlohnungs[1]) &&
         require(!txtVerlohnungs[0].Empty(), lblVerlohnungs, txtVerlohnungs[0]) &&
         require(Day() && pay_month_.Key() <= working_month_.Key(), lblVerlohnungs, txtVerlohnungs[1]) &&
         require(!txtPersonalnummer[0].Empty(), lblPersonalnummer, txtPersonalnummer[0]) &&
         require(!txtLohnart[0].Empty(), lblLohnart, txtLohnart[0]) &&
         require(!txtAuszahlungsmonat[1].Empty(), lblAuszahlungsmonat, txtAuszahlungsmonat[1]) &&
         require(paying_month_.FirstDay().has_value(), lblAuszahlungsmonat, txtAuszahlungsmonat[3]);
}

void F_Arbeitnehmer::Delete() {
  if (!Ask(Message(1429))) return;
  const std::int32_t id = CurrentRow(AdodcArbeitnehmer).Number("ID");
  if (id == 0) return;
  curStundenId = NeighbourOfCurrentRow(AdodcArbeitnehmer, "ID");
  Execute(sql::DeleteHours(id));
  Reload();
}

void F_Arbeitnehmer::Cancel() {
  btnNeu.SetTag("NO");
  Reload();
  SafeSetFocus(DataGridArbeitnehmer);
}

}  // namespace tarvoni

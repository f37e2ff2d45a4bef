#include "src/wage/f_arbeitnehmer.h"
#include "src/wage/f_arbeitnehmer_sql.h"

// Entering, saving and deleting hours.
namespace tarvoni {

namespace sql = arbeitnehmer_sql;

void F_Arbeitnehmer::ConnectButtons() {
  btnSpeichern[0].Click = [this] { entry_.Save(); };
  btnSpeichern[1].Click = [this] {
    if (entry_.Save() && btnNeu.Enabled()) btnNeu.Press();
  };
  btnLoschen.Click = [this] { entry_.Delete(sql::DeleteHours); };
  CloseBy(btnClose);
}

RowEntry::Steps F_Arbeitnehmer::EntrySteps() {
  return {.set_view = [this](bool view) { SetViewState(view); },
          .fill = [this]() -> Control& { return FillNew(); },
          .first = [this]() -> Control& { return txtBearbeitungsmonat[1]; },
          .save = [this] { return Save(); },
          .reload = [this] { Reload(); }};
}

// The months stay as they are, for the next worker of the same month.
Control& F_Arbeitnehmer::FillNew() {
  SetSubject("neue Zeile");
  priced_day_.reset();
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
  return txtBearbeitungsmonat[1];
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

std::optional<std::int32_t> F_Arbeitnehmer::Save() {
  if (!TestEntry()) return std::nullopt;
  if (!entry_.IsNew()) {
    WriteHours(curStundenId);
    return curStundenId;
  }
  const std::int32_t id = ReadNumber(sql::InsertHours(curAraId));
  OrUndo([&] { WriteHours(id); }, sql::DeleteHours(id));
  return id;
}

void F_Arbeitnehmer::WriteHours(std::int32_t id) const {
  ExecuteOnRow(sql::UpdateHours(id,
                                {.working_month = working_month_.FirstDay(),
                                 .day = Day(),
                                 .worker = txtPersonalnummer[0].Tag(),
                                 .wage_type = txtLohnart[0].Tag(),
                                 .paying_month = paying_month_.FirstDay(),
                                 .hours = txtStunden.Text(),
                                 .percentage = txtProzentsatz.Text()},
                                Context().strSqlDateFormat));
}

// A year that is missing, or is none, makes its month incomplete.
bool F_Arbeitnehmer::TestEntry() {
  const std::int32_t max_closed = hours_.Row().Number("MAXLOHNABSCHLUSS");
  return Require(!txtBearbeitungsmonat[1].Empty(), lblBearbeitungsmonat, txtBearbeitungsmonat[1]) &&
         Require(working_month_.Key() > max_closed, lblBearbeitungsmonat, txtBearbeitungsmonat[1]) &&
         Require(!txtVerlohnungs[1].Empty(), lblVerlohnungs, txtVerlohnungs[1]) &&
         Require(!txtVerlohnungs[0].Empty(), lblVerlohnungs, txtVerlohnungs[0]) &&
         Require(Day() && pay_month_.Key() <= working_month_.Key(), lblVerlohnungs, txtVerlohnungs[1]) &&
         Require(!txtPersonalnummer[0].Empty(), lblPersonalnummer, txtPersonalnummer[0]) &&
         Require(!txtLohnart[0].Empty(), lblLohnart, txtLohnart[0]) &&
         Require(!txtAuszahlungsmonat[1].Empty(), lblAuszahlungsmonat, txtAuszahlungsmonat[1]) &&
         Require(paying_month_.FirstDay().has_value(), lblAuszahlungsmonat, txtAuszahlungsmonat[3]);
}

}  // namespace tarvoni

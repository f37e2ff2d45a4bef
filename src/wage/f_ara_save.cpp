#include <charconv>
#include <utility>

#include "src/common/client_number.h"
#include "src/common/contracts.h"
#include "src/common/messages.h"
#include "src/common/month_fields.h"
#include "src/common/slot.h"
#include "src/context/rules/wage_group.h"
#include "src/context/values/clock.h"
#include "src/context/values/date_text.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/wage/f_ara.h"
#include "src/wage/f_ara_sql.h"
#include "src/wage/f_arbeitnehmer.h"

// Creating, saving and cancelling wage orders, and their total.
namespace tarvoni {

namespace sql = ara_sql;

namespace {

std::string ShownDate(const DateTime& day) {
  return FormatDate(day, "dd.mm.yyyy", CurrentLocale());
}

// The first day of the first month that is not closed; `max_closed` is year times 100 plus month, 0 for none.
DateTime FirstOpen(std::int32_t max_closed) {
  if (max_closed == 0) {
    const DateTime today = Clock::Today();
    return {.year = today.year, .month = today.month, .day = 1};
  }
  return AddMonths({.year = max_closed / 100, .month = max_closed % 100, .day = 1}, 1);
}

// The number at a place of a date text; 0 if there is none.
int NumberAt(const std::string& text, int start, int length) {
  const std::string_view digits = utf8::Substring(text, start, length);
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

// "dd.mm.yyyy" read by position; nothing for a day that does not exist.
std::optional<DateTime> DateByPosition(const std::string& text) {
  const int day = NumberAt(text, 0, 2), month = NumberAt(text, 3, 2), year = NumberAt(text, 6, 4);
  if (!IsValidDate(year, month, day)) return std::nullopt;
  return DateTime{.year = year, .month = month, .day = day};
}

}  // namespace

void F_ARA::ConnectButtons() {
  btnSpeichern.Click = [this] { entry_.Save(); };
  btnSpeichernNew.Click = [this] {
    btnSpeichern.Press();
    if (!btnSpeichern.Enabled()) btnNeu.Press();
  };
  btnStorno.Click = [this] { Storno(); };
  btnStornoNew.Click = [this] {
    if (!btnStorno.Enabled()) return;
    btnStorno.Press();
    if (!btnStorno.Enabled()) btnNeu.Press();
  };
  btnVorgaben.Click = [this] { OpenVorgaben(); };
  btnStunden.Click = [this] { OpenStunden(); };
  CloseBy(btnClose);
}

RowEntry::Steps F_ARA::EntrySteps() {
  return {
      .set_view = [this](bool view) { SetViewState(view); },
      .create = [this] { return CreateNewAra(); },
      .fill = [this]() -> Control& { return FillNewAra(); },
      .first = [this]() -> Control& { return txtLeistung[0].Locked() ? txtKostenstelle[0] : txtLeistung[0]; },
      .save = [this] { return Save(); },
      .discard =
          [this] {
            const WaitPointer wait(CurrentToolkit());
            Execute(sql::DeleteOrder(curAraId));
          },
      .reload = [this] { LoadGridAndPosition(); },
  };
}

// --- a new order ---

// Inserts it: an order exists in the database before anything is entered.
std::int32_t F_ARA::CreateNewAra() {
  txtFWJ.SetText(curFwj);
  const Recordset client = Open(NumberOfClient(curPersonal));
  txtForstbetrieb.SetText(client.EndOfFile() ? "" : ToText(client.Fields()[0].Value()));
  txtForstbetrieb.SetTag(client.EndOfFile() ? "" : std::to_string(curPersonal));
  const std::int32_t order = ReadNumber(sql::InsertOrder({curPersonal, curFwj}));
  // The box still shows the order before: this name lasts until the order is saved.
  const std::string provisional = txtForstbetrieb.Text() + curFwj + txtArbeitsauftrag.Text();
  new_number_ =
      OrUndo([&] { return ReadNumber(sql::InsertPosition(order, provisional)); }, sql::DeleteOrder(order));
  return order;
}

Control& F_ARA::FillNewAra() {
  txtArbeitsauftrag.SetText(FormatNumber(new_number_, "0000", CurrentLocale()));
  SetSubject("Forstbetrieb " + txtForstbetrieb.Text() + ", neuer Auftrag " + txtArbeitsauftrag.Text());
  const bool copy = btnStornoNew.Pressed() || btnSpeichernNew.Pressed();
  if (!copy) ClearFields();
  return txtArbeitsauftrag;
}

void F_ARA::ClearFields() {
  const auto hold = loadingFlag.Hold();
  for (CodeField* field :
       {&leistung_, &kostenstelle_, &produktauftrag_, &rotte_, &leistungsart_, &waldort_}) {
    field->Clear();
  }
  SetTextBoxLocked(false, txtLeistung[0]);
  txtProduktauftragNr[1].SetText(txtForstbetrieb.Text() + txtFWJ.Text() + txtKostenstelle[0].Text());
  curProduktId = 0;
  txtErstellungsDatum.SetText(ShownDate(Clock::Today()));
  for (TextBox* box : {&txtBegrundung_der_Anordnung, &txtFlache, &txtMenge, &txtMengeEinhait,
                       &txtStunden_dir_Lohn, &txtGesamtKosten}) {
    box->SetText("");
  }
}

// --- saving ---

// The edit of this order ends, whichever the list then stands on: under a selection it may not hold the order any more.
void F_ARA::EndEdit() {
  SetSubject("Forstbetrieb " + txtForstbetrieb.Text() + ", Auftrag " + OrderName());
  btnAbbrechen.SetEnabled(false);
}

std::string F_ARA::OrderName() const {
  return txtKostenstelle[0].Text() + txtFWJ.Text() + txtArbeitsauftrag.Text();
}

std::optional<std::int32_t> F_ARA::Save() {
  if (!Require(TakeNumber(), lblArbeitsauftrag, txtArbeitsauftrag) ||
      !Require(ProductOrderGiven(), lblProduktauftragNr, txtProduktauftragNr[0])) {
    return std::nullopt;
  }
  ExecuteOnRow(sql::UpdateHeader(curAraId, {.name = OrderName(),
                                            .description = txtBegrundung_der_Anordnung.Text(),
                                            .total = txtGesamtKosten.Text(),
                                            .team = txtRotte[0].Tag()}));
  ExecuteOnRow(sql::UpdatePosition(curAraId,
                                   {.product_order = txtProduktauftragNr[0].Tag(),
                                    .service = txtLeistung[0].Tag(),
                                    .date = ParseDate(txtErstellungsDatum.Text()),
                                    .cost_centre = txtKostenstelle[0].Tag(),
                                    .work_type = txtLeistungsart[0].Tag(),
                                    .location = txtWaldort.Tag()},
                                   Context().strSqlDateFormat));
  return curAraId;
}

// Takes the number typed for a new order, unless another order already bears the resulting name. It is stored
// at once, whatever the later tests say.
bool F_ARA::TakeNumber() {
  const auto number = ParseNumber(txtArbeitsauftrag.Text(), CurrentLocale());
  if (!number || *number == Decimal()) return false;
  if (txtArbeitsauftrag.Locked()) return true;
  return ReadNumber(sql::TakeNumber(curAraId, OrderName(), txtArbeitsauftrag.Text())) == 0;
}

// Only an overhead cost centre (GK) lets an order go without a product order.
bool F_ARA::ProductOrderGiven() {
  const std::string& cost_centre = txtKostenstelle[0].Tag();
  const bool overhead = !cost_centre.empty() && ReadNumber(sql::IsOverhead(cost_centre)) != 0;
  return overhead || !txtProduktauftragNr[0].Tag().empty();
}

// --- cancelling an order ---

void F_ARA::Storno() {
  if (curAraId == 0) return;
  const auto day = AskStornoDay();
  if (!day) return;
  const std::string cancelled = Subject();
  Committed([&] { ExecuteOnRow(sql::CancelOrder(curAraId, *day, Context().strSqlDateFormat)); });
  LoadGridAndPosition();
  SafeSetFocus(DataGridArbeitsauftrag);  // not onto the button behind this one, which opens another Screen
  CurrentToolkit().Tell("Storniert: " + cancelled + ".");
}

// A day of a month that is not closed, no later than today; nothing if the user gives up or there is none.
std::optional<DateTime> F_ARA::AskStornoDay() {
  for (bool first = true;; first = false) {
    const DateTime first_open = FirstOpen(orders_.Row().Number("MAXLOHNABSCHLUSS"));
    if (first_open > Clock::Today()) {
      AppMsgBox(Message(message::kMonthClosed), kBoxInformation);
      return std::nullopt;
    }
    if (first && !Ask(Message(message::kCancelWageOrder))) return std::nullopt;
    const std::string answer = CurrentSuite().Lookup().Pick(
        Context(), "DATUM", Message(message::kCancellationDate), ShownDate(first_open), "1");
    if (answer.empty()) return std::nullopt;
    AppMsgBox("OK");
    const auto day = DateByPosition(answer);
    if (day && *day >= first_open && *day <= Clock::Today()) return day;
    AppMsgBox(Message(message::kEntryMissing), kBoxInformation);
  }
}

// --- details and the total ---

void F_ARA::OpenVorgaben() {
  switch (static_cast<WageGroup>(orders_.Row().Number("BBF_GRUPPENUMBER"))) {
    case WageGroup::kEst:
      AppMsgBox("EST-Lohn existiert nicht!");
      return;
    case WageGroup::kOtherPiecework:
      AppMsgBox("Sonstiger Stücklohn existiert nicht!");
      return;
    case WageGroup::kTimeWage:
      Neighbour<TimeWage>().Open(Context(), curPersonal, curAraId);
      break;
  }
  Committed([this] { WriteGesamtKosten(); });
  LoadGridAndPosition();
}

// The total follows the hours in the commit that ends their Screen.
void F_ARA::OpenStunden() {
  const auto hours = Slot<F_Arbeitnehmer>::Use();
  hours->Closing = [this] { WriteGesamtKosten(); };
  hours->Run(Context(), curAraId);
  Slot<F_Arbeitnehmer>::Clear();
  LoadGridAndPosition();
}

// What the workers' hours on the order cost, as the suite's reports add it up; exact, since half a cent counts.
Decimal F_ARA::CalculateGesamtKosten() {
  Decimal total;
  for (Recordset months = Open(sql::MonthsWithHours(curAraId)); !months.EndOfFile(); months.MoveNext()) {
    const FieldList month = months.Fields();
    for (const bool others : {false, true}) {
      bool flag = others;
      Value amount;
      CurrentSuite().Reports().PrintRows(Context(), curAraId, ToLong(month["ID_PERSONAL"].Value()),
                                         ToLong(month["YEARBEARBEITUNG"].Value()),
                                         ToLong(month["MONTHBEARBEITUNG"].Value()), 10, flag, amount);
      total = Add(total, NumberOf(amount, CurrentLocale()).value_or(Decimal())).value();
    }
  }
  return total;
}

void F_ARA::WriteGesamtKosten() {
  const std::string shown = FormatNumber(CalculateGesamtKosten(), "0.00", CurrentLocale());
  Execute(sql::StoreTotal(curAraId, *ParseNumber(shown, CurrentLocale())));
}

}  // namespace tarvoni

#include "src/wage/f_arbeitnehmer.h"

#include <utility>

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/common/view_switch.h"
#include "src/context/rules/hour_amount.h"
#include "src/context/services/told_on_leaving.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/wage/f_arbeitnehmer_sql.h"
#include "src/wage/shown_month.h"

namespace tarvoni {

namespace sql = arbeitnehmer_sql;

namespace {

constexpr const char* kAmount = "0.00";

std::optional<Decimal> NumberIn(const TextBox& box) {
  return ParseNumber(box.Text(), CurrentLocale());
}

}  // namespace

F_Arbeitnehmer::F_Arbeitnehmer() : Screen("F_Arbeitnehmer") {
  hours_.Connect([this] { ShowCurrentRow(); }, [this] { return Columns(); }, &btnBearbeiten);
  ConnectFields();
  ConnectButtons();
}

void F_Arbeitnehmer::Run(const TvnVar_Dll& tvnvar, std::int32_t araId) {
  curAraId = araId;
  Present(tvnvar, [this] {
    curFwj = OptionText("STANDARD_FWJ");
    const bool with_percentage = OptionNumber("ARAPERCENTSATZ") != 1;
    lblProzentsatz.SetVisible(with_percentage);
    txtProzentsatz.SetVisible(with_percentage);
    curStundenId = 0;
    Reload();
  });
}

// --- fields ---

void F_Arbeitnehmer::ConnectFields() {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtBearbeitungsmonat[1]).Number("00").Month(working_month_);
  for (TextBox* year : {&txtBearbeitungsmonat[3], &txtVerlohnungs[3], &txtAuszahlungsmonat[3]})
    TakesYear(*year);
  Rules(txtBearbeitungsmonat[3]).Number("0000");
  Rules(txtVerlohnungs[0]).Number("00").Left([this] { DayLeft(); });
  Rules(txtVerlohnungs[1]).Number("00").Month(pay_month_).Left([this] { DayLeft(); });
  Rules(txtVerlohnungs[3]).Number("0000").Left([this] { DayLeft(); });
  Rules(txtPersonalnummer[0]).Keys("#########0").Code(worker_);
  Rules(txtLohnart[0]).Keys("#########0").Code(wage_type_).Left([this] { WageTypeLeft(); });
  Rules(txtAuszahlungsmonat[1]).Number("00").Month(paying_month_);
  Rules(txtAuszahlungsmonat[3]).Number("0000");
  Rules(txtStunden).Number("-##0.00").Left([this] { ShowAmount(); });
  Rules(txtProzentsatz).Number("-##0.00");
  worker_.Changed = [this] {
    if (!loadingFlag) PriceForWorker();
  };
  wage_type_.Changed = [this] { wage_type_changed_ = true; };
}

CodeField::Rule F_Arbeitnehmer::WorkerRule() {
  static const NamedValue registered = Condition("PERSONAL.ANGEMELDET = 1");
  return {.offered = [this] { return GetNamedSql(Context(), "PERSONAL_GRID_ARBEITER", {registered}); },
          .check =
              [this] {
                return GetNamedSql(Context(), "PERSONAL_VALID_ARBEITER",
                                   {registered, TypedCode(txtPersonalnummer[0].Text())});
              },
          .caption = [this] { return lblPersonalnummer.Caption(); },
          .name_column = "KURZBEZEICHNUNG"};
}

CodeField::Rule F_Arbeitnehmer::WageTypeRule() {
  return {.offered = [this] { return sql::WageTypes(curAraId); },
          .check = [this] { return sql::FindWageType(curAraId, txtLohnart[0].Text()); },
          .caption = [this] { return lblLohnart.Caption(); },
          .name_column = "NAME"};
}

// --- the list ---

void F_Arbeitnehmer::Reload() {
  lblStunden.SetCaption(Message(message::kHours));  // for the grid's head; a row shows its own unit
  hours_.Load(sql::HoursOfOrder(curAraId));
  const auto hold = loadingFlag.Hold();
  if (curStundenId != 0) hours_.Find(curStundenId);
  ShowCurrentRow();
}

std::vector<ShownColumn> F_Arbeitnehmer::Columns() const {
  return {{.data_field = "PERSONALNUMMER", .caption = lblPersonalnummer.Caption(), .width = 1650},
          {.data_field = "PERSONALKURZBEZEICHNUNG", .caption = " ", .width = 2800},
          {.data_field = "DAYVERLOHNUNG", .caption = "Tag", .number_format = "00", .width = 600},
          {.data_field = "MONTHVERLOHNUNG", .caption = "Monat", .number_format = "00", .width = 750},
          {.data_field = "LOHNARTENNUMBER", .caption = lblLohnart.Caption(), .width = 900},
          QuantityColumn("STUNDEN", "EINHEITNAME", lblStunden.Caption(), 1100, ""),
          FigureColumn("SATZ", lblSatz.Caption(), 1100),
          FigureColumn("PROZENTSATZ", lblProzentsatz.Caption(), 1100),
          AmountColumn("WERT", lblGesamtbetrag.Caption(), 1400)};
}

void F_Arbeitnehmer::ShowCurrentRow() {
  const auto hold = loadingFlag.Hold();
  const CurrentRow row = hours_.Row();
  ShowMonth(row, "MONTHBEARBEITUNG", "YEARBEARBEITUNG", working_month_);
  ShowMonth(row, "MONTHVERLOHNUNG", "YEARVERLOHNUNG", pay_month_);
  ShowMonth(row, "MONTHAUSZAHLUNGSMONAT", "YEARAUSZAHLUNGSMONAT", paying_month_);
  row.Show("DAYVERLOHNUNG", txtVerlohnungs[0], "00");
  row.ShowCode("ID_PERSONAL", "PERSONALNUMMER", "PERSONALKURZBEZEICHNUNG", txtPersonalnummer);
  row.ShowCode("ID_LOHNARTEN", "LOHNARTENNUMBER", "LOHNARTENNAME", txtLohnart);
  lblStunden.SetCaption(row.IsNull("EINHEITNAME") ? Message(message::kHours) : row.Text("EINHEITNAME"));
  row.Show("STUNDEN", txtStunden, kAmount);
  row.Show("SATZ", txtSatz, kAmount);
  row.Show("PROZENTSATZ", txtProzentsatz, kAmount);
  txtGesamtbetrag.SetText(Amount());  // a row without a rate has no SATZ
  curStundenId = row.Number("ID");
  SetSubject(curStundenId == 0 ? ""
                               : txtPersonalnummer[0].Text() + " " + txtPersonalnummer[1].Text() + ", " +
                                     DayText() + ", " + lblLohnart.Caption() + " " + txtLohnart[0].Text());
  priced_day_ = DayText();
  SetViewState(true);
}

void F_Arbeitnehmer::SetViewState(bool bolView) {
  ViewSwitch({&btnClose, &DataGridArbeitnehmer},
             {&btnSpeichern[0], &btnSpeichern[1], &btnAbbrechen, &frmErfassung})
      .Set(bolView);
  const CurrentRow row = hours_.Row();
  const bool open_row = !row.IsNull("ID") && row.Number("MODIFY") == 0;
  btnNeu.SetEnabled(bolView && row.Number("MODIFYNEW") == 0);
  btnBearbeiten.SetEnabled(bolView && open_row);
  btnLoschen.SetEnabled(bolView && open_row);
}

// --- rate and amount of the entry ---

// Another day has another rate and is paid in another month. A stored one that is only passed changes neither.
void F_Arbeitnehmer::DayLeft() {
  LeaveDay(txtVerlohnungs[0], pay_month_);
  if (priced_day_ == DayText()) return;
  if (priced_day_) priced_day_ = DayText();
  PriceAgain();
}

void F_Arbeitnehmer::PriceAgain() {
  txtLohnart[0].SetTag("");
  txtLohnart[0].LostFocus();
}

// Another worker has another rate; the month in which he is paid stays as it stands, which is told where it is not the
// one that follows from day and wage type.
void F_Arbeitnehmer::PriceForWorker() {
  const std::string month = txtAuszahlungsmonat[1].Text(), year = txtAuszahlungsmonat[3].Text();
  PriceAgain();
  if (month.empty()) return;
  const std::string follows = txtAuszahlungsmonat[1].Text() + "." + txtAuszahlungsmonat[3].Text();
  txtAuszahlungsmonat[1].SetText(month);
  txtAuszahlungsmonat[3].SetText(year);
  paying_month_.LeaveMonth();
  if (follows == month + "." + year) return;
  TellOnLeaving(txtAuszahlungsmonat[1], lblAuszahlungsmonat.Caption() + " bleibt " + month + "." + year +
                                            "; aus Tag und Lohnart folgt " + follows + ".");
}

void F_Arbeitnehmer::WageTypeLeft() {
  const bool changed = std::exchange(wage_type_changed_, false);
  const bool day_and_worker =
      !txtVerlohnungs[1].Empty() && !txtVerlohnungs[0].Empty() && !txtPersonalnummer[0].Tag().empty();
  if (txtLohnart[0].Tag().empty() || !day_and_worker) {
    ClearRate();
  } else if (changed) {
    ReadRate();
  }
  txtStunden.LostFocus();
}

std::string F_Arbeitnehmer::DayText() const {
  return txtVerlohnungs[0].Text() + "." + txtVerlohnungs[1].Text() + "." + txtVerlohnungs[3].Text();
}

std::optional<DateTime> F_Arbeitnehmer::Day() const {
  auto day = pay_month_.FirstDay();
  const auto number = NumberIn(txtVerlohnungs[0]);
  if (!day || !number) return std::nullopt;
  day->day = ToInt32(number->ToDouble());
  return day;
}

void F_Arbeitnehmer::ReadRate() {
  const Recordset rate = Open(hour_amount::OfferedRate(txtLohnart[0].Tag(), txtPersonalnummer[0].Tag(), Day(),
                                                       Context().strSqlDateFormat));
  const auto first = pay_month_.FirstDay();
  if (rate.EndOfFile()) {
    if (first) paying_month_.Set(first->year, first->month);
    return ClearRate();
  }
  const FieldList field = rate.Fields();
  if (first) {
    const DateTime paid = AddMonths(*first, ToLong(field["ZAHLUNGSVERSCHIEBUNG"].Value()));
    paying_month_.Set(paid.year, paid.month);
  }
  lblStunden.SetCaption(ToText(field["NAME"].Value()));
  txtSatz.SetText(FieldText(field["SATZ"].Value(), kAmount, CurrentLocale()));
}

void F_Arbeitnehmer::ClearRate() {
  lblStunden.SetCaption(Message(message::kHours));
  txtSatz.SetText("");
}

// Rate times hours; "" unless both are there.
std::string F_Arbeitnehmer::Amount() const {
  const auto rate = NumberIn(txtSatz), hours = NumberIn(txtStunden);
  const auto amount = rate && hours ? Multiply(*rate, *hours) : std::nullopt;
  return amount ? FormatNumber(*amount, kAmount, CurrentLocale()) : "";
}

void F_Arbeitnehmer::ShowAmount() {
  const std::string amount = Amount();
  const bool priced = !amount.empty() && HasRow(Db(), sql::HasRate(txtLohnart[0].Tag()));
  txtGesamtbetrag.SetText(priced ? amount : "");
}

}  // namespace tarvoni

#include "src/wage/f_arbeitnehmer.h"

#include <utility>

#include "src/common/box_rules.h"
#include "src/common/current_row.h"
#include "src/common/view_switch.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/wage/f_arbeitnehmer_sql.h"
#include "src/wage/rate_expressions.h"

namespace tarvoni {

namespace sql = arbeitnehmer_sql;

namespace {

constexpr const char* kAmount = "0.00";

std::optional<Decimal> NumberIn(const TextBox& box) {
  return ParseNumber(box.Text(), CurrentLocale());
}

}  // namespace

F_Arbeitnehmer::F_Arbeitnehmer() : Screen("F_Arbeitnehmer") {
  ConnectList(AdodcArbeitnehmer, DataGridArbeitnehmer, loadingFlag, btnBearbeiten,
              [this] { ShowCurrentRow(); });
  CloseInViewState(*this, btnClose, layout_, Context());
  ConnectFields();
  ConnectButtons();
}

void F_Arbeitnehmer::Run(const TvnVar_Dll& tvnvar, std::int32_t araId) {
  curAraId = araId;
  {
    const auto hold = loadingFlag.Hold();
    Enter(tvnvar);
    curFwj = OptionText("STANDARD_FWJ");
    const bool with_percentage = Option("ARAPERCENTSATZ") != 1;
    lblProzentsatz.SetVisible(with_percentage);
    txtProzentsatz.SetVisible(with_percentage);
    curStundenId = 0;
    Connect(AdodcArbeitnehmer);
    BindMessages();
    Reload();
    layout_.Load(Context());
  }
  Show();
}

// --- fields ---

void F_Arbeitnehmer::ConnectFields() {
  for (TextBox* box :
       {&txtBearbeitungsmonat[1], &txtVerlohnungs[0], &txtVerlohnungs[1], &txtAuszahlungsmonat[1]}) {
    NumberBox(*box, "00");
  }
  for (TextBox* box : {&txtBearbeitungsmonat[3], &txtVerlohnungs[3], &txtAuszahlungsmonat[3]}) {
    NumberBox(*box, "0000");
  }
  for (TextBox* box : {&txtPersonalnummer[0], &txtLohnart[0]}) NumberKeys(*box, "#########0");
  for (TextBox* box : {&txtStunden, &txtProzentsatz}) NumberBox(*box, "-##0.00");
  ConnectBoxes(*this, TabOnEnter(*this));

  OfferMonths(txtBearbeitungsmonat[1], working_month_, Context());
  OfferMonths(txtVerlohnungs[1], pay_month_, Context());
  OfferMonths(txtAuszahlungsmonat[1], paying_month_, Context());
  Append(txtBearbeitungsmonat[1].LostFocus, [this] { working_month_.LeaveMonth(); });
  Append(txtAuszahlungsmonat[1].LostFocus, [this] { paying_month_.LeaveMonth(); });
  Append(txtVerlohnungs[1].LostFocus, [this] { pay_month_.LeaveMonth(); });
  for (const int i : {0, 1, 3}) Append(txtVerlohnungs[i].LostFocus, [this] { DayLeft(); });
  worker_.Changed = [this] {
    if (!loadingFlag) PriceAgain();
  };
  wage_type_.Changed = [this] { wage_type_changed_ = true; };
  Append(txtLohnart[0].LostFocus, [this] { WageTypeLeft(); });
  Append(txtStunden.LostFocus, [this] { ShowAmount(); });
}

CodeField::Rule F_Arbeitnehmer::WorkerRule() {
  constexpr const char* kRegistered = "PERSONAL.ANGEMELDET = 1";
  return {.offered = [this] { return GetNamedSql(Context(), "PERSONAL_GRID_ARBEITER", kRegistered); },
          .check =
              [this] {
                return GetNamedSql(Context(), "PERSONAL_VALID_ARBEITER",
                                   Parameters({kRegistered}, &txtPersonalnummer[0].Text()));
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
  lblStunden.SetCaption(Message(4680));  // for the grid's head; a row shows its own unit
  AdodcArbeitnehmer.SetRecordSource(sql::HoursOfOrder(curAraId));
  RefreshKeepingWidths(AdodcArbeitnehmer, DataGridArbeitnehmer, loadingFlag, [this] { SetColumns(); });
  const auto hold = loadingFlag.Hold();
  if (curStundenId != 0) FindRow(AdodcArbeitnehmer, "ID", curStundenId, loadingFlag);
  ShowCurrentRow();
}

void F_Arbeitnehmer::SetColumns() {
  ShowColumns(DataGridArbeitnehmer,
              {{.data_field = "PERSONALNUMMER", .caption = lblPersonalnummer.Caption(), .width = 1650},
               {.data_field = "PERSONALKURZBEZEICHNUNG", .caption = " ", .width = 2800},
               {.data_field = "DAYVERLOHNUNG", .caption = "Tag", .number_format = "00", .width = 600},
               {.data_field = "MONTHVERLOHNUNG", .caption = "Monat", .number_format = "00", .width = 750},
               {.data_field = "LOHNARTENNUMBER", .caption = lblLohnart.Caption(), .width = 900},
               AmountColumn("STUNDEN", lblStunden.Caption(), 1100, ""),
               AmountColumn("SATZ", lblSatz.Caption(), 1100),
               AmountColumn("PROZENTSATZ", lblProzentsatz.Caption(), 1100),
               AmountColumn("WERT", lblGesamtbetrag.Caption(), 1400)});
}

void F_Arbeitnehmer::ShowCurrentRow() {
  const auto hold = loadingFlag.Hold();
  const CurrentRow row(AdodcArbeitnehmer);
  const auto show_month = [&row](const char* month, const char* year, const MonthFields& fields) {
    fields.Clear();
    if (!row.IsNull(month)) fields.Set(row.Number(year), row.Number(month));
  };
  show_month("MONTHBEARBEITUNG", "YEARBEARBEITUNG", working_month_);
  show_month("MONTHVERLOHNUNG", "YEARVERLOHNUNG", pay_month_);
  show_month("MONTHAUSZAHLUNGSMONAT", "YEARAUSZAHLUNGSMONAT", paying_month_);
  row.Show("DAYVERLOHNUNG", txtVerlohnungs[0], "00");
  row.ShowCode("ID_PERSONAL", "PERSONALNUMMER", "PERSONALKURZBEZEICHNUNG", txtPersonalnummer);
  row.ShowCode("ID_LOHNARTEN", "LOHNARTENNUMBER", "LOHNARTENNAME", txtLohnart);
  lblStunden.SetCaption(row.IsNull("EINHEITNAME") ? Message(4680) : row.Text("EINHEITNAME"));
  row.Show("STUNDEN", txtStunden, kAmount);
  row.Show("SATZ", txtSatz, kAmount);
  row.Show("PROZENTSATZ", txtProzentsatz, kAmount);
  row.Show("WERT", txtGesamtbetrag, kAmount);
  curStundenId = row.Number("ID");
  SetSubject(curStundenId == 0 ? ""
                               : txtPersonalnummer[0].Text() + " " + txtPersonalnummer[1].Text() + ", " +
                                     txtVerlohnungs[1].Text() + "." + txtVerlohnungs[3].Text());
  SetViewState(true);
}

void F_Arbeitnehmer::SetViewState(bool bolView) {
  ViewSwitch({&btnClose, &DataGridArbeitnehmer},
             {&btnSpeichern[0], &btnSpeichern[1], &btnAbbrechen, &frmErfassung})
      .Set(bolView);
  const CurrentRow row(AdodcArbeitnehmer);
  const bool open_row = !row.IsNull("ID") && row.Number("MODIFY") == 0;
  btnNeu.SetEnabled(bolView && row.Number("MODIFYNEW") == 0);
  btnBearbeiten.SetEnabled(bolView && open_row);
  btnLoschen.SetEnabled(bolView && open_row);
}

// --- rate and amount of the entry ---

void F_Arbeitnehmer::DayLeft() {
  LeaveDay(txtVerlohnungs[0], pay_month_);
  PriceAgain();
}

void F_Arbeitnehmer::PriceAgain() {
  txtLohnart[0].SetTag("");
  txtLohnart[0].LostFocus();
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

std::optional<DateTime> F_Arbeitnehmer::Day() const {
  auto day = pay_month_.FirstDay();
  const auto number = NumberIn(txtVerlohnungs[0]);
  if (!day || !number) return std::nullopt;
  day->day = ToInt32(number->ToDouble());
  return day;
}

void F_Arbeitnehmer::ReadRate() {
  const Recordset rate = Open(wage_rate::OfferedRate(txtLohnart[0].Tag(), txtPersonalnummer[0].Tag(), Day(),
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
  lblStunden.SetCaption(Message(4680));
  txtSatz.SetText("");
}

void F_Arbeitnehmer::ShowAmount() {
  const auto rate = NumberIn(txtSatz), hours = NumberIn(txtStunden);
  const auto amount = rate && hours ? Multiply(*rate, *hours) : std::nullopt;
  const bool priced = amount && HasRow(Db(), sql::HasRate(txtLohnart[0].Tag()));
  txtGesamtbetrag.SetText(priced ? FormatNumber(*amount, kAmount, CurrentLocale()) : "");
}

}  // namespace tarvoni

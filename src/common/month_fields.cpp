#include "src/common/month_fields.h"

#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/services/told_on_leaving.h"
#include "src/context/values/date_text.h"
#include "src/context/values/number_text.h"

namespace tarvoni {
namespace {

// A whole number within bounds, as typed; 0 otherwise.
int WholeIn(const TextBox& box, int low, int high) {
  const auto number = ParseNumber(box.Text(), CurrentLocale());
  if (!number || *number < Decimal(low, 0) || *number > Decimal(high, 0)) return 0;
  const int whole = ToInt32(number->ToDouble());
  return *number == Decimal(whole, 0) ? whole : 0;
}

std::string TwoDigits(int number) {
  return FormatNumber(Decimal(number, 0), "00", CurrentLocale());
}

}  // namespace

void MonthFields::OfferMonths() const {
  if (month_.Locked()) return;
  const auto first = FirstDay();
  std::string text = first ? FormatDate(*first, "mm.yyyy", CurrentLocale()) : "";
  bool accepted = false;
  CurrentSuite().Months().PickMonth(text, context_, accepted);
  const auto chosen = accepted ? ParseDate("01." + text) : std::nullopt;
  if (!chosen) return;
  Set(chosen->year, chosen->month);
  month_.LostFocus();
}

void MonthFields::LeaveMonth() const {
  const int month = Month();
  if (month == 0 && !month_.Empty())
    TellOnLeaving(month_, "Einen Monat " + month_.Text() + " gibt es nicht.");
  month_.SetText(month > 0 ? TwoDigits(month) : "");
  if (!name_) return;
  name_->SetText(month > 0 ? MonthName(month, CurrentLocale()) : "");
}

void MonthFields::Set(int year, int month) const {
  month_.SetText(TwoDigits(month));
  if (year_) year_->SetText(FormatNumber(Decimal(year, 0), "0000", CurrentLocale()));
  LeaveMonth();
}

void MonthFields::Clear() const {
  month_.SetText("");
  LeaveMonth();
  if (year_) year_->SetText("");
}

int MonthFields::Month() const {
  return WholeIn(month_, 1, 12);
}

int MonthFields::Year() const {
  return year_ ? WholeIn(*year_, 1753, 9999) : 0;
}

std::optional<DateTime> MonthFields::FirstDay() const {
  const int month = Month(), year = Year();
  if (month == 0 || year == 0) return std::nullopt;
  return DateTime{.year = year, .month = month, .day = 1};
}

int MonthFields::Key() const {
  const auto first = FirstDay();
  return first ? first->year * 100 + first->month : 0;
}

void LeaveDay(TextBox& day, const MonthFields& month) {
  const auto first = month.FirstDay();
  const int last = first ? DaysInMonth(first->year, first->month) : 31;
  const int number = WholeIn(day, 1, last);
  if (number == 0 && !day.Empty()) {
    const std::string in =
        first ? " im " + MonthName(first->month, CurrentLocale()) + " " + std::to_string(first->year) : "";
    TellOnLeaving(day, "Einen " + day.Text() + ". gibt es" + in + " nicht.");
  }
  day.SetText(number > 0 ? TwoDigits(number) : "");
}

void TakesYear(TextBox& year) {
  constexpr int kDigits = 4, kOfEnding = 2;
  year.LostFocus.Add(Turn::kFilter, [&year] {
    if (year.Empty() || year.Length() == kDigits) return;
    const auto meant = year.Length() == kOfEnding ? ParseDate("01.01." + year.Text()) : std::nullopt;
    if (!meant) TellOnLeaving(year, "Ein Jahr hat zwei oder vier Ziffern: " + year.Text());
    year.SetText(meant ? std::to_string(meant->year) : "");
  });
}

DateTime AddMonths(const DateTime& first_day, int months) {
  const int count = first_day.year * 12 + first_day.month - 1 + months;
  return {.year = count / 12, .month = count % 12 + 1, .day = 1};
}

}  // namespace tarvoni

#pragma once

#include <optional>

#include "src/context/controls/controls.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/values/date_time.h"

namespace tarvoni {

// Boxes that hold a month: its number with two digits, its name, its year with four. Any may be missing.
class MonthFields {
 public:
  MonthFields(const TvnVar_Dll& context, TextBox& month, TextBox* name, TextBox* year)
      : context_(context), month_(month), name_(name), year_(year) {}

  TextBox& MonthBox() const { return month_; }
  // Offers the months unless the box is locked; the chosen one is shown and the box left.
  void OfferMonths() const;

  // The rule on leaving the month: 1 to 12 is shown as "00" with its name; anything else empties both, which is seen.
  void LeaveMonth() const;
  void Set(int year, int month) const;
  void Clear() const;

  int Month() const;  // 1 to 12; 0 for none
  int Year() const;   // 0 for none
  std::optional<DateTime> FirstDay() const;
  // Year times 100 plus month; 0 unless both are there. Compares with MAXLOHNABSCHLUSS.
  int Key() const;

 private:
  const TvnVar_Dll& context_;
  TextBox& month_;
  TextBox* name_;
  TextBox* year_;
};

// The rule on leaving a day: it stays if it lies in the month of the fields, or from 1 to 31 while month or
// year is not known, and is shown as "00"; otherwise it is emptied, which is seen.
void LeaveDay(TextBox& day, const MonthFields& month);

// A box for a year: left with two digits it shows the year that they mean in a date; with one or three it is emptied,
// which is seen.
void TakesYear(TextBox& year);

DateTime AddMonths(const DateTime& first_day, int months);

}  // namespace tarvoni

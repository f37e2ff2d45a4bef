#pragma once

#include <optional>

#include "src/common/guard.h"
#include "src/context/controls/form.h"
#include "src/context/data/tvn_var_dll.h"

namespace tarvoni {

// A box for a date that is typed as text, by the rule of ParseDate. Leaving shows the day as "dd.mm.yyyy". Without a
// year it is that of the day the box showed before, else of the Screen's year. An empty box is no date and no mistake.
// What keys do, `Rules` (box_rules.h) sets up.
class DateField {
 public:
  // What leaving does with a text that is no date. kReport shows message 223, keeps the text and takes the focus
  // back; while the Screen fills its fields it clears, as kClear does.
  enum class Wrong { kReport, kClear };

  // The calendar bears the label's caption.
  DateField(const TvnVar_Dll& context, const Guard& loading, TextBox& box, const Label& label,
            Wrong wrong = Wrong::kReport);
  DateField(const DateField&) = delete;
  DateField& operator=(const DateField&) = delete;

  void Show(const std::optional<DateTime>& day);
  // Nothing for an empty box or a text that is no date.
  std::optional<DateTime> Day() const;

  TextBox& Box() const { return box_; }
  // A text that is no date gives way to the day before.
  void TakeBack();
  // The box got the focus: what it shows now is the day before.
  void Arrive();
  // Fills the box from the calendar and leaves it; a cancelled one changes nothing.
  void Lookup();
  // The check on leaving. False if the text is no date.
  bool Check();

 private:
  const TvnVar_Dll& context_;
  const Guard& loading_;
  TextBox& box_;
  const Label& label_;
  Wrong wrong_;
  std::optional<DateTime> before_;  // the day last shown
};

}  // namespace tarvoni

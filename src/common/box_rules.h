#pragma once

#include <functional>
#include <string>

#include "src/context/controls/form.h"

namespace tarvoni {

class CodeField;
class DateField;
class MonthFields;

// What Enter does once the filter has let it pass.
using EnterRule = std::function<void()>;

EnterRule TabOnEnter(Form& form);          // Tab simulation
EnterRule FocusOnEnter(Control& next);     // next named control
EnterRule NextOpenBoxOnEnter(Form& form);  // next open text box

// Who listens to a box, told in one expression:
//   Rules(txtRotte[0]).Number("000").Code(rotte_).Left([this] { TeamLeft(); });
// They take their turns (Turn), whatever the order of the words.
class Rules {
 public:
  explicit Rules(TextBox& box) : box_(box) {}

  // The mask filters the keys.
  Rules& Keys(const std::string& mask);
  // A number of a fixed size: the mask filters the keys and formats the text on leaving.
  Rules& Number(const std::string& mask);
  Rules& Number(const std::string& key_mask, const std::string& leaving_format);
  // Ctrl opens the codes, leaving checks the typed one. `field` must be this box's.
  Rules& Code(CodeField& field);
  // The number of a month: Ctrl offers the months, leaving shows the month or empties it.
  Rules& Month(const MonthFields& fields);
  // A date typed as text: keys that no date holds are refused, Ctrl opens the calendar on an open box, leaving checks.
  Rules& Date(DateField& field);
  // The Screen's own rule on leaving, behind all others.
  Rules& Left(std::function<void()> rule);

 private:
  TextBox& box_;
};

// Selects the text whenever the control gets the focus, so that typing replaces it; not while it is locked.
void SelectOnFocus(Control& box);
// Runs the rule on Enter, behind the box's filter; the key itself goes no further. Where Enter breaks the line it
// keeps to that.
void OnEnter(Control& box, EnterRule rule);
// Both for every text box, combo box and date of the Screen.
void ConnectBoxes(Form& form, const EnterRule& rule);

}  // namespace tarvoni

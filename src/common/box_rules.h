#pragma once

#include <functional>
#include <string>

#include "src/context/controls/form.h"

// The rules a box can follow. Each sets the events it needs and keeps what the Screen set before.
namespace tarvoni {

// What Enter does once the filter has let it pass.
using EnterRule = std::function<void()>;

EnterRule TabOnEnter(Form& form);          // Tab simulation
EnterRule FocusOnEnter(Control& next);     // next named control
EnterRule NextOpenBoxOnEnter(Form& form);  // next open text box

// Selects the text whenever the control gets the focus, so that typing replaces it; not while it is locked.
void SelectOnFocus(Control& box);
// Runs the rule on Enter, behind the box's filter; the key itself goes no further. Where Enter breaks the line it
// keeps to that.
void OnEnter(Control& box, EnterRule rule);
// Both for every text box, combo box and date of the Screen. Called when the boxes have their filters.
void ConnectBoxes(Form& form, const EnterRule& rule);

// The mask filters the keys.
void NumberKeys(TextBox& box, const std::string& mask);
// A number of a fixed size: the mask filters the keys and formats the text on leaving.
void NumberBox(TextBox& box, const std::string& mask);
void NumberBox(TextBox& box, const std::string& key_mask, const std::string& leaving_format);

// Runs `after` behind the handler an event already has.
template <typename... Args, typename After>
void Append(Event<Args...>& event, After after) {
  event = [before = event, after = std::move(after)](Args... args) mutable {
    before(args...);
    after(args...);
  };
}

}  // namespace tarvoni

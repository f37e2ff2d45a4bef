#pragma once

#include <map>
#include <string>

#include "src/context/controls/form.h"

// The letters that press a button or lead to a field together with Alt, each once on a Screen.
namespace tarvoni {

// In capitals. A command's button has the same letter on every Screen whose caption holds it: Neu, Bearbeiten,
// Speichern, Abbr., Löschen, S&chließen. Then comes the letter behind `&` in a caption, unless a control before it has
// the same; a button without one gets the first free letter of its caption, beginnings of words before others, and so do
// tabs behind the buttons.
std::map<const Control*, char32_t> MnemonicsOf(const Form& form);

// The caption with `&` before the control's letter, if it has one.
std::string CaptionWithMnemonic(const Captioned& control);

}  // namespace tarvoni

#pragma once

#include <optional>
#include <string>

#include "src/context/controls/controls.h"

// The keys that mean the same on every Screen.
namespace tarvoni {

// The shift states of KeyDown.
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;

// The command of a key; nothing for a key that has none. Escape is none: it cancels or closes.
std::optional<Command> CommandOf(int key, int shift);
// The key's name as a tooltip tells it, "Strg+S"; "" for a command without one.
std::string KeyName(Command command);

}  // namespace tarvoni

#pragma once

#include <string_view>
#include <vector>

#include "platform/script/script_run.h"

namespace tarvoni {

enum class CommandUse {
  kAlways,
  kWithoutScreen,  // only while no Screen is open
  kAnswer,         // only where something opened
};

// One command. Its form is what docs/scripts.md shows: small letters stand as they are, capitals for what is given, what
// is in brackets may be left out, and a last word TEXT or … may be of any length.
struct ScriptCommand {
  std::string_view form;
  void (*play)(ScriptRun& run);
  bool rows = false;  // `|` lines may follow
  CommandUse use = CommandUse::kAlways;

  std::string_view Name() const;  // "expect grid"
  std::size_t MostWords() const;  // 0 for any number
};

// The families, a file each.
const std::vector<ScriptCommand>& PreparingCommands();
const std::vector<ScriptCommand>& CallingCommands();
const std::vector<ScriptCommand>& ActingCommands();
const std::vector<ScriptCommand>& AnsweringCommands();
const std::vector<ScriptCommand>& ExpectingCommands();

// The command of a line; null if there is none.
const ScriptCommand* FindCommand(const ScriptLine& line);

}  // namespace tarvoni

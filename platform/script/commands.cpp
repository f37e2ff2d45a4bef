#include "platform/script/commands.h"

#include <algorithm>

namespace tarvoni {
namespace {

std::vector<ScriptCommand> AllCommands() {
  std::vector<ScriptCommand> all;
  for (const auto* family : {&PreparingCommands(), &CallingCommands(), &ActingCommands(),
                             &AnsweringCommands(), &ExpectingCommands()})
    all.insert(all.end(), family->begin(), family->end());
  return all;
}

const std::vector<ScriptCommand>& Commands() {
  static const std::vector<ScriptCommand> commands = AllCommands();
  return commands;
}

const ScriptCommand* Named(std::string_view name) {
  const auto found = std::ranges::find(Commands(), name, &ScriptCommand::Name);
  return found == Commands().end() ? nullptr : &*found;
}

bool IsSmall(char c) {
  return c >= 'a' && c <= 'z';
}

}  // namespace

// The words in small letters that a form begins with.
std::string_view ScriptCommand::Name() const {
  std::size_t end = 0;
  for (std::size_t at = 0; at < form.size() && IsSmall(form[at]);) {
    end = std::min(form.find(' ', at), form.size());
    at = end + 1;
  }
  return form.substr(0, end);
}

std::size_t ScriptCommand::MostWords() const {
  if (form.ends_with("TEXT") || form.ends_with("TEXT]") || form.ends_with("…")) return 0;
  return static_cast<std::size_t>(std::ranges::count(form, ' ')) + 1;
}

const ScriptCommand* FindCommand(const ScriptLine& line) {
  if (line.words.size() > 1) {
    if (const ScriptCommand* command = Named(line.words[0] + " " + line.words[1])) return command;
  }
  return Named(line.words[0]);
}

std::vector<std::string> ScriptCommandForms() {
  std::vector<std::string> forms;
  for (const ScriptCommand& command : Commands()) forms.emplace_back(command.form);
  return forms;
}

}  // namespace tarvoni

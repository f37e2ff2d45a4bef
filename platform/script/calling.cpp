#include "platform/script/commands.h"
#include "src/context/data/handler_scope.h"

namespace tarvoni {
namespace {

// The words NAME=VALUE behind the name of what is called.
ScriptHooks::Values ArgumentsOf(const ScriptRun& run) {
  ScriptHooks::Values arguments;
  for (std::size_t i = 2; i < run.Line().words.size(); ++i) {
    const std::string& word = run.Line().words[i];
    const auto sign = word.find('=');
    if (sign == std::string::npos) run.Fail("Ein Argument hat die Form name=wert: " + word);
    arguments[word.substr(0, sign)] = word.substr(sign + 1);
  }
  return arguments;
}

void CallThrough(ScriptRun& run, const ScriptHooks::Caller& caller) {
  if (!caller) run.Fail("Dieser Aufruf ist hier nicht möglich.");
  const std::string name = run.Word(1, "der Name");
  const ScriptHooks::Values arguments = ArgumentsOf(run);
  const std::size_t line = run.current;
  run.results.clear();
  try {
    HandlerScope running(run.context.dbAdo.get());
    run.results = caller(name, arguments, run.context);
    running.Finish();
  } catch (const DatabaseError& error) {
    run.failure = {.text = error.what(), .number = error.Number()};
  } catch (const std::exception& error) {
    run.failure = {.text = error.what()};
  }
  run.current = line;
}

void Call(ScriptRun& run) {
  CallThrough(run, run.hooks.call);
}

void Run(ScriptRun& run) {
  CallThrough(run, run.hooks.run);
}

void ExpectResult(ScriptRun& run) {
  const auto result = run.results.find(run.Word(2, "der Name des Ergebnisses"));
  if (result == run.results.end()) run.Fail("Der Aufruf hat kein Ergebnis " + run.Line().words[2] + ".");
  if (run.Word(3, "das Gleichheitszeichen") != "=") run.Fail("Es fehlt das Gleichheitszeichen.");
  run.ExpectEqual(result->first, run.Text(4), result->second);
}

void ExpectFailure(ScriptRun& run) {
  if (!run.failure) run.Fail("Der Aufruf ist nicht fehlgeschlagen.");
  const PendingFailure failure = *std::exchange(run.failure, std::nullopt);
  const std::string expected = run.Text(2);
  const bool by_number = IsNumber(expected) && failure.number == std::stoi(expected);
  if (by_number || failure.text.find(expected) != std::string::npos) return;
  const std::string number = failure.number ? std::to_string(failure.number) + ": " : "";
  run.ExpectEqual("Fehler", expected, number + failure.text);
}

}  // namespace

const std::vector<ScriptCommand>& CallingCommands() {
  static const std::vector<ScriptCommand> commands = {
      {"call METHOD NAME=VALUE …", Call},
      {"run SCREEN NAME=VALUE …", Run},
      {"expect result NAME = TEXT", ExpectResult, true},
      {"expect failure TEXT", ExpectFailure, true},
  };
  return commands;
}

}  // namespace tarvoni

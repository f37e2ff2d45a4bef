#include "platform/script/public/script_player.h"

#include <algorithm>

#include "src/context/data/database_error.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "src/context/values/call_error.h"
#include "src/context/values/clock.h"
#include "src/context/values/date_text.h"

namespace tarvoni {

ScriptPlayer::ScriptPlayer(Environment& environment, Driver& driver, ScriptHooks hooks)
    : environment_(environment), driver_(driver), hooks_(std::move(hooks)) {}

const std::map<std::string, ScriptPlayer::Command, std::less<>>& ScriptPlayer::Commands() {
  using P = ScriptPlayer;
  static const std::map<std::string, Command, std::less<>> commands = {
      {"database", {&P::Database}},
      {"demo", {&P::Demo, 2}},
      {"today", {&P::Today, 2}},
      {"locale", {&P::SetLocale, 2}},
      {"context", {&P::SetContext}},
      {"option", {&P::SetOption}},
      {"sql", {&P::Sql}},
      {"remember", {&P::Remember, 1}},
      {"call", {&P::Call}},
      {"run", {&P::Run}},
      {"focus", {&P::FocusControl, 2}},
      {"type", {&P::Type}},
      {"enter", {&P::Enter}},
      {"key", {&P::Key, 3}},
      {"paste", {&P::Paste}},
      {"leave", {&P::Leave, 2}},
      {"click", {&P::Click, 2}},
      {"doubleclick", {&P::DoubleClick, 2}},
      {"mousedown", {&P::MouseDown, 2}},
      {"select", {&P::Select}},
      {"row", {&P::Row}},
      {"head", {&P::Head, 3}},
      {"tab", {&P::Tab, 3}},
      {"close", {&P::Close, 1}},
      {"shot", {&P::Shot, 2}},
      {"expect", {&P::Expect}},
      {"answer", {&P::UnusedAnswer}},
      {"input", {&P::UnusedAnswer}},
      {"pick", {&P::UnusedAnswer}},
      {"date", {&P::UnusedAnswer}},
      {"month", {&P::UnusedAnswer}},
      {"locations", {&P::UnusedAnswer}},
      {"text", {&P::UnusedAnswer}},
  };
  return commands;
}

void ScriptPlayer::Play(Script script) {
  const EnvironmentScope scope(environment_);
  struct FixedClock {
    ~FixedClock() { Clock::Reset(); }
  } fixed_clock;
  script_ = std::move(script);
  current_ = next_ = 0;
  shift_ = 0;
  changed_ = false;
  results_.clear();
  remembered_.reset();
  failure_.reset();
  while (!AtEnd()) RunLine();
  if (failure_) Fail("Der Aufruf schlug fehl: " + *failure_);
}

const ScriptLine& ScriptPlayer::TakeLine() {
  current_ = next_++;
  if (narrator_ && !Line().remark.empty()) narrator_(Line().remark);
  return Line();
}

void ScriptPlayer::RunLine() {
  TakeLine();
  const std::string& word = Line().words[0];
  const bool expects_failure = word == "expect" && Line().words.size() > 1 && Line().words[1] == "failure";
  if (failure_ && !expects_failure) Fail("Der Aufruf davor schlug fehl: " + *failure_);
  const auto command = Commands().find(word);
  if (command == Commands().end()) Fail("Den Befehl \"" + word + "\" gibt es nicht.");
  const auto [action, words] = command->second;
  if (words > 0 && Line().words.size() > words) Fail("Die Zeile hat zu viele Wörter.");
  if (!Line().block.empty() && word != "expect") Fail("Zu diesem Befehl gehören keine Zeilen mit |.");
  try {
    (this->*action)();
  } catch (const DatabaseError& error) {
    Fail("Datenbankfehler " + std::to_string(error.Number()) + ": " + error.what());
  } catch (const std::exception& error) {
    Fail(error.what());
  }
}

bool ScriptPlayer::Step(Form& form) {
  if (!form.IsLoaded()) return false;
  if (AtEnd()) Fail("Das Skript endet, solange " + form.Name() + " geöffnet ist.");
  RunLine();
  return form.IsLoaded();
}

void ScriptPlayer::Fail(const std::string& text) const {
  std::string report = script_.file + ":";
  if (current_ < script_.commands.size()) report += std::to_string(Line().number) + ": " + Line().raw;
  report += "\n  " + text + "\n  Geöffnet: ";
  const auto& forms = environment_.toolkit->OpenForms();
  for (const Form* form : forms) report += (form == forms.front() ? "" : " > ") + form->Name();
  throw ScriptFailure(report + (forms.empty() ? "kein Bildschirm" : ""));
}

void ScriptPlayer::ExpectEqual(const std::string& what, const std::string& expected,
                               const std::string& found) const {
  if (expected != found) Fail(what + ": erwartet \"" + expected + "\", gefunden \"" + found + "\"");
}

const std::string& ScriptPlayer::Word(std::size_t index, const char* meaning) const {
  if (index >= Line().words.size()) Fail(std::string("Es fehlt ") + meaning + ".");
  return Line().words[index];
}

Connection& ScriptPlayer::Db() const {
  if (!context_.dbAdo) Fail("Es ist keine Datenbank geöffnet.");
  return *context_.dbAdo;
}

void ScriptPlayer::Database() {
  if (!environment_.connect) Fail("Es ist nicht festgelegt, wie eine Datenbank geöffnet wird.");
  context_.dbAdo = environment_.connect(Word(1, "die Datenbank"));
  context_.strConString = context_.dbAdo->ConnectionString();
}

void ScriptPlayer::Demo() {
  if (!hooks_.demo) Fail("Hier gibt es keinen Demobetrieb.");
  hooks_.demo(Db(), Line().words.size() > 1 ? Line().words[1] : "");
}

void ScriptPlayer::Today() {
  const auto day = DateTime::FromIso(Word(1, "das Datum"));
  if (!day) Fail("\"" + Line().words[1] + "\" ist kein Datum der Form 2024-03-15.");
  Clock::Set(*day);
}

void ScriptPlayer::SetLocale() {
  const std::string& name = Word(1, "die Sprache");
  if (name != "de" && name != "en") Fail("Es gibt nur die Sprachen de und en.");
  environment_.locale = name == "de" ? Locale::German() : Locale::English();
}

void ScriptPlayer::SetContext() {
  if (!SetMember(context_, Word(1, "der Name"), Text(2)))
    Fail("Der Wert passt zu keinem Feld dieses Namens.");
}

void ScriptPlayer::SetOption() {
  static const std::map<std::string, std::string> columns = {
      {"number", "NUMBER_VALUE"}, {"text", "TEXT_VALUE"}, {"double", "DOUBLE_VALUE"}};
  const auto column = columns.find(Word(2, "number, text oder double"));
  if (column == columns.end()) Fail("Eine Option ist number, text oder double.");
  const Quoted key(Word(1, "der Name der Option"));
  const SqlText literal =
      column->first == "text" ? TextOrNull(Text(3)) : SqlText::Verbatim(Word(3, "der Wert"));
  Db().Execute(Compose("DELETE FROM OPTIONEN WHERE PROPERTY_ID = '{}'", key));
  Db().Execute(Compose("INSERT INTO OPTIONEN (PROPERTY_ID, {}) VALUES ('{}', {})", Name(column->second), key,
                       literal));
}

void ScriptPlayer::Sql() {
  Db().Execute(SqlText::Verbatim(Text(1)));
}
void ScriptPlayer::Remember() {
  if (!hooks_.contents) Fail("Der Inhalt der Datenbank lässt sich hier nicht vergleichen.");
  remembered_ = hooks_.contents(Db());
}
void ScriptPlayer::Call() {
  CallThrough(hooks_.call);
}
void ScriptPlayer::Run() {
  CallThrough(hooks_.run);
}

void ScriptPlayer::CallThrough(
    const std::function<ScriptHooks::Values(const std::string&, const ScriptHooks::Values&, TvnVar_Dll&)>&
        hook) {
  if (!hook) Fail("Dieser Aufruf ist hier nicht möglich.");
  const std::string name = Word(1, "der Name");
  ScriptHooks::Values arguments;
  for (std::size_t i = 2; i < Line().words.size(); ++i) {
    const std::string& word = Line().words[i];
    const auto sign = word.find('=');
    if (sign == std::string::npos) Fail("Ein Argument hat die Form name=wert: " + word);
    arguments[word.substr(0, sign)] = word.substr(sign + 1);
  }
  const std::size_t caller = current_;
  results_.clear();
  try {
    HandlerScope running(context_.dbAdo.get());
    results_ = hook(name, arguments, context_);
    running.Finish();
  } catch (const std::exception& error) {
    failure_ = error.what();
  }
  current_ = caller;
}

}  // namespace tarvoni

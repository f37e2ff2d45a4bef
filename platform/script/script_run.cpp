#include "platform/script/script_run.h"

#include <algorithm>
#include <utility>

#include "platform/script/commands.h"
#include "src/context/data/database_error.h"
#include "src/context/data/password.h"
#include "src/context/values/utf8.h"

namespace tarvoni {

ScriptRun::ScriptRun(Environment& its_environment, Driver& its_driver, ScriptHooks its_hooks,
                     ScriptOptions its_options)
    : environment(its_environment),
      driver(its_driver),
      hooks(std::move(its_hooks)),
      options(std::move(its_options)) {
  if (!hooks.fixtures)
    hooks.fixtures = std::make_shared<std::map<std::string, std::shared_ptr<Connection>>>();
}

void ScriptRun::Begin(Script its_script) {
  script = std::move(its_script);
  current = next = 0;
  said.reset();
  trial = nullptr;
  results.clear();
  failure.reset();
  remembered.reset();
  write_fault->Disarm();
  commit_fault = {};
  fault_ahead = false;
  changed = false;
  shift = 0;
  differences.clear();
}

const ScriptLine& ScriptRun::TakeLine() {
  current = next++;
  if (options.narrator && !Line().remark.empty()) options.narrator(Line().remark);
  return Line();
}

void ScriptRun::PlayLine() {
  TakeLine();
  const auto expects = [this](std::string_view what) {
    return Line().Is("expect") && Line().words.size() > 1 && Line().words[1] == what;
  };
  if (failure && !expects("failure")) Fail("Der Aufruf davor schlug fehl: " + failure->text);
  const bool has_fault = std::exchange(fault_ahead, false);
  const std::size_t line = current;
  PlayTaken();
  if (!has_fault) return;
  current = line;
  SettleFault();
}

void ScriptRun::SettleFault() {
  fault_ahead = false;
  const bool met = commit_fault ? commit_fault() : write_fault->Happened();
  const int writes = write_fault->Writes();
  commit_fault = {};
  write_fault->Disarm();
  if (met) return;
  Fail("Dazu, dass fail eintritt, kam es nicht; geschrieben wurde " + std::to_string(writes) + " Mal.");
}

void ScriptRun::PlayTaken() {
  const ScriptCommand* command = FindCommand(Line());
  if (!command) Fail("Den Befehl \"" + Line().words[0] + "\" gibt es nicht.");
  const std::string form = " Er lautet: " + std::string(command->form);
  const std::size_t most = command->MostWords();
  if (most > 0 && Line().words.size() > most) Fail("Die Zeile hat zu viele Wörter." + form);
  if (!Line().block.empty() && !command->rows) Fail("Zu diesem Befehl gehören keine Zeilen mit |.");
  if (command->use == CommandUse::kAnswer) Fail("Die Antwort wird nicht gebraucht: Es ist nichts geöffnet.");
  if (command->use == CommandUse::kWithoutScreen && environment.toolkit->TopForm())
    Fail("Das geht nur, solange kein Bildschirm geöffnet ist.");
  try {
    command->play(*this);
  } catch (const DatabaseError& error) {
    Fail("Datenbankfehler " + std::to_string(error.Number()) + ": " + error.what());
  } catch (const std::exception& error) {
    Fail(error.what());
  }
}

void ScriptRun::Say(std::vector<std::string> words, int number, const std::string& raw) {
  struct Saying {
    explicit Saying(ScriptRun& its_run) : run(its_run), before(its_run.said) {}
    ~Saying() { run.said = before; }
    ScriptRun& run;
    std::optional<ScriptLine> before;
  } const saying(*this);
  Pretend(std::move(words), number, raw);
  PlayTaken();
}

const ScriptLine& ScriptRun::Pretend(std::vector<std::string> words, int number, const std::string& raw) {
  ScriptLine line;
  line.words = std::move(words);
  line.starts.assign(line.words.size(), 0);
  line.file = Line().file;
  line.number = number;
  line.raw = raw;
  return said.emplace(std::move(line));
}

const std::string& ScriptRun::Word(std::size_t index, const char* meaning) const {
  if (index >= Line().words.size()) Fail(std::string("Es fehlt ") + meaning + ".");
  return Line().words[index];
}

int ScriptRun::Number(std::size_t index, const char* meaning) const {
  const std::string& word = Word(index, meaning);
  if (!IsNumber(word)) Fail("\"" + word + "\" ist keine Zahl.");
  return std::stoi(word);
}

std::string ScriptRun::Report(const std::string& text) const {
  std::string report = script.file + ":";
  if (current < script.commands.size()) {
    report = Line().file + ":" + std::to_string(Line().number) + ": " + WithoutPassword(Line().raw);
  }
  report += "\n  " + WithoutPassword(text) + "\n  Geöffnet: ";
  const auto& forms = environment.toolkit->OpenForms();
  for (const Form* form : forms) report += (form == forms.front() ? "" : " > ") + form->Name();
  return report + (forms.empty() ? "kein Bildschirm" : "");
}

void ScriptRun::Fail(const std::string& text) const {
  std::string report;
  for (const std::string& difference : differences) report += difference + "\n";
  throw ScriptFailure(report + Report(text));
}

void ScriptRun::Differ(const std::string& text) {
  if (!options.all) Fail(text);
  differences.push_back(Report(text));
}

void ScriptRun::ExpectEqual(const std::string& what, const std::string& expected, const std::string& found) {
  if (expected != found) Differ(what + ": erwartet \"" + expected + "\", gefunden \"" + found + "\"");
}

void ScriptRun::ExpectBlock(const std::string& what, const TextRows& found, std::size_t heads) {
  const std::vector<std::string> shown = JoinCells(found);
  TextRows expected_cells, found_cells;
  for (const std::string& line : Line().block) expected_cells.push_back(SplitCells(line));
  for (const std::string& line : shown) found_cells.push_back(SplitCells(line));
  if (Line().unordered) {
    for (TextRows* rows : {&expected_cells, &found_cells})
      std::sort(rows->begin() + static_cast<long>(std::min(heads, rows->size())), rows->end());
  }
  if (expected_cells == found_cells) return;
  if (options.update && Line().file == script.file) return RewriteBlock(shown);
  std::string text = what + ": erwartet";
  for (const std::string& line : Line().block) text.append("\n    ").append(utf8::Trim(line));
  text += "\n  gefunden";
  for (const std::string& line : shown) text += "\n    " + line;
  Differ(text);
}

void ScriptRun::RewriteBlock(const std::vector<std::string>& shown) {
  const auto start = script.lines.begin() + (Line().block_start - 1 + shift);
  const auto old_size = static_cast<long>(Line().block.size());
  script.lines.insert(script.lines.erase(start, start + old_size), shown.begin(), shown.end());
  shift += static_cast<int>(shown.size()) - static_cast<int>(old_size);
  changed = true;
}

Connection& ScriptRun::Db() const {
  if (!context.dbAdo) Fail("Es ist keine Datenbank geöffnet.");
  return *context.dbAdo;
}

Connection& ScriptRun::RealDb() const {
  auto* faulty = dynamic_cast<FaultyConnection*>(&Db());
  return faulty ? faulty->Real() : Db();
}

std::function<bool()> ScriptRun::ArmCommit(int nth) const {
  return hooks.fail_commit ? hooks.fail_commit(RealDb(), nth) : nullptr;
}

Form& ScriptRun::TopForm() const {
  if (Form* form = environment.toolkit->TopForm()) return *form;
  Fail("Es ist kein Bildschirm geöffnet.");
}

Control& ScriptRun::ControlNamed(const std::string& name) const {
  if (Control* control = TopForm().FindByFullName(name)) return *control;
  Fail("Der Bildschirm " + TopForm().Name() + " hat kein Feld " + name + ".");
}

bool HasWord(std::string_view words, std::string_view word) {
  const std::string padded = " " + std::string(words) + " ";
  return padded.find(" " + std::string(word) + " ") != std::string::npos;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.size() < 10 &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace tarvoni

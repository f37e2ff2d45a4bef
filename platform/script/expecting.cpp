#include <algorithm>

#include "platform/script/commands.h"
#include "platform/script/looking.h"
#include "platform/script/trying.h"

namespace tarvoni {
namespace {

TextRows GridRows(Grid& grid) {
  std::vector<int> shown;
  TextRows rows(1);
  for (int i = 0; i < grid.Columns().Count(); ++i) {
    if (!grid.Columns()[i].Visible()) continue;
    shown.push_back(i);
    rows[0].push_back(grid.Columns()[i].Caption());
  }
  for (int row = 0; row < grid.RowCount(); ++row) {
    auto& cells = rows.emplace_back();
    for (const int column : shown) cells.push_back(grid.CellText(row, column));
  }
  return rows;
}

void ExpectScreen(ScriptRun& run) {
  const Form* top = run.environment.toolkit->TopForm();
  run.ExpectEqual("Bildschirm", run.Word(2, "der Name des Bildschirms"), top ? top->Name() : "none");
}

void ExpectGrid(ScriptRun& run) {
  auto& grid = run.ControlOf<Grid>(2, "keine Tabelle");
  run.ExpectBlock(grid.FullName(), GridRows(grid));
}

void ExpectList(ScriptRun& run) {
  auto& list = run.ControlOf<ItemList>(2, "keine Liste");
  TextRows rows;
  for (int i = 0; i < list.ListCount(); ++i) rows.push_back({list.List(i)});
  run.ExpectBlock(list.FullName(), rows, 0);
}

void ExpectRows(ScriptRun& run) {
  Control& control = run.ControlNamed(run.Word(2, "der Name des Feldes"));
  int rows = 0;
  if (const auto* grid = dynamic_cast<Grid*>(&control)) rows = grid->RowCount();
  if (const auto* list = dynamic_cast<ItemList*>(&control)) rows = list->ListCount();
  run.ExpectEqual("Zeilen von " + control.FullName(), run.Word(3, "die Zahl der Zeilen"),
                  std::to_string(rows));
}

void ExpectSql(ScriptRun& run) {
  Recordset rows = run.Db().Open(SqlText::Verbatim(run.Text(2)));
  TextRows found(1);
  if (!rows.IsOpen()) run.Fail("Die Anweisung liefert keine Zeilen.");
  for (const Column& column : rows.Columns()) found[0].push_back(column.name);
  for (const auto& row : rows.GetRows()) {
    auto& cells = found.emplace_back();
    for (const Value& value : row) cells.push_back(ToDisplayText(value));
  }
  run.ExpectBlock("Abfrage", found);
}

void ExpectUnchanged(ScriptRun& run) {
  if (!run.remembered) run.Fail("Es fehlt ein remember davor.");
  for (const auto& [table, contents] : run.hooks.contents(run.Db()))
    run.ExpectEqual("Tabelle " + table, (*run.remembered)[table], contents);
}

void NothingOpen(ScriptRun& run) {
  run.Fail("Es ist nichts geöffnet.");
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::vector<std::string> words;
  for (std::size_t at = 0; (at = text.find_first_not_of(' ', at)) != std::string::npos;) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.push_back(text.substr(at, end - at));
    at = end;
  }
  return words;
}

bool AreStates(Control& control, const std::vector<std::string>& words) {
  return !words.empty() && std::ranges::all_of(words, [&](const std::string& word) {
    return IsInState(control, word).has_value();
  });
}

// The states that hold of those a row names; "nicht" before one that does not.
std::string StatesOf(Control& control, const std::vector<std::string>& words) {
  std::string found;
  for (const std::string& word : words)
    found +=
        (found.empty() ? "" : " ") + std::string(IsInState(control, word).value() ? "" : "nicht ") + word;
  return found;
}

// Each row names a field and what it shows, or its states.
void ExpectFields(ScriptRun& run) {
  TextRows found;
  for (const std::string& line : run.Line().block) {
    auto cells = SplitCells(line);
    cells.resize(2);
    Control* control = run.TopForm().FindByFullName(cells[0]);
    const auto words = WordsOf(cells[1]);
    cells[1] = control && AreStates(*control, words) ? StatesOf(*control, words) : ShownBy(run, cells[0]);
    found.push_back(std::move(cells));
  }
  run.ExpectBlock("Felder", found, 0);
}

void ExpectState(ScriptRun& run, Control& control, const std::string& state) {
  const auto holds = IsInState(control, state);
  if (!holds) run.Fail("Den Zustand \"" + state + "\" gibt es nicht.");
  if (*holds) return;
  const Control* active = run.TopForm().ActiveControl();
  const std::string focus = active ? active->FullName() : "keinem Feld";
  run.Differ(control.FullName() + ": erwartet " + state +
             (state == "focused" ? ", der Fokus steht auf " + focus : ""));
}

// "C = TEXT", "C.Property = V" or "C state"; the Screen's own name stands for its caption.
void ExpectControl(ScriptRun& run) {
  const std::string& subject = run.Word(1, "was erwartet wird");
  if (subject.starts_with("box.")) NothingOpen(run);
  const std::string& second = run.Word(2, "die Erwartung");
  if (second == "=") return run.ExpectEqual(subject, run.Text(3), ShownBy(run, subject));
  if (subject.find('.') != std::string::npos) run.Fail("Es fehlt das Gleichheitszeichen.");
  Control& control = run.ControlNamed(subject);
  for (std::size_t i = 2; i < run.Line().words.size(); ++i) ExpectState(run, control, run.Line().words[i]);
}

}  // namespace

const std::vector<ScriptCommand>& ExpectingCommands() {
  static const std::vector<ScriptCommand> commands = {
      {"try [C] …", TryRows, true},
      {"expect C = TEXT", ExpectControl, true},
      {"expect fields", ExpectFields, true},
      {"expect grid C", ExpectGrid, true},
      {"expect list C", ExpectList, true},
      {"expect rows C N", ExpectRows, true},
      {"expect screen F", ExpectScreen, true},
      {"expect sql TEXT", ExpectSql, true},
      {"expect unchanged", ExpectUnchanged, true},
      {"expect message TEXT", NothingOpen, true},
      {"expect offer", NothingOpen, true},
      {"expect preview", NothingOpen, true},
  };
  return commands;
}

}  // namespace tarvoni

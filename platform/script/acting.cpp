#include <array>

#include "platform/script/commands.h"
#include "platform/script/looking.h"
#include "src/context/services/command_keys.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr std::array<std::pair<std::string_view, int>, 15> kKeys = {{{"Enter", kKeyEnter},
                                                                     {"Tab", kKeyTab},
                                                                     {"Ctrl", kKeyCtrl},
                                                                     {"Escape", kKeyEscape},
                                                                     {"Backspace", kKeyBackspace},
                                                                     {"Delete", kKeyDelete},
                                                                     {"Up", kKeyUp},
                                                                     {"Down", kKeyDown},
                                                                     {"Home", kKeyHome},
                                                                     {"End", kKeyEnd},
                                                                     {"Space", kKeySpace},
                                                                     {"Insert", kKeyInsert},
                                                                     {"F1", kKeyF1},
                                                                     {"F2", kKeyF2},
                                                                     {"F4", kKeyF4}}};

// "Shift+Down" is Down with Shift.
int TakeShift(std::string_view& name) {
  constexpr std::string_view kPrefix = "Shift+";
  if (!name.starts_with(kPrefix)) return 0;
  name.remove_prefix(kPrefix.size());
  return kShift;
}

Control& TheControl(const ScriptRun& run) {
  return run.ControlNamed(run.Word(1, "der Name des Feldes"));
}

int FindItem(const ScriptRun& run, const ItemList& list, const std::string& text) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) == text) return i;
  }
  run.Fail(list.FullName() + " hat keinen Eintrag \"" + text + "\".");
}

// The row with a text in a column, "COLUMN=TEXT"; -1 if there is none.
int FindRowByCell(const ScriptRun& run, Grid& grid, const std::string& name) {
  const auto sign = name.find('=');
  if (sign == std::string::npos) return -1;
  const int column = ColumnNamed(run, grid, name.substr(0, sign));
  for (int row = 0; row < grid.RowCount(); ++row) {
    if (utf8::Trim(grid.CellText(row, column)) == std::string_view(name).substr(sign + 1)) return row;
  }
  return -1;
}

// The row that a script names; -1 if there is none.
int FindGridRow(const ScriptRun& run, Grid& grid, const std::string& name) {
  const int count = grid.RowCount();
  if (name == "first") return count > 0 ? 0 : -1;
  if (name == "last") return count - 1;
  if (name == "next") return grid.Row() + 1 < count ? grid.Row() + 1 : -1;
  if (const auto number = WholeNumber(name)) return *number >= 1 && *number <= count ? *number - 1 : -1;
  return FindRowByCell(run, grid, name);
}

void FocusForKeys(const ScriptRun& run, Control& control) {
  if (control.HasFocus()) return;
  if (!control.CanFocus()) run.Fail(control.FullName() + " kann den Fokus nicht erhalten.");
  if (!run.driver.Focus(control)) run.Fail("Der Fokus gelangt nicht nach " + control.FullName() + ".");
}

void TypeInto(const ScriptRun& run, Control& control, const std::string& text) {
  FocusForKeys(run, control);
  if (auto* date = dynamic_cast<DateControl*>(&control)) {
    const auto day = ParseDate(text, [date] { return date->MissingYear(); });
    if (!day && !text.empty()) run.Fail("\"" + text + "\" ist kein Datum.");
    return run.driver.ChooseDate(*date, day);
  }
  if (auto* combo = dynamic_cast<ComboBox*>(&control); combo && !combo->Editable())
    return run.driver.SelectItem(*combo, FindItem(run, *combo, text));
  run.driver.SelectAll(control);
  if (text.empty()) return run.driver.Key(control, kKeyDelete, 0);
  run.driver.Type(control, text);
}

void EnterInto(const ScriptRun& run, Control& control, const std::string& text) {
  TypeInto(run, control, text);
  FocusForKeys(run, control);
  run.driver.Key(control, kKeyEnter, 0);
}

void Focus(ScriptRun& run) {
  Control& control = TheControl(run);
  if (!control.CanFocus()) run.Fail(control.FullName() + " kann den Fokus nicht erhalten.");
  run.driver.Focus(control);
}

void Type(ScriptRun& run) {
  TypeInto(run, TheControl(run), run.Text(2));
}

void Enter(ScriptRun& run) {
  Control& control = TheControl(run);
  if (run.Line().words.size() > 2) return EnterInto(run, control, run.Text(2));
  FocusForKeys(run, control);
  run.driver.Key(control, kKeyEnter, 0);
}

// What a box opens is answered by the lines behind this one, so the words are taken first.
void Fill(ScriptRun& run) {
  const std::size_t line = run.current;
  run.Word(1, "C=TEXT");
  const auto words = run.Line().words;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const auto sign = words[i].find('=');
    if (sign == std::string::npos) run.Fail("Ein Feld und sein Text haben die Form feld=text: " + words[i]);
    EnterInto(run, run.ControlNamed(words[i].substr(0, sign)), words[i].substr(sign + 1));
  }
  run.current = line;
}

void Key(ScriptRun& run) {
  Control& control = TheControl(run);
  std::string_view name = run.Word(2, "die Taste");
  FocusForKeys(run, control);
  const int shift = TakeShift(name);
  for (const auto& [known, key] : kKeys) {
    if (known == name) return run.driver.Key(control, key, shift);
  }
  if (utf8::Length(name) != 1 || shift != 0)
    run.Fail("Die Taste \"" + std::string(name) + "\" gibt es nicht.");
  run.driver.Type(control, name);
}

void Paste(ScriptRun& run) {
  Control& control = TheControl(run);
  FocusForKeys(run, control);
  run.driver.SelectAll(control);
  run.driver.Paste(control, run.Text(2));
}

void Leave(ScriptRun& run) {
  Control& control = TheControl(run);
  FocusForKeys(run, control);
  run.driver.Key(control, kKeyTab, 0);
}

void Click(ScriptRun& run) {
  run.driver.Click(TheControl(run));
}

void DoubleClick(ScriptRun& run) {
  run.driver.DoubleClick(TheControl(run));
}

void MouseDown(ScriptRun& run) {
  run.driver.MouseDown(TheControl(run));
}

void Select(ScriptRun& run) {
  auto& list = run.ControlOf<ItemList>(1, "keine Liste");
  run.driver.SelectItem(list, FindItem(run, list, run.Text(2)));
}

void ClickRow(ScriptRun& run) {
  auto& grid = run.ControlOf<Grid>(1, "keine Tabelle");
  const int row = FindGridRow(run, grid, run.Text(2));
  if (row < 0) run.Fail(grid.FullName() + " hat keine Zeile " + run.Text(2) + ".");
  run.driver.ClickRow(grid, row);
}

void ClickHead(ScriptRun& run) {
  auto& grid = run.ControlOf<DataGrid>(1, "keine Tabelle einer Datenquelle");
  run.driver.ClickHead(grid, ColumnNamed(run, grid, run.Word(2, "die Spalte")));
}

void ResizeColumn(ScriptRun& run) {
  auto& grid = run.ControlOf<Grid>(1, "keine Tabelle");
  const int column = ColumnNamed(run, grid, run.Word(2, "die Spalte"));
  run.driver.ResizeColumn(grid, column, run.Number(3, "die Breite"));
}

void ChooseTab(ScriptRun& run) {
  auto& tabs = run.ControlOf<TabControl>(1, "kein Register");
  const auto tab = WholeNumber(run.Word(2, "die Nummer der Seite"));
  if (!tab) run.Fail("\"" + run.Line().words[2] + "\" ist keine Nummer einer Seite.");
  run.driver.ChooseTab(tabs, *tab);
}

void Close(ScriptRun& run) {
  run.driver.Close(run.TopForm());
}

void Shot(ScriptRun& run) {
  const std::string name = run.Word(1, "der Name des Bildes");
  run.driver.Shot(run.TopForm(), name);
}

}  // namespace

const std::vector<ScriptCommand>& ActingCommands() {
  static const std::vector<ScriptCommand> commands = {
      {"focus C", Focus},
      {"type C TEXT", Type},
      {"enter C [TEXT]", Enter},
      {"fill C=TEXT …", Fill},
      {"key C KEY", Key},
      {"paste C TEXT", Paste},
      {"leave C", Leave},
      {"click C", Click},
      {"doubleclick C", DoubleClick},
      {"mousedown C", MouseDown},
      {"select C TEXT", Select},
      {"row GRID WHICH …", ClickRow},
      {"head GRID COLUMN", ClickHead},
      {"width GRID COLUMN TWIPS", ResizeColumn},
      {"tab C N", ChooseTab},
      {"close", Close},
      {"shot NAME", Shot},
  };
  return commands;
}

}  // namespace tarvoni

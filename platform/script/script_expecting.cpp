#include <algorithm>

#include "platform/script/public/script_player.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

std::string DateOf(const DateControl& control) {
  return control.Value() ? FormatDate(*control.Value(), "dd.mm.yyyy", CurrentLocale()) : std::string();
}

std::string ContentOf(Control& control) {
  if (const auto* box = dynamic_cast<TextBox*>(&control)) return box->Text();
  if (const auto* combo = dynamic_cast<ComboBox*>(&control)) return combo->Text();
  if (const auto* list = dynamic_cast<ListBox*>(&control)) return list->Text();
  if (const auto* date = dynamic_cast<DateControl*>(&control)) return DateOf(*date);
  if (const auto* check = dynamic_cast<CheckBox*>(&control)) return std::to_string(check->Value());
  if (const auto* option = dynamic_cast<OptionButton*>(&control)) return option->Value() ? "1" : "0";
  if (const auto* tabs = dynamic_cast<TabControl*>(&control)) return std::to_string(tabs->Tab());
  if (const auto* captioned = dynamic_cast<Captioned*>(&control)) return captioned->Caption();
  return {};
}

bool IsLocked(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->Locked();
  const auto* combo = dynamic_cast<const ComboBox*>(&control);
  return combo && combo->Locked();
}

bool IsChecked(const Control& control) {
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) return check->Checked();
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  return option && option->Value();
}

std::vector<std::vector<std::string>> GridRows(Grid& grid) {
  std::vector<int> shown;
  std::vector<std::vector<std::string>> rows(1);
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

}  // namespace

void ScriptPlayer::Expect() {
  static const std::map<std::string, Action, std::less<>> subjects = {
      {"screen", &ScriptPlayer::ExpectScreen},   {"grid", &ScriptPlayer::ExpectGrid},
      {"list", &ScriptPlayer::ExpectList},       {"rows", &ScriptPlayer::ExpectRows},
      {"sql", &ScriptPlayer::ExpectSql},         {"result", &ScriptPlayer::ExpectResult},
      {"failure", &ScriptPlayer::ExpectFailure}, {"unchanged", &ScriptPlayer::ExpectUnchanged}};
  const std::string& subject = Word(1, "was erwartet wird");
  if (subject == "message" || subject == "offer" || subject == "preview") Fail("Es ist nichts geöffnet.");
  const auto known = subjects.find(subject);
  known == subjects.end() ? ExpectControl() : (this->*known->second)();
}

void ScriptPlayer::ExpectScreen() {
  const Form* top = environment_.toolkit->TopForm();
  ExpectEqual("Bildschirm", Word(2, "der Name des Bildschirms"), top ? top->Name() : "none");
}

void ScriptPlayer::ExpectGrid() {
  ExpectBlock(Line().words[1], GridRows(ControlOf<Grid>(2, "keine Tabelle")));
}

void ScriptPlayer::ExpectList() {
  auto& list = ControlOf<ItemList>(2, "keine Liste");
  Rows rows;
  for (int i = 0; i < list.ListCount(); ++i) rows.push_back({list.List(i)});
  ExpectBlock(list.FullName(), rows);
}

void ScriptPlayer::ExpectRows() {
  Control& control = ControlNamed(Word(2, "der Name des Feldes"));
  int rows = 0;
  if (const auto* grid = dynamic_cast<Grid*>(&control)) rows = grid->RowCount();
  if (const auto* list = dynamic_cast<ItemList*>(&control)) rows = list->ListCount();
  ExpectEqual("Zeilen von " + control.FullName(), Word(3, "die Zahl der Zeilen"), std::to_string(rows));
}

void ScriptPlayer::ExpectSql() {
  Recordset rows = Db().Open(SqlText::Verbatim(Text(2)));
  Rows found(1);
  if (!rows.IsOpen()) Fail("Die Anweisung liefert keine Zeilen.");
  for (const Column& column : rows.Columns()) found[0].push_back(column.name);
  for (const auto& row : rows.GetRows()) {
    auto& cells = found.emplace_back();
    for (const Value& value : row) cells.push_back(ToDisplayText(value));
  }
  ExpectBlock("Abfrage", found);
}

void ScriptPlayer::ExpectUnchanged() {
  if (!remembered_) Fail("Es fehlt ein remember davor.");
  for (const auto& [table, contents] : hooks_.contents(Db()))
    ExpectEqual("Tabelle " + table, (*remembered_)[table], contents);
}

void ScriptPlayer::ExpectResult() {
  const auto result = results_.find(Word(2, "der Name des Ergebnisses"));
  if (result == results_.end()) Fail("Der Aufruf hat kein Ergebnis " + Line().words[2] + ".");
  if (Word(3, "das Gleichheitszeichen") != "=") Fail("Es fehlt das Gleichheitszeichen.");
  ExpectEqual(result->first, Text(4), result->second);
}

void ScriptPlayer::ExpectFailure() {
  if (!failure_) Fail("Der Aufruf ist nicht fehlgeschlagen.");
  if (failure_->find(Text(2)) == std::string::npos) ExpectEqual("Fehler", Text(2), *failure_);
  failure_.reset();
}

// "C = TEXT", "C.Property = V" or "C state"; the Screen's own name stands for its caption.
void ScriptPlayer::ExpectControl() {
  const std::string& subject = Line().words[1];
  const std::string& second = Word(2, "die Erwartung");
  if (subject == TopForm().Name() && second == "=") return ExpectEqual("Titel", Text(3), TopForm().Caption());
  const auto point = subject.find('.');
  Control& control = ControlNamed(subject.substr(0, point));
  if (point != std::string::npos) {
    if (second != "=") Fail("Es fehlt das Gleichheitszeichen.");
    return ExpectEqual(subject, Text(3), Property(control, subject.substr(point + 1)));
  }
  if (second == "=") return ExpectEqual(subject, Text(3), ContentOf(control));
  ExpectState(control, second);
}

void ScriptPlayer::ExpectState(Control& control, const std::string& state) const {
  const std::map<std::string, bool> states = {
      {"enabled", control.IsEnabled()},  {"disabled", !control.IsEnabled()},
      {"locked", IsLocked(control)},     {"unlocked", !IsLocked(control)},
      {"visible", control.IsVisible()},  {"hidden", !control.IsVisible()},
      {"focused", control.HasFocus()},   {"checked", IsChecked(control)},
      {"unchecked", !IsChecked(control)}};
  const auto known = states.find(state);
  if (known == states.end()) Fail("Den Zustand \"" + state + "\" gibt es nicht.");
  if (known->second) return;
  const Control* active = TopForm().ActiveControl();
  const std::string focus = active ? active->FullName() : "keinem Feld";
  Fail(control.FullName() + ": erwartet " + state +
       (state == "focused" ? ", der Fokus steht auf " + focus : ""));
}

std::string ScriptPlayer::Property(Control& control, const std::string& name) const {
  if (name == "Tag") return control.Tag();
  if (name == "Enabled") return control.Enabled() ? "1" : "0";
  if (name == "Text" || name == "Value" || name == "Tab") return ContentOf(control);
  if (const auto* captioned = dynamic_cast<Captioned*>(&control); captioned && name == "Caption") {
    return captioned->Caption();
  }
  if (const auto* list = dynamic_cast<ItemList*>(&control)) {
    if (name == "ListIndex") return std::to_string(list->ListIndex());
    if (name == "ItemData") return std::to_string(list->SelectedData());
  }
  if (const auto* box = dynamic_cast<TextBox*>(&control)) {
    if (name == "MaxLength") return std::to_string(box->MaxLength());
    if (name == "SelText") return box->SelText();
  }
  if (const auto* grid = dynamic_cast<Grid*>(&control); grid && name == "Row")
    return std::to_string(grid->Row() + 1);
  if (auto* tabs = dynamic_cast<TabControl*>(&control); tabs && name.starts_with("Caption")) {
    return tabs->TabCaption(name.size() > 7 ? name[7] - '0' : tabs->Tab());
  }
  Fail(control.FullName() + " hat keine Eigenschaft " + name + ".");
}

void ScriptPlayer::ExpectBlock(const std::string& what, const Rows& found) {
  const std::vector<std::string> shown = JoinCells(found);
  Rows expected_cells, found_cells;
  for (const std::string& line : Line().block) expected_cells.push_back(SplitCells(line));
  for (const std::string& line : shown) found_cells.push_back(SplitCells(line));
  if (expected_cells == found_cells) return;
  if (updating_) {
    const auto start = script_.lines.begin() + (Line().block_start - 1 + shift_);
    const auto old_size = static_cast<long>(Line().block.size());
    script_.lines.insert(script_.lines.erase(start, start + old_size), shown.begin(), shown.end());
    shift_ += static_cast<int>(shown.size()) - static_cast<int>(old_size);
    changed_ = true;
    return;
  }
  std::string text = what + ": erwartet";
  for (const std::string& line : Line().block) text.append("\n    ").append(utf8::Trim(line));
  text += "\n  gefunden";
  for (const std::string& line : shown) text += "\n    " + line;
  Fail(text);
}

}  // namespace tarvoni

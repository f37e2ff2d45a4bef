#include <algorithm>
#include <charconv>

#include "platform/script/public/script_player.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

const std::map<std::string, int, std::less<>>& KeyNames() {
  static const std::map<std::string, int, std::less<>> names = {{"Enter", kKeyEnter},
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
                                                                {"F1", kKeyF1},
                                                                {"F4", kKeyF4}};
  return names;
}

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

int FindItem(const ItemList& list, const std::string& text) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) == text) return i;
  }
  return -1;
}

// The row that a script names; -1 if there is none.
int FindGridRow(Grid& grid, const std::string& name) {
  const int count = grid.RowCount();
  if (name == "first") return count > 0 ? 0 : -1;
  if (name == "last") return count - 1;
  if (name == "next") return grid.Row() + 1 < count ? grid.Row() + 1 : -1;
  if (const auto number = WholeNumber(name)) return *number >= 1 && *number <= count ? *number - 1 : -1;
  const auto sign = name.find('=');
  if (sign == std::string::npos) return -1;
  const GridColumn& wanted = grid.Columns()[std::string_view(name).substr(0, sign)];
  const int column = static_cast<int>(&wanted - &grid.Columns()[0]);
  for (int row = 0; row < count; ++row) {
    if (utf8::Trim(grid.CellText(row, column)) == std::string_view(name).substr(sign + 1)) return row;
  }
  return -1;
}

}  // namespace

Form& ScriptPlayer::TopForm() const {
  if (Form* form = environment_.toolkit->TopForm()) return *form;
  Fail("Es ist kein Bildschirm geöffnet.");
}

Control& ScriptPlayer::ControlNamed(const std::string& name) const {
  if (Control* control = TopForm().FindByFullName(name)) return *control;
  Fail("Der Bildschirm " + TopForm().Name() + " hat kein Feld " + name + ".");
}

template <typename T>
T& ScriptPlayer::ControlOf(std::size_t word, const char* kind) const {
  Control& control = ControlNamed(Word(word, "der Name des Feldes"));
  if (auto* typed = dynamic_cast<T*>(&control)) return *typed;
  Fail(control.FullName() + " ist " + kind + ".");
}

void ScriptPlayer::FocusForKeys(Control& control) {
  if (control.HasFocus()) return;
  if (!control.CanFocus()) Fail(control.FullName() + " kann den Fokus nicht erhalten.");
  if (!driver_.Focus(control)) Fail("Der Fokus gelangt nicht nach " + control.FullName() + ".");
}

void ScriptPlayer::FocusControl() {
  Control& control = ControlNamed(Word(1, "der Name des Feldes"));
  if (!control.CanFocus()) Fail(control.FullName() + " kann den Fokus nicht erhalten.");
  driver_.Focus(control);
}

void ScriptPlayer::Type() {
  TypeInto(ControlNamed(Word(1, "der Name des Feldes")), Text(2));
}

void ScriptPlayer::TypeInto(Control& control, const std::string& text) {
  FocusForKeys(control);
  if (auto* date = dynamic_cast<DateControl*>(&control)) {
    const auto day = ParseDate(text, date->Value());
    if (!day && !text.empty()) Fail("\"" + text + "\" ist kein Datum.");
    return driver_.ChooseDate(*date, day);
  }
  if (auto* combo = dynamic_cast<ComboBox*>(&control); combo && !combo->Editable()) {
    const int item = FindItem(*combo, text);
    if (item < 0) Fail(combo->FullName() + " hat keinen Eintrag \"" + text + "\".");
    return driver_.SelectItem(*combo, item);
  }
  driver_.SelectAll(control);
  if (text.empty()) return driver_.Key(control, kKeyDelete);
  driver_.Type(control, text);
}

void ScriptPlayer::Enter() {
  Control& control = ControlNamed(Word(1, "der Name des Feldes"));
  if (Line().words.size() > 2) TypeInto(control, Text(2));
  FocusForKeys(control);
  driver_.Key(control, kKeyEnter);
}

void ScriptPlayer::Key() {
  Control& control = ControlNamed(Word(1, "der Name des Feldes"));
  const std::string& name = Word(2, "die Taste");
  FocusForKeys(control);
  const auto known = KeyNames().find(name);
  if (known != KeyNames().end()) return driver_.Key(control, known->second);
  if (utf8::Length(name) != 1) Fail("Die Taste \"" + name + "\" gibt es nicht.");
  driver_.Type(control, name);
}

void ScriptPlayer::Paste() {
  Control& control = ControlNamed(Word(1, "der Name des Feldes"));
  FocusForKeys(control);
  driver_.SelectAll(control);
  driver_.Paste(control, Text(2));
}

void ScriptPlayer::Leave() {
  Control& control = ControlNamed(Word(1, "der Name des Feldes"));
  FocusForKeys(control);
  driver_.Key(control, kKeyTab);
}

void ScriptPlayer::Click() {
  driver_.Click(ControlNamed(Word(1, "der Name des Feldes")));
}
void ScriptPlayer::DoubleClick() {
  driver_.DoubleClick(ControlNamed(Word(1, "der Name des Feldes")));
}
void ScriptPlayer::MouseDown() {
  driver_.MouseDown(ControlNamed(Word(1, "der Name des Feldes")));
}

void ScriptPlayer::Select() {
  auto& list = ControlOf<ItemList>(1, "keine Liste");
  const int item = FindItem(list, Text(2));
  if (item < 0) Fail(list.FullName() + " hat keinen Eintrag \"" + Text(2) + "\".");
  driver_.SelectItem(list, item);
}

void ScriptPlayer::Row() {
  auto& grid = ControlOf<Grid>(1, "keine Tabelle");
  const int row = FindGridRow(grid, Text(2));
  if (row < 0) Fail(grid.FullName() + " hat keine Zeile " + Text(2) + ".");
  driver_.ClickRow(grid, row);
}

void ScriptPlayer::Head() {
  auto& grid = ControlOf<DataGrid>(1, "keine Tabelle einer Datenquelle");
  GridColumn& column = grid.Columns()[Word(2, "die Spalte")];
  driver_.ClickHead(grid, static_cast<int>(&column - &grid.Columns()[0]));
}

void ScriptPlayer::Tab() {
  auto& tabs = ControlOf<TabControl>(1, "kein Register");
  const auto tab = WholeNumber(Word(2, "die Nummer der Seite"));
  if (!tab) Fail("\"" + Line().words[2] + "\" ist keine Nummer einer Seite.");
  driver_.ChooseTab(tabs, *tab);
}

void ScriptPlayer::Close() {
  driver_.Close(TopForm());
}

void ScriptPlayer::Shot() {
  const std::string name = Word(1, "der Name des Bildes");
  driver_.Shot(TopForm(), name);
}

}  // namespace tarvoni

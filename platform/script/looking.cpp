#include "platform/script/looking.h"

#include <array>
#include <charconv>
#include <functional>

#include "src/context/values/date_text.h"

namespace tarvoni {
namespace {

std::string DateOf(const DateControl& control) {
  return control.Value() ? FormatDate(*control.Value(), "dd.mm.yyyy", CurrentLocale()) : std::string();
}

bool IsLocked(const Control& control) {
  const auto* input = dynamic_cast<const InputControl*>(&control);
  return input && input->Locked();
}

bool IsChecked(const Control& control) {
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) return check->Checked();
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  return option && option->Value();
}

std::string Flag(bool flag) {
  return flag ? "1" : "0";
}

std::string ColorName(Color color) {
  if (color == kWindowBackground) return "window";
  if (color == kButtonFace) return "buttonface";
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), color, 16).ptr;
  return {digits.data(), end};
}

// A property's name with what stands in brackets behind it: "Width(NAME)".
struct PropertyName {
  explicit PropertyName(const std::string& text) : name(text.substr(0, text.find('('))) {
    if (name.size() < text.size() && text.ends_with(')'))
      part = text.substr(name.size() + 1, text.size() - name.size() - 2);
  }
  std::string name;
  std::string part;
};

using Found = std::optional<std::string>;

Found OfColumn(const ScriptRun& run, Grid& grid, const PropertyName& property) {
  if (property.part.empty()) return std::nullopt;
  const GridColumn& column = grid.Columns()[ColumnNamed(run, grid, property.part)];
  if (property.name == "Width") return std::to_string(column.Width());
  if (property.name == "Caption") return column.Caption();
  if (property.name == "Visible") return Flag(column.Visible());
  return std::nullopt;
}

// "Caption(1)", "Caption1" and "Enabled(1)" are those of a tab, "Caption" that of the tab shown.
Found OfTab(const ScriptRun& run, const TabControl& tabs, const PropertyName& property) {
  const bool short_form = property.name.starts_with("Caption") && property.name.size() > 7;
  const std::string number = short_form ? property.name.substr(7) : property.part;
  const auto tab = number.empty() ? std::optional(tabs.Tab()) : WholeNumber(number);
  if (!tab || *tab < 0 || *tab >= tabs.Tabs()) run.Fail("Die Seite " + number + " gibt es nicht.");
  if (short_form || property.name == "Caption") return tabs.TabCaption(*tab);
  if (property.name == "Enabled" && !property.part.empty()) return Flag(tabs.TabEnabled(*tab));
  return std::nullopt;
}

Found OfList(const ItemList& list, std::string_view name) {
  if (name == "ListIndex") return std::to_string(list.ListIndex());
  if (name == "Rows") return std::to_string(list.ListCount());
  if (name == "ItemData") return std::to_string(list.SelectedData());
  return std::nullopt;
}

Found OfInput(const InputControl& box, std::string_view name) {
  if (name == "Locked") return Flag(box.Locked());
  if (name == "BackColor") return ColorName(box.BackColor());
  return std::nullopt;
}

Found OfKind(const ScriptRun& run, Control& control, const PropertyName& property) {
  const std::string& name = property.name;
  Found found;
  if (const auto* list = dynamic_cast<ItemList*>(&control)) found = OfList(*list, name);
  if (const auto* input = dynamic_cast<InputControl*>(&control); input && !found)
    found = OfInput(*input, name);
  if (const auto* box = dynamic_cast<TextBox*>(&control)) {
    if (name == "MaxLength") found = std::to_string(box->MaxLength());
    if (name == "SelText") found = box->SelText();
  }
  if (auto* grid = dynamic_cast<Grid*>(&control)) {
    found = OfColumn(run, *grid, property);
    if (name == "Row") found = std::to_string(grid->Row() + 1);
    if (name == "Rows") found = std::to_string(grid->RowCount());
  }
  if (const auto* tabs = dynamic_cast<TabControl*>(&control)) found = OfTab(run, *tabs, property);
  return found;
}

Found OfAny(Control& control, std::string_view name) {
  if (name == "Tag") return control.Tag();
  if (name == "Enabled") return Flag(control.Enabled());
  if (name == "TabStop") return Flag(control.TabStop());
  if (name == "Text" || name == "Value" || name == "Tab") return ContentOf(control);
  const auto* captioned = dynamic_cast<Captioned*>(&control);
  return captioned && name == "Caption" ? Found(captioned->Caption()) : std::nullopt;
}

// What the window of the Screen on top tells around its fields.
Found OfScreen(const ScriptRun& run, std::string_view name) {
  const Form& top = run.TopForm();
  if (name == "Title") return run.environment.toolkit->Titled(top.Caption(), top);
  if (name == "Status") return run.environment.toolkit->LastTold();
  return std::nullopt;
}

}  // namespace

std::string ContentOf(Control& control) {
  if (const auto* box = dynamic_cast<TextBox*>(&control)) return box->Text();
  if (const auto* combo = dynamic_cast<ComboBox*>(&control)) return combo->Text();
  if (const auto* list = dynamic_cast<ListBox*>(&control)) return list->Text();
  if (const auto* date = dynamic_cast<DateControl*>(&control)) return DateOf(*date);
  if (const auto* check = dynamic_cast<CheckBox*>(&control)) return std::to_string(check->Value());
  if (const auto* option = dynamic_cast<OptionButton*>(&control)) return Flag(option->Value());
  if (const auto* tabs = dynamic_cast<TabControl*>(&control)) return std::to_string(tabs->Tab());
  if (const auto* captioned = dynamic_cast<Captioned*>(&control)) return captioned->Caption();
  return {};
}

std::string ShownBy(const ScriptRun& run, const std::string& subject) {
  if (subject == run.TopForm().Name()) return run.TopForm().Caption();
  const auto point = subject.find('.');
  if (point != std::string::npos && subject.substr(0, point) == run.TopForm().Name()) {
    if (const Found found = OfScreen(run, subject.substr(point + 1))) return *found;
  }
  Control& control = run.ControlNamed(subject.substr(0, point));
  if (point == std::string::npos) return ContentOf(control);
  const PropertyName property(subject.substr(point + 1));
  Found found = OfKind(run, control, property);
  if (!found && property.part.empty()) found = OfAny(control, property.name);
  if (!found) run.Fail(control.FullName() + " hat keine Eigenschaft " + subject.substr(point + 1) + ".");
  return *found;
}

std::optional<bool> IsInState(Control& control, std::string_view state) {
  if (state == "enabled") return control.IsEnabled();
  if (state == "disabled") return !control.IsEnabled();
  if (state == "locked") return IsLocked(control);
  if (state == "unlocked") return !IsLocked(control);
  if (state == "visible") return control.IsVisible();
  if (state == "hidden") return !control.IsVisible();
  if (state == "focused") return control.HasFocus();
  if (state == "checked") return IsChecked(control);
  if (state == "unchecked") return !IsChecked(control);
  return std::nullopt;
}

int ColumnNamed(const ScriptRun& run, Grid& grid, const std::string& name) {
  if (const GridColumn* column = grid.Columns().Find(name))
    return static_cast<int>(column - &grid.Columns()[0]);
  const auto number = WholeNumber(name);
  if (!number || *number < 1 || *number > grid.Columns().Count())
    run.Fail(grid.FullName() + " hat keine Spalte " + name + ".");
  return *number - 1;
}

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace tarvoni

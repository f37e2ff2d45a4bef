#include "platform/headless/public/headless_toolkit.h"

#include "src/context/values/call_error.h"

namespace tarvoni {

UserActions& HeadlessToolkit::Top() const {
  if (users_.empty()) throw CallError("Es ist kein Bildschirm geöffnet.");
  return *users_.back();
}

void HeadlessToolkit::DoShowModal(Form& form) {
  struct Shown {
    Shown(std::vector<UserActions*>& users, UserActions& user) : users_(users) { users_.push_back(&user); }
    ~Shown() { users_.pop_back(); }
    std::vector<UserActions*>& users_;
  };
  UserActions user(form, *this);
  const Shown shown(users_, user);
  user.Open();
  user.RunTimers();
  while (form.IsLoaded() && Other().Step(form)) {
  }
}

template <typename Action>
void HeadlessToolkit::As(Action action) {
  UserActions& user = Top();
  action(user);
  user.RunTimers();
}

bool HeadlessToolkit::Focus(Control& control) {
  As([&](UserActions& user) { user.Focus(control); });
  return control.HasFocus();
}

void HeadlessToolkit::Key(Control&, int key, int shift) {
  As([&](UserActions& user) { user.Key(key, shift); });
}

void HeadlessToolkit::Type(Control&, std::string_view text) {
  As([&](UserActions& user) { user.Type(text); });
}

void HeadlessToolkit::Paste(Control&, std::string_view text) {
  As([&](UserActions& user) { user.Paste(text); });
}

void HeadlessToolkit::SelectAll(Control& control) {
  Top().StopWaiting();
  if (auto* box = dynamic_cast<TextBox*>(&control)) box->SelectAll();
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) combo->SelectAll();
}

void HeadlessToolkit::Click(Control& control) {
  As([&](UserActions& user) { user.Click(control); });
}

void HeadlessToolkit::DoubleClick(Control& control) {
  As([&](UserActions& user) { user.DoubleClick(control); });
}

void HeadlessToolkit::MouseDown(Control& control) {
  As([&](UserActions& user) { user.MouseDown(control); });
}

void HeadlessToolkit::SelectItem(ItemList& list, int index) {
  As([&](UserActions& user) { user.SelectItem(list, index); });
}

void HeadlessToolkit::ChooseDate(DateControl& control, const std::optional<DateTime>& date) {
  As([&](UserActions& user) { user.ChooseDate(control, date); });
}

void HeadlessToolkit::ChooseTab(TabControl& tabs, int tab) {
  As([&](UserActions& user) { user.ChooseTab(tabs, tab); });
}

void HeadlessToolkit::ClickRow(Grid& grid, int row) {
  As([&](UserActions& user) { user.ClickRow(grid, row); });
}

void HeadlessToolkit::ClickHead(DataGrid& grid, int column) {
  As([&](UserActions& user) { user.ClickHead(grid, column); });
}

void HeadlessToolkit::ResizeColumn(Grid& grid, int column, int twips) {
  As([&](UserActions& user) { user.ResizeColumn(grid, column, twips); });
}

void HeadlessToolkit::Close(Form&) {
  As([](UserActions& user) { user.Close(); });
}

}  // namespace tarvoni

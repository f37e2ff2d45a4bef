#include "src/context/services/user_actions.h"

#include <algorithm>
#include <utility>

#include "src/context/data/error_text.h"
#include "src/context/data/handler_scope.h"
#include "src/context/services/mnemonics.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr const char* kErrorTitle = "Tarvoni";

// Sets a value for the length of a scope.
template <typename T>
class Held {
 public:
  Held(T& place, T value) : place_(place), before_(std::exchange(place, value)) {}
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() { place_ = before_; }

 private:
  T& place_;
  T before_;
};

}  // namespace

UserActions::UserActions(Form& form, Toolkit& toolkit) : form_(form), toolkit_(toolkit) {
  form_.SetHost(this);
}

UserActions::~UserActions() {
  form_.SetHost(nullptr);
}

void UserActions::Open() {
  Act([this] {
    Handle([this] { form_.Form_Activate(); });
    Control* first = form_.ActiveControl();
    if (!first || !first->CanFocus()) first = form_.NextInTabOrder(nullptr);
    form_.SetActiveControl(nullptr);
    if (first && form_.IsLoaded()) Arrive(*first);
  });
}

void UserActions::Act(const std::function<void()>& action) {
  if (!form_.IsLoaded()) return;
  if (acting_) return action();  // from within a window that this action opened
  const Held acting(acting_, true);
  action();
  while (!posted_.empty() && form_.IsLoaded()) {
    const int key = posted_.front();
    posted_.pop_front();
    PressKey(key, 0);
  }
  SettleFocus();
}

bool UserActions::Handle(const std::function<void()>& handler) {
  if (!form_.IsLoaded()) return false;
  try {
    HandlerScope running(handling_ == 0 ? form_.HandlerConnection() : nullptr);
    const Held handling(handling_, handling_ + 1);
    handler();
    running.Finish();
    return true;
  } catch (const std::exception& error) {
    Report(error);
    return false;
  }
}

void UserActions::Report(const std::exception& error) {
  toolkit_.MessageBox(ErrorText(error), kBoxStop, kErrorTitle);
}

bool UserActions::Arrive(Control& target) {
  if (leaving_) {
    redirected_ = &target;
    return false;
  }
  if (form_.ActiveControl() == &target) return true;
  if (handling_ == 0 && !MayGoTo(target)) return false;
  if (!Leave(target) || !form_.IsLoaded()) return false;
  Control* arrived = redirected_ ? redirected_ : &target;
  // The handler of the field being left may have closed the one that was aimed at.
  if (!arrived->CanFocus()) arrived = form_.ActiveControl();
  if (!arrived) return false;
  form_.SetActiveControl(arrived);
  Handle([arrived] { arrived->GotFocus(); });
  return form_.ActiveControl() == &target;
}

bool UserActions::MayGoTo(const Control& target) {
  const auto* const button = dynamic_cast<const Button*>(&target);
  const bool gives_up = button && (button->Does() == Command::kCancel || button->Does() == Command::kClose);
  return gives_up || !HoldsOff();
}

// Validate and LostFocus of the active control. A handler's own wish for the focus waits in redirected_, so
// that a message raised here is not raised again when the focus returns.
bool UserActions::Leave(Control& target) {
  redirected_ = nullptr;
  Control* const from = form_.ActiveControl();
  if (!from) return true;
  const Held leaving(leaving_, true);
  if (target.CausesValidation()) {
    bool cancel = false;
    const bool passed = Handle([&] { from->Validate(cancel); });
    if (!passed || cancel) {
      form_.SetActiveControl(from);
      return false;
    }
  }
  Handle([from] { from->LostFocus(); });
  return true;
}

void UserActions::SettleFocus() {
  Control* const active = form_.ActiveControl();
  if (!form_.IsLoaded() || (active && active->CanFocus())) return;
  // Behind a button that switched itself off may stand another that opens something: the list is safer.
  Control* next = dynamic_cast<Button*>(active) ? OpenList() : nullptr;
  if (!next) next = form_.NextInTabOrder(active);
  form_.SetActiveControl(next);
  if (next) Handle([next] { next->GotFocus(); });
}

Control* UserActions::OpenList() const {
  const auto open = [](const Control* control) {
    return dynamic_cast<const Grid*>(control) && control->CanFocus();
  };
  const auto found = std::ranges::find_if(form_.Controls(), open);
  return found == form_.Controls().end() ? nullptr : *found;
}

bool UserActions::Focus(Control& target) {
  Act([&] {
    if (target.CanFocus()) Arrive(target);
  });
  return form_.ActiveControl() == &target;
}

void UserActions::Click(Control& control) {
  Act([&] {
    if (!control.IsEnabled() || !control.IsVisible()) return;
    if (control.TakesFocus() && !Arrive(control) && control.CausesValidation()) return;
    Handle([&] { control.MouseDown(1); });
    if (control.IsEnabled()) ClickSelf(control);
  });
}

void UserActions::ClickSelf(Control& control) {
  if (auto* button = dynamic_cast<Button*>(&control)) return PressButton(*button);
  auto* const check = dynamic_cast<CheckBox*>(&control);
  auto* const option = dynamic_cast<OptionButton*>(&control);
  if (check || option) Entered();
  Handle([&] {
    if (check) return check->SetChecked(!check->Checked());
    if (option) return option->SetValue(true);
    control.Click();
  });
}

void UserActions::DoubleClick(Control& control) {
  Act([&] {
    Click(control);
    SecondClick(control);
  });
}

void UserActions::SecondClick(Control& control) {
  Act([&] {
    if (control.IsEnabled() && control.IsVisible()) Handle([&] { control.DblClick(); });
  });
}

void UserActions::MouseDown(Control& control, int button) {
  Act([&] {
    if (!control.IsEnabled() || !control.IsVisible()) return;
    if (control.TakesFocus() && !Arrive(control)) return;
    Handle([&] { control.MouseDown(button); });
  });
}

bool UserActions::Mnemonic(char32_t letter) {
  if (HoldsOff()) return true;
  const char32_t wanted = utf8::Upper(letter);
  const auto letters = MnemonicsOf(form_);
  const auto named = std::ranges::find_if(form_.Controls(), [&](const Control* control) {
    const auto own = letters.find(control);
    return own != letters.end() && own->second == wanted && control->IsEnabled() && control->IsVisible();
  });
  if (named == form_.Controls().end()) return false;
  if (const auto* page = dynamic_cast<TabPage*>(*named))
    ChooseTab(dynamic_cast<TabControl&>(*page->Container()), page->Number());
  else if ((*named)->TakesFocus())
    Click(**named);
  else if (Control* next = form_.NextInTabOrder(*named))
    Focus(*next);
  return true;
}

void UserActions::SelectItem(ItemList& list, int index) {
  Act([&] {
    if (!list.IsEnabled() || !list.IsVisible() || !Arrive(list)) return;
    if (list.Locked()) return;
    if (index != list.ListIndex()) Entered();
    Handle([&] { list.SetListIndex(index); });
  });
}

void UserActions::MarkTo(MultiListBox& list, int index) {
  MarkItems(list, [&] { list.MarkTo(index); });
}

void UserActions::ToggleMark(MultiListBox& list, int index) {
  MarkItems(list, [&] { list.Toggle(index); });
}

void UserActions::MarkAll(MultiListBox& list) {
  MarkItems(list, [&] { list.MarkAll(); });
}

void UserActions::MarkItems(MultiListBox& list, const std::function<void()>& mark) {
  Act([&] {
    if (list.IsEnabled() && list.IsVisible() && Arrive(list) && !list.Locked()) Handle(mark);
  });
}

void UserActions::ChooseDate(DateControl& control, std::optional<DateTime> date) {
  Act([&] {
    if (!control.IsEnabled() || !control.IsVisible() || !Arrive(control) || control.Locked()) return;
    if (date) date = std::clamp(*date, control.MinDate(), control.MaxDate());
    if (date != control.Value()) Entered();
    Handle([&] { control.SetValue(date); });
  });
}

void UserActions::ChooseTab(TabControl& tabs, int tab) {
  Act([&] {
    if (!tabs.IsEnabled() || !tabs.IsVisible() || !tabs.TabEnabled(tab) || !Arrive(tabs)) return;
    Handle([&] { tabs.SetTab(tab); });
  });
}

void UserActions::ClickRow(Grid& grid, int row) {
  Act([&] {
    if (!grid.IsEnabled() || !grid.IsVisible() || !Arrive(grid)) return;
    if (auto* data_grid = dynamic_cast<DataGrid*>(&grid)) MoveRow(*data_grid, row);
    if (auto* flex_grid = dynamic_cast<FlexGrid*>(&grid)) Handle([&] { flex_grid->SetRow(row); });
    if (grid.IsEnabled()) ClickSelf(grid);
  });
}

void UserActions::MoveRow(DataGrid& grid, int row) {
  Act([&] {
    if (!grid.IsEnabled() || !grid.Data() || row < 0 || row >= grid.RowCount() || row == grid.Row()) return;
    Handle([&] { grid.Data()->Recordset().SetAbsolutePosition(row + 1); });
  });
}

void UserActions::ClickHead(DataGrid& grid, int column) {
  Act([&] {
    if (!grid.IsEnabled() || !grid.Data()) return;
    if (grid.HeadClick) {
      Handle([&] { grid.HeadClick(column); });
      return;
    }
    if (grid.RowCount() == 0) return;
    Handle([&] { grid.Data()->OrderBy(column); });
  });
}

void UserActions::ResizeColumn(Grid& grid, int column, int twips) {
  Act([&] { grid.Columns()[column].SetWidth(twips); });
}

void UserActions::RunTimers() {
  const std::vector<Control*> controls = form_.Controls();
  for (Control* control : controls) {
    if (auto* timer = dynamic_cast<Timer*>(control)) RunTimer(*timer);
  }
}

void UserActions::RunTimer(Timer& timer) {
  if (!timer.Running()) return;
  Act([&] { Handle([&] { timer.Elapsed(); }); });
}

}  // namespace tarvoni

#include <algorithm>
#include <array>

#include "src/context/services/command_keys.h"
#include "src/context/services/user_actions.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

struct CommandKey {
  Command command;
  int key;
  int shift;
  const char* name;
};
constexpr std::array kCommandKeys = {CommandKey{Command::kNew, kKeyInsert, 0, "Einfg"},
                                     CommandKey{Command::kEdit, kKeyF2, 0, "F2"},
                                     CommandKey{Command::kSave, 'S', kCtrl, "Strg+S"},
                                     CommandKey{Command::kSaveAndNew, kKeyEnter, kCtrl, "Strg+Eingabe"},
                                     CommandKey{Command::kDelete, kKeyDelete, kCtrl, "Strg+Entf"},
                                     CommandKey{Command::kCancel, kKeyEscape, 0, "Esc"},
                                     CommandKey{Command::kClose, kKeyEscape, 0, "Esc"}};

// -1 or 1 for the keys that turn to another tab; 0 for any other.
int TabStep(int key, int shift) {
  if ((shift & kCtrl) == 0) return 0;
  if (key == kKeyTab) return (shift & kShift) != 0 ? -1 : 1;
  return key == kKeyPageDown ? 1 : key == kKeyPageUp ? -1 : 0;
}

bool IsWithin(const Control& control, const Control& container) {
  const Control* around = control.Container();
  while (around && around != &container) around = around->Container();
  return around == &container;
}

// A caption without its mnemonic and dots.
std::string Plain(std::string_view caption) {
  std::string plain(caption);
  std::erase(plain, '&');
  return plain;
}

}  // namespace

std::optional<Command> CommandOf(int key, int shift) {
  const auto found = std::ranges::find_if(kCommandKeys, [&](const CommandKey& command) {
    return command.key == key && command.shift == shift && key != kKeyEscape;
  });
  if (found == kCommandKeys.end()) return std::nullopt;
  return found->command;
}

std::string KeyName(Command command) {
  const auto found = std::ranges::find(kCommandKeys, command, &CommandKey::command);
  return found == kCommandKeys.end() ? "" : found->name;
}

Button* UserActions::ButtonFor(Command command) const {
  Button* const button = ShownButtonFor(command);
  return button && button->IsEnabled() ? button : nullptr;
}

Button* UserActions::ShownButtonFor(Command command) const {
  Button* found = nullptr;
  for (Control* control : form_.Controls()) {
    auto* const button = dynamic_cast<Button*>(control);
    if (!button || button->Does() != command || !button->IsVisible()) continue;
    if (button->IsEnabled()) return button;
    if (!found) found = button;
  }
  return found;
}

bool UserActions::Offers(Command command) const {
  return std::ranges::any_of(form_.Controls(), [command](const Control* control) {
    const auto* const button = dynamic_cast<const Button*>(control);
    return button && button->Does() == command;
  });
}

// The tabs around the active control, else the first there are.
TabControl* UserActions::OpenTabs() const {
  const auto tabs_in = [](Control* control) {
    auto* const tabs = dynamic_cast<TabControl*>(control);
    return tabs && tabs->IsEnabled() && tabs->IsVisible() ? tabs : nullptr;
  };
  for (Control* around = form_.ActiveControl(); around; around = around->Container()) {
    if (TabControl* tabs = tabs_in(around)) return tabs;
  }
  for (Control* control : form_.Controls()) {
    if (TabControl* tabs = tabs_in(control)) return tabs;
  }
  return nullptr;
}

bool UserActions::IsCommand(int key, int shift) const {
  if (key == kKeyF1) return true;
  if (TabStep(key, shift) != 0) return OpenTabs() != nullptr;
  const auto command = CommandOf(key, shift);
  if (!command || !ShownButtonFor(*command)) return false;
  // In a box Ctrl+Del erases as long as there is nothing to delete.
  const bool erases = *command == Command::kDelete && dynamic_cast<const TextBox*>(form_.ActiveControl());
  return ButtonFor(*command) || !erases;
}

void UserActions::DoCommand(int key, int shift) {
  if (key == kKeyF1) return ShowKeys();
  if (const int step = TabStep(key, shift)) return StepTab(step);
  const auto command = CommandOf(key, shift);
  if (!command) return;
  Button& button = *ShownButtonFor(*command);
  if (button.IsEnabled()) return Click(button);
  toolkit_.Tell("„" + Plain(button.Caption()) + "“ ist hier nicht möglich.");
}

// To the next tab that can be chosen, round the end. Who was on a page goes on on the other.
void UserActions::StepTab(int step) {
  TabControl& tabs = *OpenTabs();
  const bool on_page = form_.ActiveControl() && IsWithin(*form_.ActiveControl(), tabs);
  int tab = tabs.Tab();
  do {
    tab = (tab + step + tabs.Tabs()) % tabs.Tabs();
  } while (tab != tabs.Tab() && (!tabs.TabEnabled(tab) || !tabs.Page(tab).Visible()));
  ChooseTab(tabs, tab);
  Control* const first = form_.NextInTabOrder(&tabs);
  const bool of_page = first && IsWithin(*first, tabs);
  if (on_page && of_page && tabs.HasFocus()) Arrive(*first);
}

// Escape: gives the edit up, and asks before anything typed is lost; where nothing is edited it closes. What is given up
// is not checked any more, so the focus goes without the box's own leaving.
void UserActions::Cancel() {
  Button* const cancel = ButtonFor(Command::kCancel);
  if (!cancel) {
    Close();
    return;
  }
  if (!MayDiscard()) return;
  form_.SetActiveControl(cancel);
  Click(*cancel);
}

bool UserActions::MayDiscard() {
  const int style = kBoxYesNo + kBoxQuestion + kBoxSecondIsDefault;
  return !typed_ || toolkit_.MessageBox("Die Eingaben verwerfen?", style, form_.Caption()) == kAnswerYes;
}

// A Screen with states refuses to close while it edits.
bool UserActions::LosesByClosing() const {
  const bool has_states = Offers(Command::kCancel) && Offers(Command::kClose);
  return typed_ && Offers(Command::kSave) && !has_states;
}

bool UserActions::Close() {
  Act([this] {
    if (LosesByClosing() && !MayDiscard()) return;
    const bool asked = Handle([this] { form_.Unload(); });
    if (asked && form_.IsLoaded()) toolkit_.Tell("Bitte speichern oder abbrechen.");
  });
  return !form_.IsLoaded();
}

void UserActions::Entered() {
  typed_ = true;
  toolkit_.Tell("");
}

// Where nothing can be cancelled a save has no end that shows: it went well if nothing was told.
void UserActions::PressButton(Button& button) {
  // A button of the Screen's own may change what is edited as typing does.
  const bool own = button.Does() == Command::kNone;
  own ? Entered() : toolkit_.Tell("");
  const int ended = edits_ended_, told = toolkit_.MessageBoxes();
  const bool done = Handle([&] { button.Press(); }) && toolkit_.MessageBoxes() == told;
  typed_ = typed_ || (own && Offers(Command::kCancel));  // a copy that it began, too
  const bool edits = Offers(Command::kCancel);
  const bool saves = button.Does() == Command::kSave || button.Does() == Command::kSaveAndNew;
  if (!saves || !form_.IsLoaded() || (edits ? edits_ended_ == ended : !done)) return;
  if (!edits) typed_ = false;
  const std::string& saved = edits ? ended_subject_ : form_.Subject();
  toolkit_.Tell(saved.empty() ? "Gespeichert." : "Gespeichert: " + saved + ".");
}

// An edit lasts as long as it can be cancelled.
void UserActions::EnabledChanged(Control& control) {
  const auto* const button = dynamic_cast<Button*>(&control);
  if (!button || button->Does() != Command::kCancel) return;
  toolkit_.Tell("");
  if (button->Enabled()) {
    typed_ = false;
  } else {
    ++edits_ended_;
    ended_subject_ = form_.Subject();
  }
}

void UserActions::ShowKeys() {
  std::string keys;
  const auto add = [&keys](const std::string& key, const std::string& does) {
    keys += key + ": " + does + "\n";
  };
  for (const Control* control : form_.Controls()) {
    const auto* const button = dynamic_cast<const Button*>(control);
    if (!button || !button->IsVisible()) continue;
    const std::string key = KeyName(button->Does());
    if (!key.empty()) add(key, Plain(button->Caption()));
  }
  if (OpenTabs()) add("Strg+Tab, Strg+Bild auf, Strg+Bild ab", "anderes Register");
  add("Tab, Eingabe", "nächstes Feld");
  add("Strg allein, F4", "Auswahl zum Feld");
  add("Alt mit dem unterstrichenen Buchstaben", "Schaltfläche oder Feld");
  const bool lists = std::ranges::any_of(form_.Controls(), [](const Control* control) {
    return dynamic_cast<const Grid*>(control) && control->IsVisible();
  });
  if (lists) add("Strg+F", "in der Liste suchen");
  if (lists) add("Strg+P", "die Liste drucken");
  toolkit_.MessageBox(keys + "F1: diese Übersicht", kBoxInformation, "Tasten");
}

}  // namespace tarvoni

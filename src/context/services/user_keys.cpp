#include "src/context/services/user_actions.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr int kShift = 1;
constexpr int kCtrl = 2;

// The key behind a character, as KeyDown tells it; 0 where it depends on the keyboard.
int KeyOf(char32_t character) {
  const char32_t upper = utf8::Upper(character);
  const bool plain = (upper >= U'A' && upper <= U'Z') || (upper >= U'0' && upper <= U'9') || upper == U' ';
  if (plain) return static_cast<int>(upper);
  switch (character) {
    case U',':
      return 188;
    case U'-':
      return 189;
    case U'.':
      return 190;
    default:
      return 0;
  }
}

bool IsControlCharacter(char32_t character) {
  return character < 32 || character == 127;
}

// What a box takes from the clipboard. A copied cell ends in a line break that is not meant, and what tabs and
// line breaks part must not grow together in a box that shows none.
std::u32string Pasted(std::string_view text, bool multi_line) {
  const char32_t line_break = multi_line ? U'\n' : U' ';
  std::u32string pasted;
  for (const char32_t character : utf8::Decode(text)) {
    if (character == U'\n' && pasted.ends_with(U'\r')) pasted.pop_back();
    pasted += character;
  }
  while (!multi_line && (pasted.ends_with(U'\n') || pasted.ends_with(U'\r'))) pasted.pop_back();
  for (char32_t& character : pasted) {
    if (character == U'\n' || character == U'\r') character = line_break;
    if (character == U'\t') character = U' ';
  }
  return pasted;
}

}  // namespace

void UserActions::Key(int key, int shift) {
  Act([&] { PressKey(key, shift); });
}

void UserActions::Tab(bool backwards) {
  Key(kKeyTab, backwards ? kShift : 0);
}

void UserActions::Lookup() {
  Act([this] {
    if (Control* active = form_.ActiveControl()) Handle([active] { active->KeyDown(kKeyCtrl, kCtrl); });
  });
}

void UserActions::PressKey(int key, int shift) {
  Control* const active = form_.ActiveControl();
  if (!active) {
    if (key == kKeyEscape) Close();
    return;
  }
  // The Tab key belongs to the window, not to the control.
  if (key != kKeyTab) Handle([&] { active->KeyDown(key, shift); });
  if (form_.IsLoaded() && form_.ActiveControl() == active) ActOnKey(*active, key, shift);
}

void UserActions::ActOnKey(Control& control, int key, int shift) {
  auto* const box = dynamic_cast<TextBox*>(&control);
  switch (key) {
    case kKeyTab:
      if (Control* next = form_.NextInTabOrder(&control, (shift & kShift) != 0)) Arrive(*next);
      return;
    case kKeyEnter:
      if (dynamic_cast<Button*>(&control)) return ClickSelf(control);
      PressCharacter(control, kKeyEnter);
      return;
    case kKeySpace:
      if (dynamic_cast<Captioned*>(&control)) return ClickSelf(control);
      PressCharacter(control, U' ');
      return;
    case kKeyBackspace:
      if (PressCharacter(control, kKeyBackspace) && box) Erase(*box, key);
      return;
    case kKeyDelete:
      if (box) Erase(*box, key);
      return;
    case kKeyEscape:
      if (PressCharacter(control, kKeyEscape)) Close();
      return;
    case kKeyF4:
      Handle([&] { control.KeyDown(kKeyCtrl, kCtrl); });
      return;
    case kKeyUp:
      return Step(control, -1);
    case kKeyDown:
      return Step(control, 1);
    default:
      return;
  }
}

void UserActions::Step(Control& control, int rows) {
  if (auto* list = dynamic_cast<ItemList*>(&control)) {
    const int index = list->ListIndex() + rows;
    if (index >= 0 && index < list->ListCount()) SelectItem(*list, index);
  } else if (auto* grid = dynamic_cast<DataGrid*>(&control)) {
    MoveRow(*grid, grid->Row() + rows);
  } else if (auto* flex = dynamic_cast<FlexGrid*>(&control)) {
    flex->SetRow(flex->Row() + rows);
  }
}

bool UserActions::TypeCharacter(char32_t character) {
  bool taken = false;
  Act([&] {
    Control* const active = form_.ActiveControl();
    if (!active || IsControlCharacter(character)) return;
    if (character == U' ' && dynamic_cast<Captioned*>(active)) return ClickSelf(*active);
    Handle([&] { active->KeyDown(KeyOf(character), 0); });
    if (form_.IsLoaded() && form_.ActiveControl() == active) taken = PressCharacter(*active, character);
  });
  return taken;
}

// Runs the filter, then lets the control take the character. True if both admit it.
bool UserActions::PressCharacter(Control& control, char32_t character) {
  int key = static_cast<int>(character);
  if (!Handle([&] { control.KeyPress(key); }) || key == 0) return false;
  if (!form_.IsLoaded() || form_.ActiveControl() != &control) return false;
  character = static_cast<char32_t>(key);
  if (auto* box = dynamic_cast<TextBox*>(&control)) return Insert(*box, character);
  if (auto* combo = dynamic_cast<ComboBox*>(&control); combo && combo->Editable() && !combo->Locked()) {
    if (IsControlCharacter(character)) return true;
    std::string text = combo->SelLength() > 0 ? std::string() : combo->Text();
    utf8::Append(text, character);
    return Handle([&] { combo->SetText(text); });
  }
  return true;
}

bool UserActions::Insert(TextBox& box, char32_t character) {
  const bool line_break = character == kKeyEnter && box.MultiLine();
  if (IsControlCharacter(character) && !line_break) return true;
  if (box.Locked()) return false;
  const int length = box.Length() - box.SelLength() + 1;
  if (box.MaxLength() > 0 && length > box.MaxLength()) return false;
  std::string inserted;
  utf8::Append(inserted, line_break ? U'\n' : character);
  const int start = box.SelStart();
  Replace(box, {start, box.SelLength()}, inserted);
  return true;
}

void UserActions::Erase(TextBox& box, int key) {
  if (box.Locked()) return;
  int start = box.SelStart();
  int length = box.SelLength();
  if (length == 0) {
    if (key == kKeyBackspace && start-- == 0) return;
    length = 1;
  }
  Replace(box, {start, length}, "");
}

void UserActions::Replace(TextBox& box, Range range, std::string_view inserted) {
  Handle([&] { box.Splice(range.start, range.length, inserted); });
  box.Select(range.start + utf8::Length(inserted), 0);
}

void UserActions::Type(std::string_view text) {
  for (const char32_t character : utf8::Decode(text)) {
    if (!form_.IsLoaded()) return;
    if (character == U'\n') {
      Key(kKeyEnter);
    } else {
      TypeCharacter(character);
    }
  }
}

bool UserActions::Paste(std::string_view text) {
  auto* const box = dynamic_cast<TextBox*>(form_.ActiveControl());
  if (!box || box->Locked()) return false;
  bool taken = true;
  Act([&] {
    const std::string before = box->Text();
    const int start = box->SelStart(), length = box->SelLength();
    for (const char32_t character : Pasted(text, box->MultiLine())) {
      taken = taken && form_.ActiveControl() == box &&
              PressCharacter(*box, character == U'\n' ? kKeyEnter : character);
    }
    if (taken) return;
    Handle([&] { box->SetText(before); });
    box->Select(start, length);
  });
  return taken;
}

void UserActions::ReplaceText(TextBox& box, std::string_view text) {
  Act([&] {
    if (!box.Locked() && box.IsEnabled()) Handle([&] { box.SetText(text); });
  });
}

void UserActions::ReplaceText(ComboBox& combo, std::string_view text) {
  Act([&] {
    if (combo.Editable() && !combo.Locked() && combo.IsEnabled()) Handle([&] { combo.SetText(text); });
  });
}

}  // namespace tarvoni

#include <algorithm>

#include "src/context/services/command_keys.h"
#include "src/context/services/environment.h"
#include "src/context/services/user_actions.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr const char* kLocked = "Dieses Feld ist gesperrt.";

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

bool IsPoint(char32_t character) {
  return character == U'.' || character == U',';
}

// What a key means in a box: both points are the separator where decimals stand.
char32_t Meant(const Control& control, char32_t character) {
  const auto* const box = dynamic_cast<const TextBox*>(&control);
  const bool separates = box && box->Takes() == Entry::kDecimal && IsPoint(character);
  return separates ? static_cast<char32_t>(CurrentLocale().decimal_separator) : character;
}

bool TakesDatePart(const Control& control) {
  const auto* const box = dynamic_cast<const TextBox*>(&control);
  return box && !box->Locked() && box->Takes() == Entry::kDatePart;
}

// Whether characters are typed into the control at all.
bool TakesText(const Control& control) {
  const auto* const combo = dynamic_cast<const ComboBox*>(&control);
  return dynamic_cast<const TextBox*>(&control) || (combo && combo->Editable());
}

// What a box takes from the clipboard: what tabs and line breaks part must not grow together in a box that shows none.
std::u32string Pasted(std::string_view text, bool multi_line) {
  const char32_t line_break = multi_line ? U'\n' : U' ';
  std::u32string pasted;
  for (const char32_t character : utf8::Decode(text)) {
    if (character == U'\n' && pasted.ends_with(U'\r')) pasted.pop_back();
    pasted += character;
  }
  for (char32_t& character : pasted) {
    if (character == U'\n' || character == U'\r') character = line_break;
    if (character == U'\t') character = U' ';
  }
  return pasted;
}

std::string Refusal(std::u32string_view characters) {
  std::string typed;
  for (const char32_t character : characters) utf8::Append(typed, character);
  return (typed == " " ? "Ein Leerzeichen" : "„" + typed + "“") + " passt nicht in dieses Feld.";
}

// The beginning of a text, for a sentence about it.
std::string Shortened(std::string_view text) {
  constexpr int kShown = 30;
  std::string shown;
  for (const char32_t c : Pasted(utf8::Substring(text, 0, kShown), false)) utf8::Append(shown, c);
  return utf8::Length(text) > kShown ? shown + " …" : shown;
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
    if (Control* active = form_.ActiveControl()) OpenLookup(*active);
  });
}

// What a lookup brings counts as typed.
void UserActions::OpenLookup(Control& control) {
  auto* const box = dynamic_cast<TextBox*>(&control);
  const std::string before = box ? box->Text() : "";
  Handle([&] { control.KeyDown(kKeyCtrl, kCtrl); });
  if (!box) return;
  if (box->Text() != before) Entered();
  // What is typed then takes its place.
  if (box->HasFocus() && !box->Locked() && !box->MultiLine()) box->SelectAll();
}

void UserActions::PressKey(int key, int shift) {
  Control* const active = form_.ActiveControl();
  if (!active) {
    if (key == kKeyEscape) Cancel();
    if (IsCommand(key, shift)) DoCommand(key, shift);
    return;
  }
  if (key == kKeySpace && (shift & kCtrl) == 0 && TakesText(*active)) {
    TypeCharacter(U' ');
    return;
  }
  if (Corrects(key)) return;
  // The Tab key belongs to the window, not to the control.
  if (key != kKeyTab) Handle([&] { active->KeyDown(key, shift); });
  if (!form_.IsLoaded() || form_.ActiveControl() != active) return;
  IsCommand(key, shift) ? DoCommand(key, shift) : ActOnKey(*active, key, shift);
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
      PressCharacter(control, kKeyEscape);  // told, but no filter of characters holds it back
      if (form_.IsLoaded()) Cancel();
      return;
    case kKeyF4:
      return OpenLookup(control);
    case kKeyUp:
      return Step(control, -1, shift);
    case kKeyDown:
      return Step(control, 1, shift);
    default:
      return;
  }
}

void UserActions::Step(Control& control, int rows, int shift) {
  if (auto* list = dynamic_cast<ItemList*>(&control)) {
    const int index = list->ListIndex() + rows;
    if (index < 0 || index >= list->ListCount()) return;
    auto* const several = (shift & kShift) != 0 ? dynamic_cast<MultiListBox*>(list) : nullptr;
    several ? MarkTo(*several, index) : SelectItem(*list, index);
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
    if (WaitingBox()) return RefuseCharacter(*active, character);
    if (character == U' ' && dynamic_cast<Captioned*>(active)) return ClickSelf(*active);
    Handle([&] { active->KeyDown(KeyOf(character), 0); });
    if (!form_.IsLoaded() || form_.ActiveControl() != active) return;
    if (IsPoint(character) && TakesDatePart(*active)) return ActOnKey(*active, kKeyTab, 0);
    taken = PressCharacter(*active, Meant(*active, character));
    if (!taken && TakesText(*active)) RefuseCharacter(*active, character);
  });
  return taken;
}

// A handler may have answered the key by leaving the control or closing the Screen; that is no refusal.
void UserActions::RefuseCharacter(Control& control, char32_t character) {
  if (!form_.IsLoaded() || form_.ActiveControl() != &control) return;
  auto* const box = dynamic_cast<TextBox*>(&control);
  if (box && box->Locked()) return toolkit_.ShowRefusal(control, kLocked);
  if (!box || box->Takes() == Entry::kText)
    return toolkit_.ShowRefusal(control,
                                (character == U' ' ? "" : "Das Zeichen ") + Refusal({&character, 1}));
  if (!WaitingBox())
    refused_ = {.box = box,
                .text = box->Text(),
                .start = box->SelStart(),
                .length = box->SelLength(),
                .characters = {}};
  refused_.characters += character;
  HoldsOff();
}

const TextBox* UserActions::WaitingBox() const {
  const TextBox* const box = refused_.box;
  const bool waits = box && form_.ActiveControl() == box && !box->Locked() && box->Text() == refused_.text &&
                     box->SelStart() == refused_.start && box->SelLength() == refused_.length;
  return waits ? box : nullptr;
}

bool UserActions::HoldsOff() {
  if (!WaitingBox()) return false;
  toolkit_.ShowRefusal(*refused_.box, Refusal(refused_.characters) + " Weiter mit Rücktaste oder Esc.");
  return true;
}

bool UserActions::Corrects(int key) {
  if (!WaitingBox() || key == kKeyCtrl || key == kKeyF1 || key == kKeyF4) return false;
  const bool moves = (key >= kKeyEnd && key <= kKeyDown) || key == kKeyDelete;
  if (!moves && key != kKeyBackspace && key != kKeyEscape) return HoldsOff();
  if (key == kKeyEscape) refused_.box->SelectAll();
  refused_.characters.pop_back();
  if (key != kKeyBackspace || refused_.characters.empty()) {
    StopWaiting();
    toolkit_.Tell("");
  }
  return !moves;
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
    Entered();
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
  Entered();
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
  if (!box) return false;
  bool taken = false;
  Act([&] {
    if (HoldsOff()) return;
    taken = !box->Locked() && PasteInto(*box, text);
    if (taken || form_.ActiveControl() != box) return;
    const std::string shown = Shortened(text);
    toolkit_.ShowRefusal(*box,
                         box->Locked() ? kLocked : "Der Text „" + shown + "“ passt nicht in dieses Feld.");
  });
  return taken;
}

bool UserActions::PasteInto(TextBox& box, std::string_view text) {
  // A copied cell ends in a line break that is not meant.
  if (!box.MultiLine()) text = text.substr(0, text.find_last_not_of("\r\n") + 1);
  const auto number = box.Takes() == Entry::kText ? std::nullopt : PlainNumber(text, CurrentLocale());
  const std::u32string pasted = Pasted(number ? *number : text, box.MultiLine());
  TextInsertion insertion(box);
  const auto add = [&](char32_t character) {
    if (IsControlCharacter(character) && character != U'\n') return true;
    int key = static_cast<int>(character == U'\n' ? kKeyEnter : character);
    box.KeyPress(key);
    const bool admitted = key != 0 && form_.IsLoaded() && form_.ActiveControl() == &box;
    const bool fits = box.MaxLength() == 0 || insertion.Length() < box.MaxLength();
    if (admitted && fits) insertion.Add(key == kKeyEnter ? U'\n' : static_cast<char32_t>(key));
    return admitted && fits;
  };
  bool taken = false;
  Handle([&] { taken = std::ranges::all_of(pasted, add); });
  if (!taken) {
    insertion.Undo();
    return false;
  }
  Entered();
  return Handle([&] { insertion.Finish(); });
}

void UserActions::ReplaceText(TextBox& box, std::string_view text) {
  Act([&] {
    if (box.Locked() || !box.IsEnabled()) return;
    Entered();
    Handle([&] { box.SetText(text); });
  });
}

void UserActions::ReplaceText(ComboBox& combo, std::string_view text) {
  Act([&] {
    if (!combo.Editable() || combo.Locked() || !combo.IsEnabled()) return;
    Entered();
    Handle([&] { combo.SetText(text); });
  });
}

}  // namespace tarvoni

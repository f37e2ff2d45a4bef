#include "platform/qt/keys.h"

#include <algorithm>

#include "src/context/controls/control.h"

namespace tarvoni::qt {
namespace {

struct Named {
  int qt;
  int code;
};

constexpr Named kNamed[] = {{Qt::Key_Backspace, kKeyBackspace},
                            {Qt::Key_Tab, kKeyTab},
                            {Qt::Key_Backtab, kKeyTab},
                            {Qt::Key_Return, kKeyEnter},
                            {Qt::Key_Enter, kKeyEnter},
                            {Qt::Key_Escape, kKeyEscape},
                            {Qt::Key_Space, kKeySpace},
                            {Qt::Key_PageUp, 33},
                            {Qt::Key_PageDown, 34},
                            {Qt::Key_End, kKeyEnd},
                            {Qt::Key_Home, kKeyHome},
                            {Qt::Key_Left, 37},
                            {Qt::Key_Up, kKeyUp},
                            {Qt::Key_Right, 39},
                            {Qt::Key_Down, kKeyDown},
                            {Qt::Key_Insert, 45},
                            {Qt::Key_Delete, kKeyDelete}};

bool IsKeypadDecimal(const QKeyEvent& event) {
  const bool decimal = event.key() == Qt::Key_Period || event.key() == Qt::Key_Comma;
  return decimal && event.modifiers().testFlag(Qt::KeypadModifier);
}

// Joiners and direction marks show nothing, but are typed.
bool IsTyped(char32_t c) {
  return c >= 32 && c != 127 && (QChar::isPrint(c) || QChar::category(c) == QChar::Other_Format);
}

// Ctrl and Alt together are AltGr on some keyboards and type a character.
bool IsCommand(Qt::KeyboardModifiers modifiers) {
  return modifiers.testFlag(Qt::ControlModifier) != modifiers.testFlag(Qt::AltModifier) ||
         modifiers.testFlag(Qt::MetaModifier);
}

}  // namespace

int KeyCode(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kKeyF1 + key - Qt::Key_F1;
  const auto* const named = std::ranges::find(kNamed, key, &Named::qt);
  return named == std::end(kNamed) ? 0 : named->code;
}

int CommandCode(const QKeyEvent& event) {
  const bool letter = event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
  return letter && event.modifiers() == Qt::ControlModifier ? event.key() : KeyCode(event);
}

int QtKey(int code) {
  if (code == kKeyCtrl) return Qt::Key_Control;
  if (code >= kKeyF1 && code <= kKeyF1 + 11) return Qt::Key_F1 + code - kKeyF1;
  const auto* const named = std::ranges::find(kNamed, code, &Named::code);
  return named == std::end(kNamed) ? 0 : named->qt;
}

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) + (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

Qt::KeyboardModifiers Modifiers(int shift) {
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, (shift & 1) != 0);
  modifiers.setFlag(Qt::ControlModifier, (shift & 2) != 0);
  modifiers.setFlag(Qt::AltModifier, (shift & 4) != 0);
  return modifiers;
}

std::u32string TypedText(const QKeyEvent& event, const Locale& locale) {
  if (IsCommand(event.modifiers())) return {};
  if (IsKeypadDecimal(event)) return {static_cast<char32_t>(locale.decimal_separator)};
  const std::u32string text = event.text().toStdU32String();
  return std::ranges::all_of(text, IsTyped) ? text : std::u32string();
}

bool IsModifier(const QKeyEvent& event) {
  const int key = event.key();
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

char32_t MnemonicLetter(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::ShiftModifier;
  if (modifiers != Qt::AltModifier || event.key() <= Qt::Key_Space || event.key() > 0xFFFF) return 0;
  return static_cast<char32_t>(event.key());
}

}  // namespace tarvoni::qt

#pragma once

#include <QKeyEvent>
#include <string>

#include "src/context/values/locale.h"

// What a key of the window system means to a Screen.
namespace tarvoni::qt {

// The key code of KeyDown; 0 for a key that has none. Enter and keypad Enter are the same key.
int KeyCode(const QKeyEvent& event);
// As KeyCode, also for a letter with Ctrl.
int CommandCode(const QKeyEvent& event);
// The window system's key for a key code; 0 for a code that has none.
int QtKey(int code);
// 1 Shift, 2 Ctrl, 4 Alt.
int ShiftState(Qt::KeyboardModifiers modifiers);
Qt::KeyboardModifiers Modifiers(int shift);
// The characters a key types; "" for a command. The keypad's decimal key types the locale's separator.
std::u32string TypedText(const QKeyEvent& event, const Locale& locale);
// Shift, Ctrl, Alt and the locks by themselves.
bool IsModifier(const QKeyEvent& event);
// The letter of Alt and a letter; 0 for any other key.
char32_t MnemonicLetter(const QKeyEvent& event);

}  // namespace tarvoni::qt

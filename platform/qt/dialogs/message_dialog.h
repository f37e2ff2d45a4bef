#pragma once

#include <QWidget>
#include <string>

namespace tarvoni::qt {

// A message with the buttons, icon and default of a style (kBoxYesNo and its like); gives the button, kAnswerYes and
// its like. Escape and the window's close button cancel, or confirm what can only be confirmed; a question with yes
// and no alone must be answered.
int ShowMessageBox(QWidget* parent, const std::string& prompt, int style, const std::string& title);

// The text that was entered, "" on cancel.
std::string ShowInputBox(QWidget* parent, const std::string& prompt, const std::string& title,
                         const std::string& initial);

}  // namespace tarvoni::qt

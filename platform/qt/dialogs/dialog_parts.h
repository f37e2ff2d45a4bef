#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace tarvoni::qt {

// The buttons at the foot of a dialog, connected to accept() and reject().
struct DialogButtons {
  QHBoxLayout* line = nullptr;  // further buttons go in front
  QPushButton* ok = nullptr;
  QPushButton* cancel = nullptr;
};
DialogButtons MakeButtons(QDialog& dialog, const QString& ok_caption);

// Makes the dialog as large as this, as far as the screen allows.
void ResizeWithin(QDialog& dialog, QSize size);

// Keys by which a list is walked through while the focus stays in a text line.
bool MovesInList(const QKeyEvent& key);
// Keys that a text line would take: characters, and the backspace.
bool TypesText(const QKeyEvent& key);

}  // namespace tarvoni::qt

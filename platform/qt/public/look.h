#pragma once

#include <QIcon>
#include <QPalette>
#include <QWidget>

#include "src/context/controls/control.h"

class QApplication;

// How the house looks: Fusion, colours of the palette only, sizes in characters.
namespace tarvoni::qt {

void UseHouseStyle(QApplication& application);

// Width of so many characters in the widget's font.
int CharactersWide(const QWidget& widget, int characters);
// Height of so many lines.
int LinesHigh(const QWidget& widget, int lines);

// The application's palette with closed fields and their captions easier to read: a Screen that only shows is closed.
QPalette ReadablePalette();

// Colours of a box: a locked one, and one that is closed with its frame, stand out from an open one in light and dark
// palettes alike.
void PaintBox(QWidget& box, Color color, bool locked, bool enabled = true);

// A box that refused a key, more or less red, until it is painted anew.
void PaintRefused(QWidget& box, double share);

// The three points of a lookup's button, in the palette's text colour.
QIcon LookupIcon(const QWidget& widget);

}  // namespace tarvoni::qt

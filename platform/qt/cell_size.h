#pragma once

#include <QLayout>
#include <QWidget>

// Sizes of controls in characters and lines of their own font.
namespace tarvoni::qt {

// Gives the widget so many characters; 0 is any width. True if it takes the free width.
bool SizeCell(QWidget& widget, int characters);
// A list or box of so many lines; width as above.
void SizeLines(QWidget& widget, int lines, int characters);
// A table of so many rows; 0 takes the free height.
void SizeTable(QWidget& table, int rows);

// Buttons beside each other have one width, save for those with long captions.
void SizeButtons(QLayout& bar);

}  // namespace tarvoni::qt

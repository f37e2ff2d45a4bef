#pragma once

#include <QPalette>

namespace tarvoni::test {

inline QPalette DarkPalette() {
  QPalette dark(QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  dark.setColor(QPalette::Text, Qt::white);
  return dark;
}

}  // namespace tarvoni::test

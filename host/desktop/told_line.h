#pragma once

#include <QLabel>

namespace tarvoni::host {

// Where a dialog tells what is wrong, under its fields; nothing at first.
class ToldLine : public QLabel {
 public:
  explicit ToldLine(QWidget* dialog);

  // The dialog grows with the text. The focus goes to the field that is meant, if one is.
  void Tell(const QString& text, QWidget* field = nullptr);
};

}  // namespace tarvoni::host

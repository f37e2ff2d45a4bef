#include "host/desktop/told_line.h"

#include "platform/qt/public/look.h"

namespace tarvoni::host {
namespace {

constexpr int kLeastWidth = 60;  // characters

}  // namespace

ToldLine::ToldLine(QWidget* dialog) : QLabel(dialog) {
  setObjectName("told");
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setWordWrap(true);
  setMinimumWidth(qt::CharactersWide(*this, kLeastWidth));
  hide();
}

void ToldLine::Tell(const QString& text, QWidget* field) {
  setText(text);
  show();
  window()->adjustSize();
  if (field) field->setFocus();
}

}  // namespace tarvoni::host

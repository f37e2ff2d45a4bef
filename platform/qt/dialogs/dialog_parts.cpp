#include "platform/qt/dialogs/dialog_parts.h"

#include <QKeyEvent>
#include <QScreen>

namespace tarvoni::qt {

DialogButtons MakeButtons(QDialog& dialog, const QString& ok_caption) {
  DialogButtons buttons{.line = new QHBoxLayout,
                        .ok = new QPushButton(ok_caption, &dialog),
                        .cancel = new QPushButton("Abbre&chen", &dialog)};
  buttons.ok->setObjectName("ok");
  buttons.ok->setDefault(true);
  buttons.cancel->setObjectName("cancel");
  buttons.line->addStretch();
  buttons.line->addWidget(buttons.ok);
  buttons.line->addWidget(buttons.cancel);
  QObject::connect(buttons.ok, &QPushButton::clicked, &dialog, &QDialog::accept);
  QObject::connect(buttons.cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  return buttons;
}

void ResizeWithin(QDialog& dialog, QSize size) {
  const QSize available = dialog.screen()->availableSize() * 9 / 10;
  dialog.resize(size.expandedTo(dialog.minimumSizeHint()).boundedTo(available));
}

bool MovesInList(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    case Qt::Key_Home:
    case Qt::Key_End:
      return key.modifiers().testFlag(Qt::ControlModifier);
    default:
      return false;
  }
}

bool TypesText(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Backspace) return true;
  const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return !command && !key.text().isEmpty() && key.text()[0].isPrint();
}

}  // namespace tarvoni::qt

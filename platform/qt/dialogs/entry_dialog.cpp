#include "platform/qt/dialogs/entry_dialog.h"

#include <QKeyEvent>

#include "platform/qt/dialogs/dialog_parts.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {

EntryDialog::EntryDialog(QWidget* parent, const std::string& caption, const Words& words)
    : QDialog(parent), words_(words), text_(new QLineEdit(this)), fault_(new QLabel(this)) {
  setWindowTitle(ToQt(caption));
  text_->setObjectName("text");
  text_->setPlaceholderText(words.hint);
  text_->installEventFilter(this);
  connect(text_, &QLineEdit::textEdited, this, [this] { TextEdited(); });
  fault_->setObjectName("fault");
  auto* label = new QLabel(words.label, this);
  label->setBuddy(text_);
  auto* line = new QHBoxLayout;
  line->addWidget(label);
  line->addWidget(text_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(line);
  layout->addWidget(fault_);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void EntryDialog::AddBody(QWidget* body) {
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->addWidget(body);
  column->addLayout(MakeButtons(*this, "Ü&bernehmen").line);
  text_->setFocus();
}

void EntryDialog::SetText(const std::string& text) {
  text_->setText(ToQt(text));
  text_->selectAll();
  valid_ = true;
  fault_->clear();
}

void EntryDialog::TextEdited() {
  valid_ = Read(FromQt(text_->text()));
  fault_->clear();
}

void EntryDialog::accept() {
  if (valid_) return QDialog::accept();
  fault_->setText(words_.fault);
  text_->setFocus();
  text_->selectAll();
}

bool EntryDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched != text_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  const Step page = key.modifiers().testFlag(Qt::ControlModifier) ? Step::kLargest : Step::kLarge;
  switch (key.key()) {
    case Qt::Key_Up:
      StepBy(Step::kSmall, -1);
      return true;
    case Qt::Key_Down:
      StepBy(Step::kSmall, 1);
      return true;
    case Qt::Key_PageUp:
      StepBy(page, -1);
      return true;
    case Qt::Key_PageDown:
      StepBy(page, 1);
      return true;
    default:
      return QDialog::eventFilter(watched, event);
  }
}

}  // namespace tarvoni::qt

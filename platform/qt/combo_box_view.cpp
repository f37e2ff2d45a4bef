#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

#include "platform/qt/form_window.h"
#include "platform/qt/list_view.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {

ComboBoxView::ComboBoxView(ComboBox& combo, FormWindow& window, QWidget* parent)
    : ItemListView(combo, window), combo_(combo), widget_(new QComboBox(parent)) {
  widget_->setFocusPolicy(Qt::TabFocus);
  widget_->setEditable(combo.Editable());
  widget_->setInsertPolicy(QComboBox::NoInsert);
  widget_->setMaxVisibleItems(20);
  QObject::connect(widget_, &QComboBox::activated, widget_, [this](int index) { Pick(index); });
  QLineEdit* const edit = widget_->lineEdit();
  if (!edit) return;
  widget_->setCompleter(nullptr);
  edit->setContextMenuPolicy(Qt::NoContextMenu);
  Watch(edit);
  QObject::connect(edit, &QLineEdit::textEdited, edit, [this](const QString& text) { EditorChanged(text); });
}

QWidget* ComboBoxView::Widget() const {
  return widget_;
}

void ComboBoxView::Pick(int index) {
  Window().Act([&](UserActions& user) { user.SelectItem(combo_, index); });
  Show(Aspect::kText);
}

void ComboBoxView::Show(Aspect aspect) {
  const Mirroring mirroring(mirroring_);
  switch (aspect) {
    case Aspect::kItems:
      ShowItems(*widget_);
      return ShowText();
    case Aspect::kText:
      return ShowText();
    case Aspect::kSelection:
      return ShowSelection();
    case Aspect::kLocked:
      if (widget_->lineEdit()) widget_->lineEdit()->setReadOnly(combo_.Locked());
      return PaintBox(*widget_, combo_.BackColor(), combo_.Locked());
    default:
      return ControlView::Show(aspect);
  }
}

void ComboBoxView::ShowText() const {
  widget_->setCurrentIndex(combo_.ListIndex());
  if (widget_->lineEdit() && widget_->currentText() != ToQt(combo_.Text()))
    widget_->setEditText(ToQt(combo_.Text()));
}

void ComboBoxView::ShowSelection() const {
  QLineEdit* const edit = widget_->lineEdit();
  if (!edit) return;
  const int start = ToQtPosition(edit->text(), combo_.SelStart());
  const int end = ToQtPosition(edit->text(), combo_.SelStart() + combo_.SelLength());
  if (end > start) {
    edit->setSelection(start, end - start);
  } else {
    edit->end(false);
  }
}

void ComboBoxView::EditorChanged(const QString& text) {
  if (mirroring_ || FromQt(text) == combo_.Text()) return;
  Window().Act([&](UserActions& user) { user.ReplaceText(combo_, FromQt(text)); });
  Show(Aspect::kText);
}

bool ComboBoxView::EditsText() const {
  return widget_->lineEdit() && !combo_.Locked();
}

bool ComboBoxView::Key(const QKeyEvent& event) {
  const bool looks = event.key() == Qt::Key_F4;
  const bool opens = event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier;
  if (looks) ControlView::Key(event);
  if (looks || opens) {  // without a choice: Alt+Down alone would be the next entry
    if (combo_.HasFocus()) Open();
    return true;
  }
  if (EditsText() && event.modifiers().testFlag(Qt::ControlModifier)) return false;
  return ControlView::Key(event);
}

bool ComboBoxView::Navigate(const QKeyEvent& event) {
  if (!EditsText()) return ItemListView::Navigate(event);
  const bool moves = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right ||
                     event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
  return !moves && event.key() != Qt::Key_Backspace && event.key() != Qt::Key_Delete;
}

void ComboBoxView::Typed(const std::u32string& text) {
  if (!combo_.Editable()) return ItemListView::Typed(text);
  ControlView::Typed(text);
  Show(Aspect::kSelection);
}

void ComboBoxView::Open() {
  if (!combo_.Locked() && combo_.IsEnabled()) widget_->showPopup();
}

bool ComboBoxView::Press(const QMouseEvent& event, bool twice) {
  const bool had_focus = combo_.HasFocus();
  ControlView::Press(event, twice);
  if (!combo_.HasFocus() || combo_.Locked() || event.button() != Qt::LeftButton) return true;
  // Only the frame's press opens the list; the first one in the text leaves it selected.
  return widget_->lineEdit() && widget_->lineEdit()->underMouse() && !had_focus;
}

bool ComboBoxView::Other(QEvent& event) {
  if (event.type() != QEvent::Wheel) return false;
  event.ignore();  // scrolling past must not choose
  return true;
}

}  // namespace tarvoni::qt

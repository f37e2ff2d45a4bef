#include <QAction>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "platform/qt/form_window.h"
#include "platform/qt/public/look.h"
#include "platform/qt/text_box_view.h"

namespace tarvoni::qt {

LineView::LineView(TextBox& box, FormWindow& window, QWidget* parent)
    : TextBoxView(box, window), edit_(new QLineEdit(parent)) {
  edit_->setFocusPolicy(Qt::TabFocus);
  if (box.Takes() == Entry::kDecimal) edit_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  QObject::connect(edit_, &QLineEdit::textChanged, edit_, [this] { EditorTextChanged(); });
  QObject::connect(edit_, &QLineEdit::selectionChanged, edit_, [this] { EditorSelectionChanged(); });
  QObject::connect(edit_, &QLineEdit::cursorPositionChanged, edit_, [this] { EditorSelectionChanged(); });
  if (!box.KeyDown) return;
  lookup_ = edit_->addAction(QIcon(), QLineEdit::TrailingPosition);
  lookup_->setText("Auswahl");
  lookup_->setToolTip("Auswahl öffnen (Strg oder F4)");
  QObject::connect(lookup_, &QAction::triggered, edit_, [this] {
    Window().Act([this](UserActions& user) {
      if (user.Focus(Box())) user.Lookup();
    });
  });
}

QWidget* LineView::Widget() const {
  return edit_;
}

void LineView::Show(Aspect aspect) {
  TextBoxView::Show(aspect);
  if (!lookup_ || (aspect != Aspect::kLocked && aspect != Aspect::kEnabled)) return;
  lookup_->setIcon(LookupIcon(*edit_));
  lookup_->setVisible(!Box().Locked() && Box().IsEnabled());
}

QString LineView::EditorText() const {
  return edit_->text();
}

void LineView::SetEditorText(const QString& text) {
  edit_->setText(text);
  edit_->setCursorPosition(0);
}

void LineView::ReplaceInEditor(int start, int length, const QString& text) {
  edit_->setSelection(start, length);
  edit_->insert(text);
}

TextBoxView::Selection LineView::EditorSelection() const {
  if (edit_->hasSelectedText()) return {.start = edit_->selectionStart(), .length = edit_->selectionLength()};
  return {.start = edit_->cursorPosition(), .length = 0};
}

void LineView::SelectInEditor(Selection selection) {
  if (selection.length > 0) {
    edit_->setSelection(selection.start, selection.length);
  } else {
    edit_->setCursorPosition(selection.start);
  }
}

void LineView::SetReadOnly(bool read_only) {
  edit_->setReadOnly(read_only);
}

void LineView::Do(void (QLineEdit::*line)(), void (QPlainTextEdit::*)()) {
  (edit_->*line)();
}

LinesView::LinesView(TextBox& box, FormWindow& window, QWidget* parent)
    : TextBoxView(box, window), edit_(new QPlainTextEdit(parent)) {
  edit_->setFocusPolicy(Qt::TabFocus);
  edit_->setTabChangesFocus(true);
  Watch(edit_->viewport());
  QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_, [this] { EditorTextChanged(); });
  QObject::connect(edit_, &QPlainTextEdit::selectionChanged, edit_, [this] { EditorSelectionChanged(); });
  QObject::connect(edit_, &QPlainTextEdit::cursorPositionChanged, edit_,
                   [this] { EditorSelectionChanged(); });
}

QWidget* LinesView::Widget() const {
  return edit_;
}

QString LinesView::EditorText() const {
  return edit_->toPlainText();
}

void LinesView::SetEditorText(const QString& text) {
  edit_->setPlainText(text);
}

void LinesView::ReplaceInEditor(int start, int length, const QString& text) {
  QTextCursor cursor(edit_->document());
  // As one edit the paragraph is laid out once, not again for each of the cursor's steps.
  cursor.beginEditBlock();
  cursor.setPosition(start);
  cursor.setPosition(start + length, QTextCursor::KeepAnchor);
  cursor.insertText(text);
  cursor.endEditBlock();
}

TextBoxView::Selection LinesView::EditorSelection() const {
  const QTextCursor cursor = edit_->textCursor();
  return {.start = cursor.selectionStart(), .length = cursor.selectionEnd() - cursor.selectionStart()};
}

void LinesView::SelectInEditor(Selection selection) {
  QTextCursor cursor = edit_->textCursor();
  cursor.setPosition(selection.start);
  cursor.setPosition(selection.start + selection.length, QTextCursor::KeepAnchor);
  edit_->setTextCursor(cursor);
}

void LinesView::SetReadOnly(bool read_only) {
  edit_->setReadOnly(read_only);
}

void LinesView::Do(void (QLineEdit::*)(), void (QPlainTextEdit::*lines)()) {
  (edit_->*lines)();
}

}  // namespace tarvoni::qt

#include "platform/qt/text_box_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <algorithm>

#include "platform/qt/form_window.h"
#include "platform/qt/keys.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {

void TextBoxView::Show(Aspect aspect) {
  const Mirroring mirroring(mirroring_);
  switch (aspect) {
    case Aspect::kText:
      return ShowText();
    case Aspect::kSelection:
      return ShowSelection();
    case Aspect::kLocked:
    case Aspect::kEnabled:
      return ShowClosed();
    default:
      return ControlView::Show(aspect);
  }
}

void TextBoxView::ShowClosed() {
  SetReadOnly(IsClosed());
  PaintBox(*Widget(), box_.BackColor(), box_.Locked(), box_.IsEnabled());
  constexpr double kWaits = 0.25;
  if (Window().User().WaitingBox() == &box_) PaintRefused(*Widget(), kWaits);
}

void TextBoxView::ShowText() {
  const QString before = EditorText();
  const QString after = Shown();
  if (before == after) return;
  if (!typing_) return SetEditorText(after);
  // Only what differs changes, so that the editor can undo it.
  const auto [first, ignored] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto start = static_cast<int>(first - before.begin());
  int end = static_cast<int>(before.size());
  int end_after = static_cast<int>(after.size());
  for (; end > start && end_after > start && before[end - 1] == after[end_after - 1]; --end) --end_after;
  ReplaceInEditor(start, end - start, after.mid(start, end_after - start));
}

QString TextBoxView::Shown() const {
  const QString text = ToQt(box_.Text());
  return box_.MultiLine() ? QString(text).replace("\r\n", "\n") : text;
}

void TextBoxView::ShowSelection() {
  const QString text = ToQt(box_.Text());
  const int start = ToQtPosition(text, box_.SelStart(), box_.MultiLine());
  const int length = ToQtPosition(text, box_.SelStart() + box_.SelLength(), box_.MultiLine()) - start;
  const Selection shown = EditorSelection();
  if (shown.start != start || shown.length != length) SelectInEditor({.start = start, .length = length});
}

void TextBoxView::EditorSelectionChanged() {
  if (mirroring_) return;
  const Mirroring mirroring(mirroring_);
  const QString text = ToQt(box_.Text());
  const auto [start, length] = EditorSelection();
  const int first = FromQtPosition(text, start, box_.MultiLine());
  box_.Select(first, FromQtPosition(text, start + length, box_.MultiLine()) - first);
  Window().ShowWaiting();
}

void TextBoxView::EditorTextChanged() {
  if (mirroring_) return;
  const QString text = EditorText();
  if (text == Shown()) return;
  {
    const Mirroring typing(typing_);
    Window().Act([&](UserActions& user) { user.ReplaceText(box_, FromQt(text)); });
  }
  // Where the editor stands now, unless the Screen wanted another text.
  if (EditorText() == Shown()) return EditorSelectionChanged();
  Show(Aspect::kText);
  Show(Aspect::kSelection);
}

void TextBoxView::Typed(const std::u32string& text) {
  const Mirroring typing(typing_);
  Window().Type(QString::fromStdU32String(text), [&](UserActions& user) {
    for (const char32_t character : text) user.TypeCharacter(character);
  });
  Show(Aspect::kSelection);
}

bool TextBoxView::Key(const QKeyEvent& event) {
  if (EditorCommand(event)) return true;
  // Ctrl with Alt is AltGr on some keyboards and types a character.
  const bool command =
      event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
  const bool erases = event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete;
  if (command && (erases || event.key() < Qt::Key_Escape)) return box_.Locked() || !erases;
  const Mirroring typing(typing_);
  const bool handled = ControlView::Key(event);
  if (handled) Show(Aspect::kSelection);
  return handled;
}

bool TextBoxView::Navigate(const QKeyEvent& event) {
  return event.key() < Qt::Key_Home || event.key() > Qt::Key_PageDown;
}

bool TextBoxView::EditorCommand(const QKeyEvent& event) {
  if (event.matches(QKeySequence::SelectAll) || event.matches(QKeySequence::Undo))
    Window().User().StopWaiting();
  if (event.matches(QKeySequence::Paste)) {
    Insert(QGuiApplication::clipboard()->text());
  } else if (event.matches(QKeySequence::Copy)) {
    Copy();
  } else if (event.matches(QKeySequence::SelectAll)) {
    Do(&QLineEdit::selectAll, &QPlainTextEdit::selectAll);
  } else if (event.matches(QKeySequence::Cut)) {
    Edit(&QLineEdit::cut, &QPlainTextEdit::cut);
  } else if (event.matches(QKeySequence::Undo)) {
    Edit(&QLineEdit::undo, &QPlainTextEdit::undo);
  } else if (event.matches(QKeySequence::Redo)) {
    Edit(&QLineEdit::redo, &QPlainTextEdit::redo);
  } else {
    return false;
  }
  return true;
}

bool TextBoxView::CopyMarked() const {
  const bool marked = box_.SelLength() > 0;
  if (marked) Copy();
  return marked;
}

void TextBoxView::Copy() const {
  if (box_.SelLength() > 0) QGuiApplication::clipboard()->setText(ToQt(box_.SelText()));
}

void TextBoxView::Edit(void (QLineEdit::*line)(), void (QPlainTextEdit::*lines)()) {
  if (!box_.Locked() && box_.IsEnabled()) Do(line, lines);
}

void TextBoxView::Insert(const QString& text) {
  if (text.isEmpty()) return;
  const Mirroring typing(typing_);
  Window().Act([&](UserActions& user) {
    if (user.Focus(box_)) user.Paste(FromQt(text));
  });
  Show(Aspect::kSelection);
}

bool TextBoxView::Press(const QMouseEvent& event, bool twice) {
  if (!box_.IsEnabled()) {
    Window().Reading(*this);
    return false;
  }
  const bool had_focus = box_.HasFocus();
  if (Window().User().WaitingBox() == &box_) Window().User().StopWaiting();
  if (event.button() == Qt::MiddleButton) {
    if (QClipboard* const clips = QGuiApplication::clipboard(); clips->supportsSelection())
      Insert(clips->text(QClipboard::Selection));
    return skip_release_ = true;
  }
  ControlView::Press(event, twice);
  // The press that brings the focus leaves the whole text selected.
  skip_release_ = !had_focus || !box_.HasFocus();
  return skip_release_;
}

bool TextBoxView::Release(const QMouseEvent&) {
  return std::exchange(skip_release_, false);
}

bool TextBoxView::Other(QEvent& event) {
  if (event.type() == QEvent::MouseMove) return skip_release_;
  if (event.type() == QEvent::ContextMenu) {
    ShowMenu(static_cast<QContextMenuEvent&>(event).globalPos());
    return true;
  }
  if (event.type() == QEvent::Drop) {
    auto& drop = static_cast<QDropEvent&>(event);
    drop.acceptProposedAction();
    Insert(drop.mimeData()->text());
    return true;
  }
  if (event.type() != QEvent::InputMethod) return false;
  const QString committed = static_cast<QInputMethodEvent&>(event).commitString();
  if (committed.isEmpty()) return false;
  static_cast<QInputMethodEvent&>(event).setCommitString({});
  Typed(committed.toStdU32String());
  return false;
}

void TextBoxView::ShowMenu(const QPoint& place) {
  const bool open = !box_.Locked() && box_.IsEnabled();
  const bool marked = box_.SelLength() > 0;
  QMenu menu(Widget());
  const auto add = [&](const char* caption, bool enabled, auto action) {
    menu.addAction(caption, Widget(), action)->setEnabled(enabled);
  };
  using Line = QLineEdit;
  using Lines = QPlainTextEdit;
  add("&Rückgängig", open, [this] { Edit(&Line::undo, &Lines::undo); });
  add("&Wiederherstellen", open, [this] { Edit(&Line::redo, &Lines::redo); });
  menu.addSeparator();
  add("&Ausschneiden", open && marked, [this] { Edit(&Line::cut, &Lines::cut); });
  add("&Kopieren", marked, [this] { Copy(); });
  add("&Einfügen", open, [this] { Insert(QGuiApplication::clipboard()->text()); });
  menu.addSeparator();
  add("A&lles markieren", !box_.Empty(), [this] { Do(&Line::selectAll, &Lines::selectAll); });
  menu.exec(place);
}

}  // namespace tarvoni::qt

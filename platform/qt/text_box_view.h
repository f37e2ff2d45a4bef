#pragma once

#include "platform/qt/control_view.h"
#include "src/context/controls/controls.h"

class QAction;
class QLineEdit;
class QMenu;
class QPlainTextEdit;

namespace tarvoni::qt {

// A text box. Typed characters go through the Screen's filter before they stand in the widget; what the editor does by
// itself (undo, cut, moving the caret) is handed on afterwards.
class TextBoxView : public ControlView {
 public:
  TextBoxView(TextBox& box, FormWindow& window) : ControlView(box, window), box_(box) {}

  void Show(Aspect aspect) override;
  bool Key(const QKeyEvent& event) override;
  bool Press(const QMouseEvent& event, bool twice) override;
  bool Release(const QMouseEvent& event) override;
  bool Other(QEvent& event) override;
  bool CopyMarked() const override;

 protected:
  struct Selection {
    int start = 0;
    int length = 0;
  };

  bool Navigate(const QKeyEvent& event) override;
  void Typed(const std::u32string& text) override;

  // What the two kinds of editors do in their own words; positions are the editor's.
  virtual QString EditorText() const = 0;
  virtual void SetEditorText(const QString& text) = 0;
  virtual void ReplaceInEditor(int start, int length, const QString& text) = 0;
  virtual Selection EditorSelection() const = 0;
  virtual void SelectInEditor(Selection selection) = 0;
  virtual void SetReadOnly(bool read_only) = 0;
  virtual void Do(void (QLineEdit::*line)(), void (QPlainTextEdit::*lines)()) = 0;

  // The editor's signals.
  void EditorTextChanged();
  void EditorSelectionChanged();
  TextBox& Box() const { return box_; }

 private:
  // The text as an editor holds it.
  QString Shown() const;
  // Locked, or closed with its frame: read-only, so that it still scrolls and its text can be copied.
  bool IsClosed() const { return box_.Locked() || !box_.IsEnabled(); }
  void ShowClosed();
  void ShowText();
  void ShowSelection();
  bool EditorCommand(const QKeyEvent& event);
  void Edit(void (QLineEdit::*line)(), void (QPlainTextEdit::*lines)());
  void Copy() const;
  void Insert(const QString& text);
  void ShowMenu(const QPoint& place);

  TextBox& box_;
  bool mirroring_ = false;
  bool typing_ = false;        // the change comes from a key: the editor keeps its undo steps
  bool skip_release_ = false;  // the press gave the focus
};

class LineView : public TextBoxView {
 public:
  LineView(TextBox& box, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  void Show(Aspect aspect) override;

 protected:
  QString EditorText() const override;
  void SetEditorText(const QString& text) override;
  void ReplaceInEditor(int start, int length, const QString& text) override;
  Selection EditorSelection() const override;
  void SelectInEditor(Selection selection) override;
  void SetReadOnly(bool read_only) override;
  void Do(void (QLineEdit::*line)(), void (QPlainTextEdit::*lines)()) override;

 private:
  void ShowLookup();

  QLineEdit* edit_;
  QAction* lookup_ = nullptr;
};

class LinesView : public TextBoxView {
 public:
  LinesView(TextBox& box, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;

 protected:
  QString EditorText() const override;
  void SetEditorText(const QString& text) override;
  void ReplaceInEditor(int start, int length, const QString& text) override;
  Selection EditorSelection() const override;
  void SelectInEditor(Selection selection) override;
  void SetReadOnly(bool read_only) override;
  void Do(void (QLineEdit::*line)(), void (QPlainTextEdit::*lines)()) override;

 private:
  QPlainTextEdit* edit_;
};

}  // namespace tarvoni::qt

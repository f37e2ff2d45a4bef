#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <memory>

#include "src/context/controls/form.h"

class QScrollArea;

namespace tarvoni::qt {

class FormWindow;

// One control of a Screen and the widget that shows it. It mirrors what the control announces and hands what the
// user does to the window's UserActions; the widget never decides by itself.
class ControlView {
 public:
  ControlView(Control& control, FormWindow& window) : control_(control), window_(window) {}
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  Control& Subject() const { return control_; }
  // What stands in the layout.
  virtual QWidget* Widget() const = 0;
  // What takes the keys and the mouse.
  virtual QWidget* Target() const { return Widget(); }
  // Name for assistive programs, unless the control has its own.
  void SetName(const QString& name) const;

  // Mirrors the control.
  virtual void Show(Aspect aspect);
  void ShowAll();
  void TakeFocus() const;

  // Input; false leaves the event to the widget.
  virtual bool Key(const QKeyEvent& event);
  virtual bool Press(const QMouseEvent& event, bool twice);
  virtual bool Release(const QMouseEvent&) { return false; }
  // Any other event of the widget that the control has a say in.
  virtual bool Other(QEvent&) { return false; }
  // Ctrl released alone.
  virtual void Lookup();
  // Shows for a moment that the control did not take what was typed.
  void Flash();
  // Copies what the user marked in a closed control; false if it has nothing of the kind.
  virtual bool CopyMarked() const { return false; }
  // Hands on what was typed; the window asks before the user does anything else. False if that has to wait, because
  // what was typed makes no sense.
  virtual bool Commit() { return true; }

 protected:
  FormWindow& Window() const { return window_; }
  // Keys that only the widget knows to answer, after KeyDown.
  virtual bool Navigate(const QKeyEvent&) { return true; }
  // Scrolls what lies around the control so that it is seen.
  virtual void Reveal() const;
  // The area that scrolls around the control; null if there is none.
  QScrollArea* ScrolledArea() const;
  // Characters that the control's own filter does not see.
  virtual void Typed(const std::u32string& text);
  // Registers the widgets whose events come here.
  void Watch(QWidget* widget);

 private:
  Control& control_;
  FormWindow& window_;
};

// Sets a flag while the widget follows the control, so that its signals are not taken for the user's.
class Mirroring {
 public:
  explicit Mirroring(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  Mirroring(const Mirroring&) = delete;
  Mirroring& operator=(const Mirroring&) = delete;
  ~Mirroring() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

// The view of any control that can be seen; null for data controls and timers.
std::unique_ptr<ControlView> MakeView(Control& control, FormWindow& window, QWidget* parent);

}  // namespace tarvoni::qt

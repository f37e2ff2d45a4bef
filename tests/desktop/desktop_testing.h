#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvoni::host {

// Plays a user with the keys of the window system: each step waits until the window before it has opened, also where a
// step opens a Screen or a box that holds the program until it is closed.
class Typist {
 public:
  // Keys one by one; "\t" is Tab, "\n" Enter.
  Typist& Type(std::string text) {
    return Do([text = std::move(text)] {
      for (const QChar key : QString::fromStdString(text)) {
        if (key == '\t') {
          Press(Qt::Key_Tab);
        } else if (key == '\n') {
          Press(Qt::Key_Return);
        } else {
          QTest::keyClick(Target(), key.toLatin1());
        }
      }
    });
  }
  Typist& Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return Do([=] { Press(key, modifiers); });
  }
  Typist& Do(std::function<void()> step) {
    steps_.push_back(std::move(step));
    return *this;
  }
  // Waits for a window that takes its time to open or to close.
  Typist& AwaitWindow(QString title) {
    return Do([this, title = std::move(title)] {
      const QWidget* const window = QApplication::activeWindow();
      if (!window || !window->windowTitle().contains(title)) --next_;
    });
  }
  // What the box with the focus shows.
  static std::string Focused() {
    const auto* const edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    return edit ? (edit->objectName() + " " + edit->text()).toStdString() : "";
  }
  // The text of a box of the Screen on top.
  static std::string Text(const char* name) {
    const auto* const edit = QApplication::activeWindow()->findChild<QLineEdit*>(name);
    return edit ? edit->text().toStdString() : "?";
  }
  // Runs the steps; returns when the last one is done and all they opened is closed.
  void Run() {
    Schedule();
    while (next_ < steps_.size()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

 private:
  // A key sent to a widget arrives at once; one sent to its window may come behind the next step.
  static QWidget* Target() {
    QWidget* const focused = QApplication::focusWidget();
    return focused ? focused : QApplication::activeWindow();
  }
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(Target(), key, modifiers);
  }
  // A window that was just shown gets its keys only when it is the active one.
  static bool Opening() {
    QWidget* top = QApplication::activeModalWidget();
    for (QWidget* window : QApplication::topLevelWidgets())
      if (!top && window->isVisible()) top = window;
    if (!top || top == QApplication::activeWindow()) return false;
    top->activateWindow();
    return true;
  }
  void Schedule() {
    QTimer::singleShot(0, &until_it_goes_, [this] {
      if (next_ == steps_.size()) return;
      if (Opening()) return Schedule();
      const auto step = steps_[next_++];
      Schedule();
      step();
    });
  }

  std::vector<std::function<void()>> steps_;
  std::size_t next_ = 0;
  QObject until_it_goes_;  // no step comes after the user
};

}  // namespace tarvoni::host

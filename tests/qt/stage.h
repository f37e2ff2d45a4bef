#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/form_window.h"
#include "platform/qt/public/qt_driver.h"
#include "platform/qt/public/qt_toolkit.h"
#include "platform/qt/public/text.h"
#include "src/context/services/print_document.h"
#include "tests/qt/probe_form.h"
#include "tests/support/fake_suite.h"

namespace tarvoni::qt {

// The desktop's toolkit whose Screens are used by a piece of code, and whose boxes answer at once.
class StageToolkit : public QtToolkit {
 public:
  std::function<void(FormWindow&)> play;  // drives the next Screen
  std::vector<std::string> prompts;
  std::vector<PrintDocument> printed;
  int answer = kAnswerOk;

 protected:
  void Attend(FormWindow& window) override {
    window.StartTimers();
    QTimer::singleShot(0, &window, [this, &window, action = std::exchange(play, nullptr)] {
      window.Guard([&] { action(window); });
      if (!window.Screen().IsLoaded()) return;
      test::Replace(window.Screen().Form_Unload, [](bool&) {});
      window.Screen().Unload();
    });
  }
  int DoMessageBox(const std::string& prompt, int, const std::string&) override {
    prompts.push_back(prompt);
    return answer;
  }
  void DoPreviewPrint(const PrintDocument& document) override { printed.push_back(document); }
};

// A probe form on the desktop.
class Stage {
 public:
  Stage() {
    form.Load();
    form.Fill(db);
  }

  // Shows the form, with the focus on `start`, for the length of the action; the log begins after the opening.
  void Show(Control& start, const std::function<void(FormWindow&)>& action) {
    start.SetFocus();
    toolkit.play = [&](FormWindow& window) {
      form.log.clear();
      action(window);
    };
    toolkit.ShowModal(form);
  }

  QWidget& WidgetOf(const Control& control) const {
    return *toolkit.WindowOf(control.OwnerForm())->ViewOf(&control)->Target();
  }
  // A key for whatever has the focus.
  void Press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) const {
    Send(QEvent::KeyPress, key, modifiers, text);
    Send(QEvent::KeyRelease, key, modifiers, text);
  }
  void Send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {},
            const QString& text = {}) const {
    FormWindow& window = *toolkit.TopWindow();
    QWidget* const focus = window.focusWidget();
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(focus ? focus : &window, &event);
  }

 private:
  std::shared_ptr<test::FakeConnection> db = std::make_shared<test::FakeConnection>();
  test::FakeSuite suite;

 public:
  StageToolkit toolkit;
  Environment environment{
      .toolkit = &toolkit, .suite = &suite, .connect = [this](const std::string&) { return db; }};
  EnvironmentScope scope{environment};
  QtDriver driver{toolkit};
  test::ProbeForm form;
};

}  // namespace tarvoni::qt

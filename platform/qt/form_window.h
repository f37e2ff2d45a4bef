#pragma once

#include <QBasicTimer>
#include <QDialog>
#include <QEventLoop>
#include <QHash>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "platform/qt/control_view.h"
#include "src/context/services/user_actions.h"

class QLabel;

namespace tarvoni::qt {

class GridView;

// The window of one Screen while it is shown modally. All input of its widgets comes together here and goes to the
// Screen's UserActions; no exception passes through Qt: the first one ends the modal loop and leaves Run.
class FormWindow : public QDialog, private FormObserver {
 public:
  // `owner` may be null. It does not own the window, so that nothing deletes it under a nested loop.
  FormWindow(Form& form, Toolkit& toolkit, QWidget* owner);
  ~FormWindow() override;

  // Shows the Screen until it is unloaded. `shown` is called when it is open and ready for the user.
  void Run(const std::function<void()>& shown);
  // Timers of the Screen run by the clock; else whoever plays the user runs them.
  void StartTimers();

  Form& Screen() const { return form_; }
  UserActions& User() { return user_; }
  ControlView* ViewOf(const Control* control) const;
  void Add(Control& control, std::unique_ptr<ControlView> view);
  // Events of the widget go to the view.
  void Watch(QWidget* widget, ControlView& view);

  // Does something as the user, who first finishes what he typed; nothing if that makes no sense.
  template <typename Action>
  void Act(Action action) {
    reading_ = nullptr;
    Happen([&](UserActions& user) {
      if (CommitTyped()) action(user);
    });
  }
  // Does something that happens beside the user, like the call of a timer.
  template <typename Action>
  void Happen(Action action) {
    ++busy_;
    Guard([&] { action(user_); });
    --busy_;
    ShowWaiting();
    FollowFocus();
  }
  // Runs code that may throw inside an event of Qt.
  template <typename Code>
  void Guard(Code code) noexcept {
    if (failure_) return;
    try {
      code();
    } catch (...) {
      Fail(std::current_exception());
    }
  }
  // The user marks text in a closed control: Ctrl+C copies it until he does something else.
  void Reading(ControlView& view) { reading_ = &view; }
  // The characters that a box is about to get: what they open instead takes them, once.
  QString TakeTyped() { return std::exchange(typed_now_, {}); }
  // Does something as the user who types these characters into a box.
  template <typename Action>
  void Type(const QString& characters, Action action) {
    typed_now_ = characters;
    Act(action);
    typed_now_.clear();
  }
  // Marks the box that waits for a correction, and no other.
  void ShowWaiting();
  // The status line; a sentence that asks for no answer.
  void ShowStatus(const QString& sentence);
  // What the status line tells is about this control and past when the focus leaves it.
  void TellsOf(const Control& control) { told_of_ = &control; }
  // Ends Run with this exception.
  void Fail(std::exception_ptr failure) noexcept;
  bool Failed() const { return failure_ != nullptr; }

  // The close button and Escape ask the Screen.
  void reject() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void ControlChanged(Control& control, Aspect aspect) override;
  void FormCaptionChanged() override;
  void FormUnloaded() override;

  ControlView* Active() const { return ViewOf(form_.ActiveControl()); }
  GridView* CurrentList() const;
  bool CommitTyped();
  void FollowFocus();
  void PlaceOver(QWidget* owner);
  void ShowColors();
  bool KeyPressed(const QKeyEvent& event);
  bool ModifierPressed(const QKeyEvent& event);
  bool ListKey(const QKeyEvent& event);
  bool ScreenKey(const QKeyEvent& event);
  bool TabKey(const QKeyEvent& event);
  void FocusCame(const ControlView& view);
  bool TakesShortcut(QEvent& event) const;
  void KeyReleased(const QKeyEvent& event);
  void SetTimer(Timer& timer);

  Form& form_;
  UserActions user_;
  Toolkit& toolkit_;
  QEventLoop loop_;
  std::map<const Control*, std::unique_ptr<ControlView>> views_;
  QHash<const QObject*, ControlView*> watched_;
  std::map<Timer*, QBasicTimer> timers_;
  std::exception_ptr failure_;
  const ControlView* reading_ = nullptr;
  QString typed_now_;
  const Control* waiting_ = nullptr;
  const Control* told_of_ = nullptr;
  const Control* last_list_ = nullptr;  // that had the focus
  QWidget* content_ = nullptr;
  QLabel* status_;
  int busy_ = 0;  // actions at work
  bool times_ = false;
  bool ctrl_alone_ = false;
  bool committing_ = false;
  bool following_ = false;
  bool coloring_ = false;
};

}  // namespace tarvoni::qt

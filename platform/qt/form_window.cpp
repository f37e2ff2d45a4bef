#include "platform/qt/form_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <QWindow>

#include "platform/qt/grid_view.h"
#include "platform/qt/keys.h"
#include "platform/qt/layout_builder.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/table_view.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

// As wide as the window is, however long the sentence.
QLabel* MakeStatusLine(QWidget* parent) {
  auto* const line = new QLabel(parent);
  line->setObjectName("status");
  line->setTextFormat(Qt::PlainText);
  line->setMargin(line->fontMetrics().height() / 4);
  line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  return line;
}

}  // namespace

FormWindow::FormWindow(Form& form, Toolkit& toolkit, QWidget* owner)
    : QDialog(nullptr, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      form_(form),
      user_(form, toolkit),
      toolkit_(toolkit),
      status_(MakeStatusLine(this)) {
  setModal(true);
  setAttribute(Qt::WA_QuitOnClose, false);
  FormCaptionChanged();
  setObjectName(ToQt(form.Name()));
  setPalette(ReadablePalette());
  content_ = new QWidget(this);
  auto* const fill = new QVBoxLayout(this);
  fill->setContentsMargins({});
  fill->setSpacing(0);
  fill->addWidget(content_, 1);
  fill->addWidget(status_);
  BuildLayout(form.Layout(), *this, content_);
  form_.SetObserver(this);
  PlaceOver(owner);
}

// Anew when the system turns dark or light.
void FormWindow::ShowColors() {
  if (coloring_) return;
  const Mirroring coloring(coloring_);
  setPalette(ReadablePalette());
  for (const auto& [control, view] : views_) view->Show(Aspect::kLocked);
}

FormWindow::~FormWindow() {
  form_.SetObserver(nullptr);
  // The widgets go before the views they report to.
  watched_.clear();
  delete content_;
}

void FormWindow::PlaceOver(QWidget* owner) {
  const QScreen* const screen = owner ? owner->screen() : QGuiApplication::primaryScreen();
  // The system puts a title and an edge around it.
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const int edge = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  const QRect room = screen->availableGeometry().marginsRemoved({edge, title, edge, edge});
  resize(sizeHint().boundedTo(room.size()));
  if (!owner) return;
  winId();
  windowHandle()->setTransientParent(owner->window()->windowHandle());
  QRect place = rect();
  place.moveCenter(owner->window()->geometry().center());
  place.moveTo(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - place.width())),
               std::clamp(place.y(), room.top(), std::max(room.top(), room.bottom() - place.height())));
  move(place.topLeft());
}

void FormWindow::Run(const std::function<void()>& shown) {
  show();
  activateWindow();
  Act([](UserActions& user) { user.Open(); });
  if (form_.IsLoaded()) Guard(shown);
  if (form_.IsLoaded() && !failure_) loop_.exec();
  timers_.clear();
  hide();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void FormWindow::Fail(std::exception_ptr failure) noexcept {
  if (!failure_) failure_ = std::move(failure);
  loop_.quit();
}

ControlView* FormWindow::ViewOf(const Control* control) const {
  const auto found = views_.find(control);
  return found == views_.end() ? nullptr : found->second.get();
}

void FormWindow::Add(Control& control, std::unique_ptr<ControlView> view) {
  Watch(view->Target(), *view);
  view->Widget()->setObjectName(ToQt(control.FullName()));
  view->ShowAll();
  views_[&control] = std::move(view);
}

void FormWindow::Watch(QWidget* widget, ControlView& view) {
  watched_.insert(widget, &view);
  widget->installEventFilter(this);
}

bool FormWindow::CommitTyped() {
  if (committing_) return true;
  const Mirroring committing(committing_);
  ControlView* const view = Active();
  return !view || view->Commit();
}

void FormWindow::FollowFocus() {
  const ControlView* const view = Active();
  if (told_of_ && told_of_ != form_.ActiveControl()) ShowStatus({});
  if (dynamic_cast<const GridView*>(view)) last_list_ = form_.ActiveControl();
  if (!view || following_) return;
  following_ = true;
  view->TakeFocus();
  following_ = false;
}

void FormWindow::ControlChanged(Control& control, Aspect aspect) {
  if (auto* timer = dynamic_cast<Timer*>(&control)) return SetTimer(*timer);
  if (aspect == Aspect::kFocus) return FollowFocus();
  if (ControlView* view = ViewOf(&control)) view->Show(aspect);
  if (aspect != Aspect::kEnabled) return;
  for (const auto& [inner, view] : views_) {
    for (const Control* around = inner->Container(); around; around = around->Container()) {
      if (around == &control) view->Show(Aspect::kEnabled);
    }
  }
}

void FormWindow::ShowWaiting() {
  const Control* const before = std::exchange(waiting_, user_.WaitingBox());
  if (waiting_ == before) return;
  if (ControlView* const view = ViewOf(before)) view->Show(Aspect::kLocked);
  if (ControlView* const view = ViewOf(waiting_)) view->Show(Aspect::kLocked);
}

void FormWindow::ShowStatus(const QString& sentence) {
  told_of_ = nullptr;
  status_->setText(sentence);
  status_->setToolTip(sentence);
}

void FormWindow::FormCaptionChanged() {
  setWindowTitle(ToQt(toolkit_.Titled(form_.Caption(), form_)));
}

void FormWindow::FormUnloaded() {
  loop_.quit();
}

void FormWindow::StartTimers() {
  times_ = true;
  for (Control* control : form_.Controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control)) SetTimer(*timer);
  }
}

void FormWindow::SetTimer(Timer& timer) {
  if (!times_) return;
  if (timer.Running()) {
    timers_[&timer].start(timer.Interval(), this);
  } else {
    timers_.erase(&timer);
  }
}

void FormWindow::timerEvent(QTimerEvent* event) {
  if (busy_ > 0) return;  // a window lies above; the timer comes again
  for (auto& [timer, clock] : timers_) {
    if (clock.timerId() != event->timerId()) continue;
    Happen([elapsed = timer](UserActions& user) { user.RunTimer(*elapsed); });
    return;
  }
}

void FormWindow::reject() {
  Act([](UserActions& user) { user.Close(); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the modal loop hides the window
  if (busy_ == 0) reject();
}

bool FormWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      return TakesShortcut(*event);
    case QEvent::KeyPress:
      // What a control's widget had no use for comes up here a second time.
      if (!watched_.contains(focusWidget())) KeyPressed(static_cast<QKeyEvent&>(*event));
      return true;
    case QEvent::PaletteChange:
      ShowColors();
      return QDialog::event(event);
    case QEvent::WindowDeactivate:
      ctrl_alone_ = false;
      return QDialog::event(event);
    default:
      return QDialog::event(event);
  }
}

// Mnemonics go the user's way like any key; commands of a widget with Ctrl (copying rows) stay its own.
bool FormWindow::TakesShortcut(QEvent& event) const {
  const bool takes = reading_ || !static_cast<QKeyEvent&>(event).modifiers().testFlag(Qt::ControlModifier);
  event.setAccepted(takes);
  return takes;
}

bool FormWindow::eventFilter(QObject* object, QEvent* event) {
  ControlView* const view = watched_.value(object);
  if (!view || failure_) return QDialog::eventFilter(object, event);
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      return TakesShortcut(*event);
    case QEvent::KeyPress:
      return KeyPressed(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
      KeyReleased(static_cast<QKeyEvent&>(*event));
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      ctrl_alone_ = false;
      return view->Press(static_cast<QMouseEvent&>(*event), event->type() == QEvent::MouseButtonDblClick);
    case QEvent::MouseButtonRelease:
      return view->Release(static_cast<QMouseEvent&>(*event));
    case QEvent::Wheel:
      ctrl_alone_ = false;
      return view->Other(*event);
    case QEvent::FocusIn:
      FocusCame(*view);
      return view->Other(*event);
    default:
      return view->Other(*event);
  }
}

// Qt moves the focus on by itself, away from a widget that was closed; it comes back to where the Screen has it.
void FormWindow::FocusCame(const ControlView& view) {
  if (following_ || form_.ActiveControl() == &view.Subject()) return;
  QMetaObject::invokeMethod(
      this, [this] { FollowFocus(); }, Qt::QueuedConnection);
}

bool FormWindow::KeyPressed(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy) && reading_ && reading_->CopyMarked()) return true;
  if (ModifierPressed(event) || ListKey(event) || ScreenKey(event) || TabKey(event)) return true;
  if (ControlView* const view = Active()) return view->Key(event);
  if (event.key() == Qt::Key_Escape) reject();
  return true;
}

// Ctrl pressed and released alone opens a lookup.
bool FormWindow::ModifierPressed(const QKeyEvent& event) {
  const bool control = event.key() == Qt::Key_Control;
  if (!control) ctrl_alone_ = false;
  if (control && !event.isAutoRepeat())
    ctrl_alone_ = !(event.modifiers() & (Qt::ShiftModifier | Qt::AltModifier));
  return control || IsModifier(event);
}

// Keys that mean the Screen's list wherever the focus is.
bool FormWindow::ListKey(const QKeyEvent& event) {
  const bool finds = event.matches(QKeySequence::Find);
  if (!finds && !event.matches(QKeySequence::Print)) return false;
  GridView* const list = CurrentList();
  if (list && finds) list->Search();
  if (list && !finds) Act([&](UserActions&) { list->Rows().Pane().Print(); });
  return true;
}

// The list that had the focus last, else the first to be seen.
GridView* FormWindow::CurrentList() const {
  const auto seen = [this](const Control* control) {
    auto* const list = dynamic_cast<GridView*>(ViewOf(control));
    return list && control->IsVisible() ? list : nullptr;
  };
  GridView* list = seen(last_list_);
  for (const Control* control : form_.Controls()) {
    if (!list) list = seen(control);
  }
  return list;
}

// Keys of the Screen as a whole: commands and mnemonics.
bool FormWindow::ScreenKey(const QKeyEvent& event) {
  const int code = CommandCode(event), shift = ShiftState(event.modifiers());
  if (code != 0 && user_.IsCommand(code, shift)) {
    Act([&](UserActions& user) { user.Key(code, shift); });
    return true;
  }
  const char32_t letter = MnemonicLetter(event);
  if (letter != 0) Act([&](UserActions& user) { user.Mnemonic(letter); });
  return letter != 0;
}

bool FormWindow::TabKey(const QKeyEvent& event) {
  const bool back = event.key() == Qt::Key_Backtab;
  if (!back && event.key() != Qt::Key_Tab) return false;
  const Qt::KeyboardModifiers held = event.modifiers();
  if (!held.testFlag(Qt::ControlModifier))
    Act([&](UserActions& user) { user.Tab(back || held.testFlag(Qt::ShiftModifier)); });
  return true;
}

void FormWindow::KeyReleased(const QKeyEvent& event) {
  if (event.key() != Qt::Key_Control || event.isAutoRepeat()) return;
  ControlView* const view = Active();
  if (std::exchange(ctrl_alone_, false) && view) view->Lookup();
}

}  // namespace tarvoni::qt

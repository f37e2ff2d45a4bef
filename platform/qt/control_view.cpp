#include "platform/qt/control_view.h"

#include <QGuiApplication>
#include <QScrollArea>
#include <QTimer>

#include "platform/qt/form_window.h"
#include "platform/qt/keys.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "src/context/services/environment.h"

namespace tarvoni::qt {
namespace {

void RaisePress(FormWindow& window, Control& control, const QMouseEvent& event, bool twice) {
  window.Act([&](UserActions& user) {
    if (event.button() == Qt::RightButton) {
      user.MouseDown(control, 2);
    } else if (event.button() == Qt::LeftButton) {
      twice ? user.SecondClick(control) : user.Click(control);
    }
  });
}

}  // namespace

void ControlView::SetName(const QString& name) const {
  if (Target()->accessibleName().isEmpty()) Target()->setAccessibleName(name);
}

void ControlView::Show(Aspect aspect) {
  if (aspect == Aspect::kEnabled) Widget()->setEnabled(control_.IsEnabled());
  if (aspect == Aspect::kVisible) Widget()->setVisible(control_.Visible());
}

void ControlView::ShowAll() {
  for (const Aspect aspect :
       {Aspect::kCaption, Aspect::kEnabled, Aspect::kLocked, Aspect::kItems, Aspect::kText,
        Aspect::kSelection, Aspect::kValue, Aspect::kColumns, Aspect::kRows, Aspect::kRow}) {
    Show(aspect);
  }
  // Showing a widget that has no parent yet would open a window of its own.
  if (!control_.Visible()) Show(Aspect::kVisible);
}

void ControlView::TakeFocus() const {
  if (window_.focusWidget() == Target() && Target()->hasFocus()) return;
  Target()->setFocus(Qt::OtherFocusReason);
  // What was clicked is in sight, and must not move away under the mouse.
  if (QGuiApplication::mouseButtons() != Qt::NoButton) return;
  // When the layout has settled.
  QTimer::singleShot(0, Target(), [this] {
    if (control_.HasFocus()) Reveal();
  });
}

void ControlView::Reveal() const {
  if (QScrollArea* const area = ScrolledArea()) area->ensureWidgetVisible(Target());
}

QScrollArea* ControlView::ScrolledArea() const {
  for (QWidget* around = Target()->parentWidget(); around; around = around->parentWidget()) {
    if (auto* const area = qobject_cast<QScrollArea*>(around)) return area;
  }
  return nullptr;
}

bool ControlView::Key(const QKeyEvent& event) {
  const int code = KeyCode(event);
  if (code == 0) {
    const std::u32string text = TypedText(event, CurrentLocale());
    if (!text.empty()) Typed(text);
    return true;
  }
  window_.Act([&](UserActions& user) { user.Key(code, ShiftState(event.modifiers())); });
  return !control_.HasFocus() || Navigate(event);
}

void ControlView::Typed(const std::u32string& text) {
  window_.Act([&](UserActions& user) {
    for (const char32_t character : text) user.TypeCharacter(character);
  });
}

void ControlView::Lookup() {
  window_.Act([](UserActions& user) { user.Lookup(); });
}

bool ControlView::Press(const QMouseEvent& event, bool twice) {
  RaisePress(window_, control_, event, twice);
  return true;
}

void ControlView::Flash() {
  constexpr int kFlashTime = 200;  // milliseconds
  constexpr double kFlash = 0.5;
  PaintRefused(*Widget(), kFlash);
  QTimer::singleShot(kFlashTime, Widget(), [this] { Show(Aspect::kLocked); });
}

void ControlView::Watch(QWidget* widget) {
  window_.Watch(widget, *this);
}

}  // namespace tarvoni::qt

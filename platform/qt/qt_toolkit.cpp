#include "platform/qt/public/qt_toolkit.h"

#include <QApplication>
#include <QGuiApplication>
#include <algorithm>

#include "platform/qt/dialogs/date_dialog.h"
#include "platform/qt/dialogs/location_dialog.h"
#include "platform/qt/dialogs/message_dialog.h"
#include "platform/qt/dialogs/month_dialog.h"
#include "platform/qt/dialogs/person_picker_dialog.h"
#include "platform/qt/dialogs/pick_list_dialog.h"
#include "platform/qt/dialogs/print_preview.h"
#include "platform/qt/dialogs/text_dialog.h"
#include "platform/qt/form_window.h"
#include "platform/qt/public/text.h"
#include "src/context/services/environment.h"

namespace tarvoni::qt {
namespace {

// Whoever is asked something needs the usual pointer, also inside a long action.
class UsualPointer {
 public:
  UsualPointer() {
    if (waits_) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  UsualPointer(const UsualPointer&) = delete;
  UsualPointer& operator=(const UsualPointer&) = delete;
  ~UsualPointer() {
    if (waits_) QGuiApplication::restoreOverrideCursor();
  }

 private:
  bool waits_ = QGuiApplication::overrideCursor() != nullptr;
};

}  // namespace

FormWindow* QtToolkit::WindowOf(const Form& form) const {
  const auto found =
      std::ranges::find_if(windows_, [&](FormWindow* window) { return &window->Screen() == &form; });
  return found == windows_.end() ? nullptr : *found;
}

QWidget* QtToolkit::DialogOwner() const {
  return windows_.empty() ? owner_.data() : windows_.back();
}

void QtToolkit::Attend(FormWindow& window) {
  window.StartTimers();
}

void QtToolkit::DoShowModal(Form& form) {
  struct Shown {
    Shown(std::vector<FormWindow*>& windows, FormWindow& window) : windows_(windows) {
      windows_.push_back(&window);
    }
    ~Shown() { windows_.pop_back(); }
    std::vector<FormWindow*>& windows_;
  };
  const UsualPointer pointer;
  FormWindow window(form, *this, DialogOwner());
  const Shown shown(windows_, window);
  window.Run([&] { Attend(window); });
}

int QtToolkit::DoMessageBox(const std::string& prompt, int style, const std::string& title) {
  const UsualPointer pointer;
  const Form* const form = TopForm();
  return ShowMessageBox(DialogOwner(), prompt, style, form ? Titled(title, *form) : title);
}

std::string QtToolkit::DoInputBox(const std::string& prompt, const std::string& title,
                                  const std::string& initial) {
  const UsualPointer pointer;
  return ShowInputBox(DialogOwner(), prompt, title, initial);
}

PickResult QtToolkit::DoPickList(const PickRequest& request) {
  const UsualPointer pointer;
  return ShowPickList(DialogOwner(), request, CurrentLocale());
}

PickResult QtToolkit::DoPickPerson(const PickRequest& request) {
  const UsualPointer pointer;
  return ShowPersonPicker(DialogOwner(), request, CurrentLocale());
}

std::optional<DateTime> QtToolkit::DoPickDate(const std::string& caption,
                                              const std::optional<DateTime>& start) {
  const UsualPointer pointer;
  return ShowDatePicker(DialogOwner(), caption, start);
}

std::optional<YearMonth> QtToolkit::DoPickMonth(const std::string& caption, const YearMonth& start) {
  const UsualPointer pointer;
  return ShowMonthPicker(DialogOwner(), caption, start);
}

std::vector<std::int32_t> QtToolkit::DoPickLocations(const LocationRequest& request) {
  const UsualPointer pointer;
  return ShowLocations(DialogOwner(), request);
}

std::optional<std::string> QtToolkit::DoEditText(const TextRequest& request) {
  const UsualPointer pointer;
  FormWindow* const window = TopWindow();
  return ShowTextEditor(DialogOwner(), request, window ? window->TakeTyped() : QString());
}

void QtToolkit::DoPreviewPrint(const PrintDocument& document) {
  const UsualPointer pointer;
  ShowPrintPreview(DialogOwner(), document);
}

void QtToolkit::DoTell(const std::string& sentence) {
  if (FormWindow* const window = TopWindow()) window->ShowStatus(ToQt(sentence));
}

void QtToolkit::DoShowRefusal(Control& control) {
  FormWindow* const window = WindowOf(control.OwnerForm());
  if (window) window->TellsOf(control);
  if (ControlView* const view = window ? window->ViewOf(&control) : nullptr) view->Flash();
  QApplication::beep();
}

void QtToolkit::ShowWaitPointer(bool waits) {
  if (waits) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

}  // namespace tarvoni::qt

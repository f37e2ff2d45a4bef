#include "platform/qt/qt_script_toolkit.h"

#include <QTimer>

#include "platform/qt/form_window.h"
#include "src/context/call_error.h"

namespace tarvoni::qt {

ScriptPlayer& QtScriptToolkit::Player() const {
  if (!player_) throw CallError("Niemand ist da, der antwortet.");
  return *player_;
}

void QtScriptToolkit::Attend(FormWindow& window) {
  window.User().RunTimers();
  StepLater(window);
}

// A line at a time from the window's own event loop, so that the widgets keep up with the script.
void QtScriptToolkit::StepLater(FormWindow& window) {
  QTimer::singleShot(0, &window, [this, &window] {
    window.Guard([&] {
      if (Player().Step(window.Screen())) StepLater(window);
    });
  });
}

int QtScriptToolkit::DoMessageBox(const std::string& prompt, int style, const std::string& title) {
  return Player().MessageBox(prompt, style, title);
}

std::string QtScriptToolkit::DoInputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) {
  return Player().InputBox(prompt, title, initial);
}

PickResult QtScriptToolkit::DoPickList(const PickRequest& request) {
  return Player().PickList(request);
}

PickResult QtScriptToolkit::DoPickPerson(const PickRequest& request) {
  return Player().PickList(request);
}

std::optional<DateTime> QtScriptToolkit::DoPickDate(const std::string& caption,
                                                    const std::optional<DateTime>& start) {
  return Player().PickDate(caption, start);
}

std::optional<YearMonth> QtScriptToolkit::DoPickMonth(const std::string& caption, const YearMonth& start) {
  return Player().PickMonth(caption, start);
}

std::vector<std::int32_t> QtScriptToolkit::DoPickLocations(const LocationRequest& request) {
  return Player().PickLocations(request);
}

std::optional<std::string> QtScriptToolkit::DoEditText(const TextRequest& request) {
  return Player().EditText(request);
}

void QtScriptToolkit::DoPreviewPrint(const PrintDocument& document) {
  Player().PreviewPrint(document);
}

}  // namespace tarvoni::qt

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "src/context/services/toolkit.h"
#include "src/context/services/user_actions.h"

namespace tarvoni::test {

// Answers every box with `answer` and remembers what was asked. The other windows are cancelled unless a test
// answers their kind. Shows a Screen without waiting for it to close.
class QuietToolkit : public Toolkit {
 public:
  std::vector<std::string> prompts;
  std::vector<std::string> titles;
  std::vector<int> styles;
  std::vector<std::string> refusals;  // the controls
  int answer = kAnswerOk;
  std::function<void(UserActions&)> script;  // drives the next Screen
  std::function<PickResult(const PickRequest&)> pick;
  std::function<std::optional<DateTime>(const std::optional<DateTime>& start)> pick_date;
  std::function<std::optional<YearMonth>(const YearMonth& start)> pick_month;
  std::function<std::vector<std::int32_t>(const LocationRequest&)> pick_locations;
  std::function<std::optional<std::string>(const TextRequest&)> edit_text;
  std::function<void(const PrintDocument&)> preview;

  // A Screen that is open as long as this lives; its Screen has to outlive it.
  struct Shown {
    Shown(QuietToolkit& toolkit, Form& form) : open(toolkit, form), user(form, toolkit) { user.Open(); }
    OpenForm open;
    UserActions user;
  };

  // Keeps the Screen open behind the test's back, with the focus on `start`.
  [[nodiscard]] std::unique_ptr<Shown> Show(Form& form, Control& start) {
    start.SetFocus();
    return std::make_unique<Shown>(*this, form);
  }

 protected:
  void DoShowModal(Form& form) override {
    UserActions user(form, *this);
    user.Open();
    if (script) std::exchange(script, nullptr)(user);
  }
  int DoMessageBox(const std::string& prompt, int style, const std::string& title) override {
    prompts.push_back(prompt);
    titles.push_back(title);
    styles.push_back(style);
    return answer;
  }
  std::string DoInputBox(const std::string&, const std::string&, const std::string& initial) override {
    return initial;
  }
  PickResult DoPickList(const PickRequest& request) override { return Answer(pick, request); }
  std::optional<DateTime> DoPickDate(const std::string&, const std::optional<DateTime>& start) override {
    return Answer(pick_date, start);
  }
  std::optional<YearMonth> DoPickMonth(const std::string&, const YearMonth& start) override {
    return Answer(pick_month, start);
  }
  std::vector<std::int32_t> DoPickLocations(const LocationRequest& request) override {
    return Answer(pick_locations, request);
  }
  std::optional<std::string> DoEditText(const TextRequest& request) override {
    return Answer(edit_text, request);
  }
  void DoPreviewPrint(const PrintDocument& document) override {
    if (preview) preview(document);
  }
  void DoShowRefusal(Control& control) override { refusals.push_back(control.FullName()); }

 private:
  template <typename Result, typename Request>
  static Result Answer(const std::function<Result(const Request&)>& answer, const Request& request) {
    return answer ? answer(request) : Result();
  }
};

}  // namespace tarvoni::test

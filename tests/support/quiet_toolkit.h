#pragma once

#include <memory>
#include <string>
#include <vector>

#include "src/context/toolkit.h"
#include "src/context/user_actions.h"

namespace tarvoni::test {

// Answers every box with `answer` and remembers what was asked. Shows a Screen without waiting for it to
// close.
class QuietToolkit : public Toolkit {
 public:
  std::vector<std::string> prompts;
  std::vector<std::string> titles;
  std::vector<int> styles;
  int answer = kAnswerOk;
  std::function<void(UserActions&)> script;  // drives the next Screen

  // Keeps the Screen open behind the test's back, with the focus on `start`.
  UserActions& Show(Form& form, Control& start) {
    start.SetFocus();
    kept_ = std::make_unique<Kept>(*this, form);
    return kept_->user;
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
  PickResult DoPickList(const PickRequest&) override { return {}; }
  std::optional<DateTime> DoPickDate(const std::string&, const std::optional<DateTime>&) override {
    return {};
  }
  std::optional<YearMonth> DoPickMonth(const std::string&, const YearMonth&) override { return {}; }
  std::vector<std::int32_t> DoPickLocations(const LocationRequest&) override { return {}; }
  std::optional<std::string> DoEditText(const TextRequest&) override { return {}; }
  void DoPreviewPrint(const PrintDocument&) override {}

 private:
  struct Kept {
    Kept(QuietToolkit& toolkit, Form& form) : open(toolkit, form), user(form, toolkit) { user.Open(); }
    OpenForm open;
    UserActions user;
  };
  std::unique_ptr<Kept> kept_;
};

}  // namespace tarvoni::test

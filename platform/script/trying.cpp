#include "platform/script/trying.h"

#include <algorithm>
#include <array>

#include "platform/script/looking.h"
#include "src/context/services/services.h"

namespace tarvoni {
namespace {

// Actions that take a text for a control.
constexpr std::array<std::string_view, 8> kWithText = {"type",   "enter", "leave", "paste",
                                                       "select", "key",   "row",   "tab"};
// Actions on a control alone.
constexpr std::array<std::string_view, 3> kWithout = {"click", "doubleclick", "focus"};

// The head of a column: an action, an answer, or what is looked at.
struct Head {
  explicit Head(const std::string& text, const std::string& field)
      : verb(text.substr(0, text.find(' '))), subject(verb.size() < text.size() ? text.substr(verb.size() + 1) : "") {
    acts = std::ranges::count(kWithText, verb) > 0;
    presses = std::ranges::count(kWithout, verb) > 0;
    if (acts && subject.empty()) subject = field;
    if (!acts && !presses) subject = text == "=" ? field : text;
  }
  bool Given() const { return acts || presses || verb == "answer" || verb == "pick"; }

  std::string verb;
  std::string subject;
  bool acts = false;
  bool presses = false;
};

// While `try` is at work it answers what opens.
class RowTrial : public Trial {
 public:
  explicit RowTrial(ScriptRun& run) : run_(run), before_(run.trial) {
    const std::string field = run.Line().words.size() > 1 ? run.Line().words[1] : "";
    for (const std::string& line : run.Line().block) rows_.push_back(SplitCells(line));
    if (rows_.empty()) run.Fail("Es fehlen die Zeilen mit |.");
    for (const std::string& cell : rows_[0]) heads_.emplace_back(cell, field);
    run.trial = this;
  }
  RowTrial(const RowTrial&) = delete;
  RowTrial& operator=(const RowTrial&) = delete;
  ~RowTrial() override { run_.trial = before_; }

  TextRows Play() {
    TextRows found = {rows_[0]};
    for (row_ = 1; row_ < rows_.size(); ++row_) {
      rows_[row_].resize(heads_.size());
      messages_.clear();
      for (std::size_t i = 0; i < heads_.size(); ++i) Act(heads_[i], rows_[row_][i]);
      auto& cells = found.emplace_back();
      for (std::size_t i = 0; i < heads_.size(); ++i) cells.push_back(Cell(heads_[i], rows_[row_][i]));
    }
    return found;
  }

  std::string Answer(const std::string& prompt, const std::string& buttons) override {
    messages_ += (messages_.empty() ? "" : " / ") + prompt;
    const std::string answer = Given("answer");
    if (answer.empty() && buttons == "ok") return "ok";
    if (!HasWord(buttons, answer)) run_.Fail("Die Meldung \"" + prompt + "\" hat nur die Tasten: " + buttons);
    return answer;
  }

  std::string Pick() override {
    const std::string code = Given("pick");
    if (code.empty()) run_.Fail("Unerwartet öffnet sich eine Auswahl.");
    return code;
  }

 private:
  // The row's cell below a head.
  std::string Given(std::string_view verb) const {
    const auto head = std::ranges::find(heads_, verb, &Head::verb);
    return head == heads_.end() ? std::string()
                                : rows_[row_][static_cast<std::size_t>(head - heads_.begin())];
  }

  // An empty cell leaves its action out; "" types an empty text.
  void Act(const Head& head, const std::string& cell) {
    if (cell.empty() || !(head.acts || head.presses)) return;
    if (head.presses) return Say({head.verb, head.subject.empty() ? cell : head.subject});
    const bool leaves = head.verb == "leave";
    Say({leaves ? "type" : head.verb, head.subject, cell == "\"\"" ? "" : cell});
    if (leaves) Say({"leave", head.subject});
  }

  void Say(std::vector<std::string> words) {
    const auto row = static_cast<int>(row_);
    run_.Say(std::move(words), run_.Line().block_start + row, run_.Line().block[row_]);
  }

  std::string Cell(const Head& head, const std::string& expected) const {
    if (head.Given()) return expected;
    if (head.verb == "message") return Message(expected);
    if (head.verb != "focused") return ShownBy(run_, head.subject);
    const Control* active = run_.TopForm().ActiveControl();
    return active ? active->FullName() : std::string();
  }

  // The messages, or the number that was expected if they hold its text.
  std::string Message(const std::string& expected) const {
    if (!IsNumber(expected)) return messages_;
    const auto text = run_.environment.suite->Messages().GetMessage(std::stoi(expected), run_.context);
    return messages_.find(text) == std::string::npos ? messages_ : expected;
  }

  ScriptRun& run_;
  Trial* before_;
  TextRows rows_;
  std::vector<Head> heads_;
  std::size_t row_ = 0;
  std::string messages_;
};

}  // namespace

void TryRows(ScriptRun& run) {
  RowTrial trial(run);
  run.ExpectBlock("Versuche", trial.Play());
}

}  // namespace tarvoni

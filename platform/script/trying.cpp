#include "platform/script/trying.h"

#include <algorithm>
#include <array>

#include "platform/script/looking.h"
#include "src/context/services/services.h"

namespace tarvoni {
namespace {

// Actions that take a text for a control, actions on a control alone, and answers to what opens.
constexpr std::array<std::string_view, 8> kWithText = {"type",   "enter", "leave", "paste",
                                                       "select", "key",   "row",   "tab"};
constexpr std::array<std::string_view, 3> kWithout = {"click", "doubleclick", "focus"};

template <typename Words>
bool Has(const Words& words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

// The head of a column: "enter", "enter txtLohnart(0)", "answer", "message", "txtSatz", "btnNeu enabled".
struct Head {
  explicit Head(const std::string& head)
      : text(head),
        word(head.substr(0, head.find(' '))),
        behind(word.size() < head.size() ? head.substr(word.size() + 1) : "") {}
  bool Acts() const { return Has(kWithText, word) || Has(kWithout, word); }
  bool Fails() const { return text == "fail write" || text == "fail commit"; }
  bool IsGiven() const { return text == "field" || Acts() || Fails() || Has(kAnswers, word); }

  std::string text;
  std::string word;
  std::string behind;
};

class RowTrial : public Trial {
 public:
  explicit RowTrial(ScriptRun& run) : run_(run), before_(run.trial) {
    field_ = run.Line().words.size() > 1 ? run.Line().words[1] : "";
    for (const std::string& line : run.Line().block) rows_.push_back(SplitCells(line));
    if (rows_.empty()) run.Fail("Es fehlen die Zeilen mit |.");
    for (const std::string& cell : rows_[0]) heads_.emplace_back(cell);
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
      offer_.clear();
      answered_.clear();
      if (const std::string field = Given("field"); !field.empty()) field_ = field;
      if (!Given("fail commit").empty() && !CommitsCanFail()) {
        found.push_back(rows_[row_]);
        continue;
      }
      for (const bool faults : {true, false}) {
        for (std::size_t i = 0; i < heads_.size(); ++i)
          if (heads_[i].Fails() == faults) Act(heads_[i], rows_[row_][i]);
      }
      if (run_.fault_ahead) run_.SettleFault();
      auto& cells = found.emplace_back();
      for (std::size_t i = 0; i < heads_.size(); ++i) cells.push_back(Cell(heads_[i], rows_[row_][i]));
    }
    return found;
  }

  void Opened(const std::string& text, const std::string& offer) override {
    if (!offer.empty()) offer_ = offer;
    if (offer.empty()) messages_ += (messages_.empty() ? "" : " / ") + text;
  }

  std::vector<std::string> Answer(const std::string& answers) override {
    for (const std::string_view answer : kAnswers) {
      const std::string cell = HasWord(answers, answer) ? NextAnswer(answer) : "";
      if (cell.empty()) continue;
      const auto blank = cell.find(' ');
      if (answer != "month" || blank == std::string::npos) return {std::string(answer), cell};
      return {"month", cell.substr(0, blank), cell.substr(blank + 1)};
    }
    return {};
  }

 private:
  // A server commits each batch by itself: a row about a failed commit is passed over there.
  bool CommitsCanFail() const { return run_.ArmCommit(1) != nullptr; }

  // The row's cell below a head.
  std::string Given(std::string_view text) const {
    const auto head = std::ranges::find(heads_, text, &Head::text);
    return head == heads_.end() ? std::string()
                                : rows_[row_][static_cast<std::size_t>(head - heads_.begin())];
  }

  // A cell holds one answer, or several for what opens one after another, parted by " / ".
  std::string NextAnswer(std::string_view answer) {
    std::string left = Given(answer);
    for (int given = answered_[answer]++; given > 0 && !left.empty(); --given) {
      const auto end = left.find(" / ");
      left = end == std::string::npos ? std::string() : left.substr(end + 3);
    }
    return left.substr(0, left.find(" / "));
  }

  // An empty cell leaves its action out; "" is an empty text.
  void Act(const Head& head, const std::string& cell) {
    if (cell.empty() || !(head.Acts() || head.Fails())) return;
    if (head.Fails()) return Say({head.word, head.behind, cell});
    if (Has(kWithout, head.word)) return Say({head.word, head.behind.empty() ? cell : head.behind});
    const std::string& field = head.behind.empty() ? field_ : head.behind;
    const bool leaves = head.word == "leave";
    Say({leaves ? "type" : head.word, field, cell == "\"\"" ? "" : cell});
    if (leaves) Say({"leave", field});
  }

  void Say(std::vector<std::string> words) {
    const auto row = static_cast<int>(row_);
    run_.Say(std::move(words), run_.Line().block_start + row, run_.Line().block[row_]);
  }

  std::string Cell(const Head& head, const std::string& expected) const {
    if (head.IsGiven()) return expected;
    if (head.text == "message") return Message(expected);
    if (head.text == "offer") return offer_;
    if (head.text == "focused") {
      const Control* active = run_.TopForm().ActiveControl();
      return active ? active->FullName() : std::string();
    }
    if (head.text == "=") return field_.empty() ? "" : ShownBy(run_, field_);
    if (head.behind.empty()) return ShownBy(run_, head.text);
    const auto holds = IsInState(run_.ControlNamed(head.word), head.behind);
    if (!holds) run_.Fail("Den Zustand \"" + head.behind + "\" gibt es nicht.");
    return *holds ? "1" : "0";
  }

  // The messages, or the number that was expected if they hold its text.
  std::string Message(const std::string& expected) const {
    if (!IsNumber(expected)) return messages_;
    const auto text = run_.environment.suite->Messages().GetMessage(std::stoi(expected), run_.context);
    return messages_.find(text) == std::string::npos ? messages_ : expected;
  }

  ScriptRun& run_;
  Trial* before_;
  std::string field_;  // the one that columns without a control mean
  TextRows rows_;
  std::vector<Head> heads_;
  std::size_t row_ = 0;
  std::string messages_;
  std::string offer_;
  std::map<std::string_view, int> answered_;  // how many of each answer the row has given
};

}  // namespace

void TryRows(ScriptRun& run) {
  RowTrial trial(run);
  run.ExpectBlock("Versuche", trial.Play());
}

}  // namespace tarvoni

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/script/public/driver.h"
#include "platform/script/public/partner.h"
#include "platform/script/public/script.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/environment.h"

namespace tarvoni {

// What a script can only do through its host. Names and values as the script has them.
struct ScriptHooks {
  using Values = std::map<std::string, std::string>;

  // Makes the demo enterprise in the open database; "" is the usual scale.
  std::function<void(Connection&, const std::string& scale)> demo;
  // Calls a method of c_Lohn, or a Screen's Run. Gives the by-reference arguments; an exception is its
  // failure.
  std::function<Values(const std::string& method, const Values& arguments, TvnVar_Dll& context)> call;
  std::function<Values(const std::string& screen, const Values& arguments, TvnVar_Dll& context)> run;
  // A text for each table of the database that is another one when a row is.
  std::function<Values(Connection&)> contents = {};
};

// Plays a script on a toolkit: its lines call, drive the topmost Screen, answer what opens and compare. The
// same script runs headless and on the desktop; only the driver differs.
//
// The lines behind a command that opens a box, a list or a Screen are played inside it: first what is expected of the
// box (`expect message`, `expect offer`, `expect preview`), then its answer. A box with one button needs no answer if
// it was expected. Any other line there fails, as does an answer when nothing is open. `expect grid`, `expect offer`
// and `expect sql` begin with a line of captions.
class ScriptPlayer : public Partner {
 public:
  // `environment` has the toolkit, the suite and the way to open databases; the player sets its locale.
  ScriptPlayer(Environment& environment, Driver& driver, ScriptHooks hooks = {});

  // Plays the script to its end. Throws ScriptFailure at the first line that fails.
  void Play(Script script);
  // Rewrites the `|` lines to what is found instead of comparing; Play then gives the changed file's lines.
  void SetUpdating(bool updating) { updating_ = updating; }
  const std::vector<std::string>& UpdatedLines() const { return script_.lines; }
  bool Changed() const { return changed_; }

  // Hears the remark above a line when the line's turn has come.
  void SetNarrator(std::function<void(const std::string& remark)> narrator) {
    narrator_ = std::move(narrator);
  }

  TvnVar_Dll& Context() { return context_; }

  bool Step(Form& form) override;
  int MessageBox(const std::string& prompt, int style, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& initial) override;
  PickResult PickList(const PickRequest& request) override;
  std::optional<DateTime> PickDate(const std::string& caption, const std::optional<DateTime>& start) override;
  std::optional<YearMonth> PickMonth(const std::string& caption, const YearMonth& start) override;
  std::vector<std::int32_t> PickLocations(const LocationRequest& request) override;
  std::optional<std::string> EditText(const TextRequest& request) override;
  void PreviewPrint(const PrintDocument& document) override;

 private:
  using Rows = std::vector<std::vector<std::string>>;
  using Action = void (ScriptPlayer::*)();
  struct Command {
    Action action;
    std::size_t words = 0;  // at most so many; 0: the last may be a text of any length
  };
  static const std::map<std::string, Command, std::less<>>& Commands();

  // What is open besides Screens and waits for an answer.
  struct Opened {
    std::string kind;  // "eine Meldung", for failures
    std::string text;  // prompt or caption
    std::string title;
    std::string answers;         // the commands that answer it, parted by blanks
    Rows rows = {};              // of a pick list or a print, captions first
    bool closes_itself = false;  // one button only: an `expect message` is answer enough
  };

  const ScriptLine& TakeLine();
  void RunLine();
  [[noreturn]] void Fail(const std::string& text) const;
  void ExpectEqual(const std::string& what, const std::string& expected, const std::string& found) const;
  const ScriptLine& Line() const { return script_.commands[current_]; }
  bool AtEnd() const { return next_ == script_.commands.size(); }
  const std::string& Word(std::size_t index, const char* meaning) const;
  std::string Text(std::size_t index) const { return Line().TextFrom(index); }

  Form& TopForm() const;
  Control& ControlNamed(const std::string& name) const;
  template <typename T>
  T& ControlOf(std::size_t word, const char* kind) const;
  void FocusForKeys(Control& control);

  // Preparing.
  void Database();
  void Demo();
  void Today();
  void SetLocale();
  void SetContext();
  void SetOption();
  void Sql();
  void Remember();
  void Call();
  void Run();
  void CallThrough(const std::function<ScriptHooks::Values(const std::string&, const ScriptHooks::Values&,
                                                           TvnVar_Dll&)>& hook);
  Connection& Db() const;

  // Acting.
  void FocusControl();
  void Type();
  void Enter();
  void TypeInto(Control& control, const std::string& text);
  void Key();
  void Paste();
  void Leave();
  void Click();
  void DoubleClick();
  void MouseDown();
  void Select();
  void Row();
  void Head();
  void Tab();
  void Close();
  void Shot();

  // Answering.
  // Waits for the line that answers; null if the box closes by itself.
  const ScriptLine* AnswerTo(const Opened& opened);
  void ExpectOpened(const Opened& opened);
  void UnusedAnswer();
  std::optional<std::size_t> PickRow(const PickRequest& request);

  // Expecting.
  void Expect();
  void ExpectScreen();
  void ExpectGrid();
  void ExpectList();
  void ExpectRows();
  void ExpectSql();
  void ExpectUnchanged();
  void ExpectResult();
  void ExpectFailure();
  void ExpectControl();
  void ExpectState(Control& control, const std::string& state) const;
  void ExpectBlock(const std::string& what, const Rows& found);
  std::string Property(Control& control, const std::string& name) const;

  Environment& environment_;
  Driver& driver_;
  ScriptHooks hooks_;
  std::function<void(const std::string&)> narrator_;
  TvnVar_Dll context_;
  Script script_;
  std::size_t current_ = 0;  // the command at work
  std::size_t next_ = 0;
  bool updating_ = false;
  bool changed_ = false;
  int shift_ = 0;  // lines that updating has added so far
  ScriptHooks::Values results_;
  std::optional<ScriptHooks::Values> remembered_;  // contents of the tables
  std::optional<std::string> failure_;             // of the last call, until a line expects it
};

}  // namespace tarvoni

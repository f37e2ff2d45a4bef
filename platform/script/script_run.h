#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/script/faulty_connection.h"
#include "platform/script/public/driver.h"
#include "platform/script/public/script.h"
#include "platform/script/public/script_hooks.h"
#include "platform/script/public/script_player.h"
#include "src/context/services/environment.h"
#include "src/context/services/toolkit.h"

namespace tarvoni {

using TextRows = std::vector<std::vector<std::string>>;

// What stands in place of the script's lines while a row of `try` is at work: it answers what opens.
class Trial {
 public:
  virtual ~Trial() = default;
  // Hears what opened, and what a list offers.
  virtual void Opened(const std::string& text, const std::string& offer) = 0;
  // The words that answer it, the first of them one of `answers`; none if the row has no such answer.
  virtual std::vector<std::string> Answer(const std::string& answers) = 0;
};

// A failed call or statement that the next line has to expect.
struct PendingFailure {
  std::string text;
  int number = 0;  // of the database; 0 if it has none
};

// A script at play: where it stands, what it works on, how its words are read and its failures told. The commands are
// functions on it.
struct ScriptRun {
  ScriptRun(Environment& its_environment, Driver& its_driver, ScriptHooks its_hooks,
            ScriptOptions its_options);

  // Starts afresh.
  void Begin(Script its_script);
  bool AtEnd() const { return next == script.commands.size(); }
  const ScriptLine& Line() const { return said ? *said : script.commands[current]; }
  // Goes on to the next line.
  const ScriptLine& TakeLine();
  // Takes the next line and plays it.
  void PlayLine();
  // Ends what `fail` arranged; it has to have happened.
  void SettleFault();
  // Plays a command that does not stand in the script, as if it stood in a line of it.
  void Say(std::vector<std::string> words, int number, const std::string& raw);
  // Puts such a command in the place of the line at work.
  const ScriptLine& Pretend(std::vector<std::string> words, int number, const std::string& raw);

  // A word of the line, or a failure that names what is missing.
  const std::string& Word(std::size_t index, const char* meaning) const;
  std::string Text(std::size_t index) const { return Line().TextFrom(index); }
  int Number(std::size_t index, const char* meaning) const;

  [[noreturn]] void Fail(const std::string& text) const;
  // A comparison that fails: the script ends here, or goes on if all are to be told.
  void Differ(const std::string& text);
  void ExpectEqual(const std::string& what, const std::string& expected, const std::string& found);
  // Compares the line's rows with those found, or rewrites them. The first `heads` of them are captions.
  void ExpectBlock(const std::string& what, const TextRows& found, std::size_t heads = 1);

  Connection& Db() const;
  // The same without what makes writes fail.
  Connection& RealDb() const;
  // Makes the nth commit from now on fail and tells whether it did, until it is dropped. Empty where no commit can fail.
  std::function<bool()> ArmCommit(int nth) const;
  Form& TopForm() const;
  Control& ControlNamed(const std::string& name) const;
  template <typename T>
  T& ControlOf(std::size_t word, const char* kind) const {
    Control& control = ControlNamed(Word(word, "der Name des Feldes"));
    if (auto* typed = dynamic_cast<T*>(&control)) return *typed;
    Fail(control.FullName() + " ist " + kind + ".");
  }

  Environment& environment;
  Driver& driver;
  ScriptHooks hooks;
  ScriptOptions options;

  Script script;
  std::size_t current = 0;  // the command at work
  std::size_t next = 0;
  std::optional<ScriptLine> said;  // instead of it
  Trial* trial = nullptr;

  TvnVar_Dll context;
  ScriptHooks::Values results;                    // of the last call
  std::optional<PendingFailure> failure;          // of the last call, until a line expects it
  std::optional<ScriptHooks::Values> remembered;  // contents of the tables
  std::shared_ptr<WriteFault> write_fault = std::make_shared<WriteFault>();
  std::function<bool()> commit_fault;  // tells whether it happened
  bool fault_ahead = false;            // the next line has to meet it

  bool changed = false;  // by an update
  int shift = 0;         // lines that updating has added so far
  std::vector<std::string> differences;

 private:
  void RewriteBlock(const std::vector<std::string>& shown);
  std::string Report(const std::string& text) const;
  void PlayTaken();
};

// Words that a script writes with blanks between them.
bool HasWord(std::string_view words, std::string_view word);
// Up to nine digits, so that the number fits.
bool IsNumber(std::string_view text);

}  // namespace tarvoni

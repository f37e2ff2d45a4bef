#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/script/public/driver.h"
#include "platform/script/public/partner.h"
#include "platform/script/public/script.h"
#include "platform/script/public/script_hooks.h"
#include "src/context/services/environment.h"

namespace tarvoni {

struct ScriptRun;

// How a script is played.
struct ScriptOptions {
  // Rewrites the script's `|` lines to what is found instead of comparing. Those of included files are compared.
  bool update = false;
  // Goes on behind a comparison that fails, and tells them all at the end.
  bool all = false;
  // The database of every `database` and `fixture` line, whatever stands there.
  std::string database = {};
  // Hears the remark above a line when the line's turn has come.
  std::function<void(const std::string& remark)> narrator = {};
};

// Plays a script on a toolkit: its lines call, drive the topmost Screen, answer what opens and compare. The
// same script runs headless and on the desktop; only the driver differs. commands.h lists the commands.
//
// The lines behind a command that opens a box, a list or a Screen are played inside it: first what is expected of the
// box (`expect message`, `expect offer`, `expect preview`, `expect box.…`), then its answer. A box with one button
// needs no answer if it was expected. Any other line there fails, as does an answer when nothing is open.
class ScriptPlayer : public Partner {
 public:
  // `environment` has the toolkit, the suite and the way to open databases; the player sets its locale, and while it
  // plays its connections obey `fail`.
  ScriptPlayer(Environment& environment, Driver& driver, ScriptHooks hooks = {}, ScriptOptions options = {});
  ~ScriptPlayer() override;

  // Plays the script to its end. Throws ScriptFailure at the first line that fails.
  void Play(Script script);
  // The script's lines after an update, and whether any is another.
  const std::vector<std::string>& UpdatedLines() const;
  bool Changed() const;

  TvnVar_Dll& Context();
  // For the next script.
  ScriptOptions& Options();

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
  std::unique_ptr<ScriptRun> run_;
};

// The commands as docs/scripts.md writes them: "type C TEXT".
std::vector<std::string> ScriptCommandForms();

}  // namespace tarvoni

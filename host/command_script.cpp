#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <optional>

#include "host/commands.h"
#include "host/component/component.h"
#include "host/desktop/desktop_stage.h"
#include "host/open_database.h"
#include "host/script/script_hooks.h"
#include "host/script/script_stage.h"
#include "host/script/trace_file.h"
#include "src/context/data/password.h"
#include "src/context/values/call_error.h"
#include "src/entry/screen_runs.h"
#include "suite/tarvoni_suite.h"

namespace tarvoni::host {
namespace {

void WriteLines(const std::string& file, const std::vector<std::string>& lines) {
  std::ofstream out(file, std::ios::binary);
  for (const std::string& line : lines) out << line << '\n';
  if (!out.flush()) throw CallError("Die Datei " + file + " lässt sich nicht schreiben.");
}

// Plays scripts one after another, each as if it were the first.
class ScriptSession {
 public:
  explicit ScriptSession(const ScriptCommand& command)
      : command_(command), stage_(command.desktop ? MakeDesktopStage(command.shots) : MakeHeadlessStage()) {
    if (!command.trace.empty()) trace_.emplace(command.trace);
  }

  // False when the script failed; how has been reported then.
  bool Play(const std::string& file) {
    ForgetScreens();
    if (trace_) trace_->Heading(file);
    TarvoniSuite suite;
    Environment environment{.toolkit = &stage_->ItsToolkit(),
                            .suite = &suite,
                            .connect = [this](const std::string& database) { return Connect(database); }};
    ScriptPlayer player(environment, stage_->ItsDriver(), hooks_, Options());
    stage_->SetPartner(&player);
    try {
      player.Play(Script::Load(file));
      if (player.Changed()) WriteLines(file, player.UpdatedLines());
      return true;
    } catch (const ScriptFailure& failure) {
      fmt::print(stderr, "{}\n", WithoutPassword(failure.Text()));
      ForgetScreens();
      return false;
    }
  }

  void Finish() {
    if (trace_) trace_->Finish();
  }

 private:
  ScriptOptions Options() const {
    ScriptOptions options{.update = command_.update, .all = command_.all, .database = command_.database};
    if (command_.tell)
      options.narrator = [](const std::string& remark) { fmt::print("{}\n", WithoutPassword(remark)); };
    return options;
  }

  std::shared_ptr<Connection> Connect(const std::string& database) {
    auto connection = OpenDatabase(database, OpenMode::kCreate);
    if (trace_) trace_->Follow(*connection);
    return connection;
  }

  const ScriptCommand& command_;
  std::optional<TraceFile> trace_;
  std::unique_ptr<ScriptStage> stage_;
  // Also what fixtures have made, for all scripts of the run.
  ScriptHooks hooks_ = MakeScriptHooks();
};

}  // namespace

ExitCode RunScript(const ScriptCommand& command) {
  const auto begin = std::chrono::steady_clock::now();
  ScriptSession session(command);
  std::size_t failed = 0;
  for (const std::string& file : command.files) {
    const bool passed = session.Play(file);
    if (!passed) ++failed;
    fmt::print("{}  {}\n", passed ? "in Ordnung" : "FEHLER    ", WithoutPassword(file));
  }

  session.Finish();
  if (command.files.size() > 1) {
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    fmt::print("{} Skripte, {} fehlgeschlagen, {:.1f} s\n", command.files.size(), failed, elapsed.count());
  }
  return failed == 0 ? kOk : kFailed;
}

}  // namespace tarvoni::host

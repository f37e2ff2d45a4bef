#include "platform/script/public/script_player.h"

#include <utility>

#include "platform/script/script_run.h"
#include "src/context/values/clock.h"

namespace tarvoni {
namespace {

// While a script plays, its connections obey `fail`.
class FaultyEnvironment {
 public:
  FaultyEnvironment(Environment& environment, const std::shared_ptr<WriteFault>& fault)
      : environment_(environment), connect_(environment.connect), scope_(environment) {
    if (!connect_) return;
    environment_.connect = [real = connect_, fault](const std::string& database) {
      return std::make_shared<FaultyConnection>(real(database), fault);
    };
  }
  FaultyEnvironment(const FaultyEnvironment&) = delete;
  FaultyEnvironment& operator=(const FaultyEnvironment&) = delete;
  ~FaultyEnvironment() {
    environment_.connect = connect_;
    Clock::Reset();
  }

 private:
  Environment& environment_;
  ConnectionFactory connect_;
  EnvironmentScope scope_;
};

}  // namespace

ScriptPlayer::ScriptPlayer(Environment& environment, Driver& driver, ScriptHooks hooks, ScriptOptions options)
    : run_(std::make_unique<ScriptRun>(environment, driver, std::move(hooks), std::move(options))) {}

ScriptPlayer::~ScriptPlayer() = default;

void ScriptPlayer::Play(Script script) {
  const FaultyEnvironment faulty(run_->environment, run_->write_fault);
  run_->Begin(std::move(script));
  while (!run_->AtEnd()) run_->PlayLine();
  if (run_->failure) run_->Fail("Der Aufruf schlug fehl: " + run_->failure->text);
  if (run_->fault_ahead) run_->Fail("Hinter fail fehlt die Zeile, die es trifft.");
  std::string report;
  for (const std::string& difference : run_->differences) report += (report.empty() ? "" : "\n") + difference;
  if (!report.empty()) throw ScriptFailure(report);
}

const std::vector<std::string>& ScriptPlayer::UpdatedLines() const {
  return run_->script.lines;
}

bool ScriptPlayer::Changed() const {
  return run_->changed;
}

TvnVar_Dll& ScriptPlayer::Context() {
  return run_->context;
}

ScriptOptions& ScriptPlayer::Options() {
  return run_->options;
}

bool ScriptPlayer::Step(Form& form) {
  if (!form.IsLoaded()) return false;
  if (run_->trial) run_->Fail("Unerwartet öffnet sich der Bildschirm " + form.Name() + ".");
  if (run_->AtEnd()) {
    run_->Fail("Der Bildschirm " + form.Name() +
               " ist am Ende des Skripts noch geöffnet; das Skript muss ihn schließen.");
  }
  run_->PlayLine();
  return form.IsLoaded();
}

}  // namespace tarvoni

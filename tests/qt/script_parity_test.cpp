#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/headless/public/headless_toolkit.h"
#include "platform/qt/public/qt_driver.h"
#include "platform/qt/public/qt_script_toolkit.h"
#include "platform/script/public/script_player.h"
#include "tests/qt/dark_palette.h"
#include "tests/qt/probe_form.h"
#include "tests/support/fake_suite.h"

namespace tarvoni {
namespace {

using test::ProbeForm;
using testing::HasSubstr;

struct Played {
  std::string failure;
  std::vector<std::string> log;
};

// Plays a script for the probe form, with or without windows.
template <typename ToolkitType>
class Theatre {
 public:
  Theatre(ToolkitType& toolkit, Driver& driver) : player(environment, driver, Hooks()) {
    environment.toolkit = &toolkit;
    environment.suite = &suite;
    environment.connect = [this](const std::string&) { return db; };
  }

  ScriptPlayer& Player() { return player; }
  std::function<void(ProbeForm&)> prepare;

  Played Play(const std::string& script) {
    Played played;
    try {
      player.Play(Script::Parse("probe.tvs", "run F_Probe\n" + script));
    } catch (const ScriptFailure& failure) {
      played.failure = failure.Text();
    }
    played.log = log;
    return played;
  }

 private:
  ScriptHooks Hooks() {
    return {.demo = {},
            .call = {},
            .run = [this](const std::string&, const ScriptHooks::Values& arguments, TvnVar_Dll&) {
              ProbeForm form;
              form.Load();
              form.Fill(db);
              if (prepare) prepare(form);
              struct Keep {
                ~Keep() { to = from; }
                std::vector<std::string>&from, &to;
              } keep{form.log, log};
              CurrentToolkit().ShowModal(form);
              return arguments;
            }};
  }

  std::shared_ptr<test::FakeConnection> db = std::make_shared<test::FakeConnection>();
  test::FakeSuite suite;
  Environment environment;
  ScriptPlayer player;
  std::vector<std::string> log;
};

Played PlayHeadless(const std::string& script, const std::function<void(ProbeForm&)>& prepare = {}) {
  HeadlessToolkit toolkit;
  Theatre theatre(toolkit, toolkit);
  theatre.prepare = prepare;
  toolkit.SetPartner(&theatre.Player());
  return theatre.Play(script);
}

Played PlayInWindows(const std::string& script, const std::function<void(ProbeForm&)>& prepare = {},
                     const std::filesystem::path& shots = {}) {
  qt::QtScriptToolkit toolkit;
  qt::QtDriver driver(toolkit, shots);
  Theatre theatre(toolkit, driver);
  theatre.prepare = prepare;
  toolkit.SetPartner(&theatre.Player());
  return theatre.Play(script);
}

std::string Lines(const std::vector<std::string>& log) {
  std::string lines;
  for (const std::string& line : log) lines += line + "\n";
  return lines;
}

constexpr const char* kEveryControl = R"(
expect DataGrid1 focused
row DataGrid1 NAME=Fichte
expect DataGrid1.Row = 2
key DataGrid1 Down
expect DataGrid1.Row = 3
head DataGrid1 NAME
expect grid DataGrid1
| NAME   | WERT
| Ahorn  |
| Buche  | 1,50
| Fichte | 20,25
type txtKostenstelle(0) 12ü4
key txtKostenstelle(0) Backspace
key txtKostenstelle(0) Ctrl
key txtKostenstelle(0) F4
expect txtKostenstelle(0) = 12ü
leave txtKostenstelle(0)
expect txtLohnart focused
type txtLohnart abc
type txtLohnart ""
expect txtLohnart = ""
paste txtMenge 12,50
enter txtMenge 3,5
select cboEinheit rm
type cboEinheit Stück
expect cboEinheit = Stück
type dtpDatum 29.2.2024
expect dtpDatum = 29.02.2024
type dtpDatum ""
type txtText "zwei Worte"
enter txtText
click optStuck
click optZeit
click chkFertig
key chkFertig Space
select lstAuswahl Tanne
key lstAuswahl Up
expect lstAuswahl = Fichte
tab tabSeiten 1
row FlexGrid1 2
expect FlexGrid1.Row = 2
tab tabSeiten 0
type txtSteuer 7
click lblSteuer
click txtZins
doubleclick txtZinsBetrag
click btnNeu
key btnBearbeiten Enter
close
)";

TEST(ScriptParity, WidgetsRaiseWhatTheHeadlessToolkitRaises) {
  const Played headless = PlayHeadless(kEveryControl);
  const Played windows = PlayInWindows(kEveryControl);
  EXPECT_EQ(headless.failure, "");
  EXPECT_EQ(windows.failure, "");
  EXPECT_GT(headless.log.size(), 100U);
  EXPECT_EQ(Lines(windows.log), Lines(headless.log));
}

TEST(ScriptParity, FailureOfALineLeavesTheEventLoops) {
  const Played played = PlayInWindows("expect btnNeu = Alt");
  EXPECT_THAT(played.failure, HasSubstr("probe.tvs:2"));
  EXPECT_THAT(PlayInWindows("click btnNeu").failure, HasSubstr("muss ihn schließen"));
}

TEST(ScriptParity, FailureInsideAScreenOfAScreenLeavesBoth) {
  const auto prepare = [](ProbeForm& form) {
    test::Replace(form.btnNeu.Click, [] {
      ProbeForm inner;
      CurrentToolkit().ShowModal(inner);
    });
  };
  const std::string script = "click btnNeu\nexpect DataGrid1 focused\nexpect btnNeu = Alt";
  EXPECT_THAT(PlayInWindows(script, prepare).failure, HasSubstr("F_Probe > F_Probe"));
}

TEST(ScriptParity, BoxesAreAnsweredByTheScript) {
  const auto prepare = [](ProbeForm& form) {
    test::Replace(form.txtLohnart.LostFocus, [&form] {
      if (form.txtLohnart.Empty()) return;
      CurrentToolkit().MessageBox("falsch", kBoxWarning, "Tarvoni");
      form.txtLohnart.Clear();
      form.txtLohnart.SetFocus();
    });
  };
  const std::string script =
      "type txtLohnart 9\nclick btnNeu\nexpect message falsch\nexpect txtLohnart focused\nclose";
  const Played headless = PlayHeadless(script, prepare);
  const Played windows = PlayInWindows(script, prepare);
  EXPECT_EQ(windows.failure, "");
  EXPECT_EQ(Lines(windows.log), Lines(headless.log)) << "one message, and the click is lost";
  EXPECT_THAT(PlayInWindows("type txtLohnart 9\nclick btnNeu", prepare).failure, HasSubstr("Unerwartet"));
}

TEST(ScriptParity, ShotsShowTheWindowInLightAndDark) {
  const char* const wanted = std::getenv("TARVONI_SHOTS");
  const std::filesystem::path folder = wanted ? wanted : testing::TempDir() + "shots";
  const auto prepare = [](ProbeForm& form) {
    form.txtKostenstelle[0].SetText("4711");
    form.txtKostenstelle[1].SetText("Forstrevier Süd, Holzernte");
    form.lblLohnartName.SetCaption("Motorsägenarbeit");
    form.txtText.SetText("Windwurf nach dem Sturm vom 3. März; die Wege sind\nzuerst frei zu machen.");
    form.lblSteuerName.SetCaption("Versicherung und Steuer");
    form.frmAuswahl.SetEnabled(false);
  };
  const QPalette light = QApplication::palette();
  for (const bool dark : {false, true}) {
    if (dark) QApplication::setPalette(test::DarkPalette());
    const std::string name = dark ? "dunkel" : "hell";
    const Played played = PlayInWindows(
        "focus txtKostenstelle(0)\nshot " + name + "\ntab tabSeiten 1\nshot " + name + "_seite\nclose",
        prepare, folder);
    EXPECT_EQ(played.failure, "");
    const QImage picture(QString::fromStdString((folder / (name + ".png")).string()));
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.pixelColor(2, 2).lightness() < 128, dark);
  }
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace tarvoni

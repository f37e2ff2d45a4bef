#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/host/demo_database.h"
#include "tests/host/run_program.h"

namespace tarvoni::host {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;

// Scripts in a folder of the test's own.
class ScriptCommand : public ::testing::Test {
 protected:
  ScriptCommand() { std::filesystem::create_directory(folder_); }
  ~ScriptCommand() override { std::filesystem::remove_all(folder_); }

  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name) << text;
    return Path(name);
  }
  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  std::string Read(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(folder_ / name).rdbuf();
    return text.str();
  }

 private:
  std::filesystem::path folder_ = TemporaryFile();
};

constexpr const char* kTable =
    "database :memory:\nsql CREATE TABLE T (A INT, B NVARCHAR(9))\nsql INSERT INTO T VALUES (1, 'x')\n";

TEST_F(ScriptCommand, SaysInOneLineThatAScriptPasses) {
  const auto script =
      Write("gut.tvs", std::string(kTable) + "expect sql SELECT * FROM T\n| A | B\n| 1 | x\n");
  const Outcome outcome = RunProgram("script " + script);
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_EQ(outcome.output, "in Ordnung  " + script + "\n");
}

// A fixture is played once for both scripts; what one of them writes the other does not see.
TEST_F(ScriptCommand, CopiesAFixtureForEachScript) {
  Write("grund.tvi", "include heute.tvi\n" + std::string(kTable));
  Write("heute.tvi", "today 2024-03-15\n");
  const auto script = Write("kopie.tvs",
                            "fixture grund.tvi\nsql INSERT INTO T SELECT 2, YEAR(GETDATE())\n"
                            "expect sql SELECT * FROM T\n| A | B\n| 1 | x\n| 2 | 2024\n");
  const Outcome outcome = RunProgram("script --trace " + Path("spur.txt") + " " + script + " " + script);
  EXPECT_EQ(outcome.exit_code, 0) << outcome.output;
  const std::string trace = Read("spur.txt");
  EXPECT_EQ(trace.find("CREATE TABLE"), trace.rfind("CREATE TABLE"));
}

TEST_F(ScriptCommand, PlaysOnAnotherDatabase) {
  const auto script = Write("gut.tvs", "database :memory:\nschema\ninsert KOSTENART\n| ID | NAME\n| 7 | x\n");
  EXPECT_EQ(RunProgram("script --database " + Path("a.db") + " " + script).exit_code, 0);
  EXPECT_THAT(RunProgram("sql " + Path("a.db") + " \"SELECT NAME FROM KOSTENART WHERE ID = 7\"").output,
              HasSubstr("x"));
}

TEST_F(ScriptCommand, TellsFileLineAndWhatWasFound) {
  const auto script =
      Write("schlecht.tvs", std::string(kTable) + "expect sql SELECT * FROM T\n| A | B\n| 2 | x\n");
  const Outcome outcome = RunProgram("script " + script);
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.output, HasSubstr("schlecht.tvs:4: expect sql SELECT * FROM T"));
  EXPECT_THAT(outcome.output, HasSubstr("| 1 | x"));
  EXPECT_THAT(outcome.output, HasSubstr("Geöffnet: kein Bildschirm"));
  EXPECT_THAT(RunProgram("script " + Path("fehlt.tvs")).output, HasSubstr("kann nicht gelesen werden"));
}

TEST_F(ScriptCommand, WritesWhatItFinds) {
  const auto script =
      Write("neu.tvs", std::string(kTable) +
                           "expect sql SELECT * FROM T\n# dahinter\nexpect sql SELECT B FROM T\n| C\n");
  EXPECT_EQ(RunProgram("script --update " + script).exit_code, 0);
  EXPECT_EQ(Read("neu.tvs"), std::string(kTable) +
                                 "expect sql SELECT * FROM T\n| A | B\n| 1 | x\n# dahinter\n"
                                 "expect sql SELECT B FROM T\n| B\n| x\n");
  EXPECT_EQ(RunProgram("script " + script).exit_code, 0);
}

TEST_F(ScriptCommand, PlaysSeveralOnFreshStagesAndSumsUp) {
  const auto bad = Write("schlecht.tvs", "context strTextA davor\nexpect failure x\n");
  const auto good = Write("gut.tvs", std::string(kTable));
  const Outcome outcome = RunProgram("script " + bad + " " + good + " " + good);
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.output, HasSubstr("FEHLER      " + bad));
  EXPECT_THAT(outcome.output, HasSubstr("in Ordnung  " + good));
  EXPECT_THAT(outcome.output, HasSubstr("3 Skripte, 1 fehlgeschlagen"));
}

TEST_F(ScriptCommand, TracesEveryStatement) {
  const auto script = Write(
      "spur.tvs", std::string(kTable) + "sql UPDATE T SET A = 2\nexpect sql SELECT A FROM T\n| A\n| 2\n");
  EXPECT_EQ(RunProgram("script --trace " + Path("spur.txt") + " " + script).exit_code, 0);
  const std::string trace = Read("spur.txt");
  EXPECT_THAT(trace, HasSubstr("# " + script));
  EXPECT_THAT(trace, ContainsRegex("[0-9]\\.[0-9]+ ms  1 Zeile         UPDATE T SET A = 2"));
  EXPECT_THAT(trace, HasSubstr("SELECT A FROM T"));
  EXPECT_EQ(RunProgram("script --trace /nirgends/spur.txt " + script).exit_code, 1);
}

TEST_F(ScriptCommand, TakesPicturesOnTheDesktopOnly) {
  const auto script = Write("bild.tvs", "database :memory:\ndemo\ncall MaschineStamm\nshot bild\nclose\n");
  EXPECT_EQ(RunProgram("script --shots " + Path("a") + " --ui headless " + script).exit_code, 0);
  EXPECT_FALSE(std::filesystem::exists(Path("a") + "/bild.png"));
  const Outcome seen =
      RunProgram("script --ui desktop --shots " + Path("b") + " " + script, "QT_QPA_PLATFORM=offscreen");
  EXPECT_EQ(seen.exit_code, 0) << seen.output;
  EXPECT_GT(std::filesystem::file_size(Path("b") + "/bild.png"), 1000U);
}

TEST_F(ScriptCommand, GoesOnBehindAScriptThatBrokeOffInAScreen) {
  const auto broken = Write("ab.tvs", "database :memory:\ndemo\ncall MaschineStamm\nexpect screen none\n");
  const auto whole =
      Write("ganz.tvs", "database :memory:\ndemo\ncall MaschineStamm\nclose\nexpect screen none\n");
  const Outcome outcome = RunProgram("script " + broken + " " + whole);
  EXPECT_THAT(outcome.output, HasSubstr("in Ordnung  " + whole));
  EXPECT_THAT(outcome.output, HasSubstr("Geöffnet: F_MaschineStamm"));
}

// A commit that is refused takes back what the handler wrote, as one does on a full disk.
TEST_F(ScriptCommand, AFailedCommitLeavesNothing) {
  const auto script =
      Write("voll.tvs",
            "database :memory:\ndemo\nremember\ncall MaschineStamm\ntype txtVKN 4320\nfail commit\n"
            "click cmdSpeichern\nexpect message \"Auf dem Datenträger der Datenbank ist kein Platz mehr. "
            "Von diesem Vorgang wurde nichts gespeichert.\"\nexpect unchanged\nclick cmdSpeichern\n"
            "close\nexpect sql SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'VK'\n"
            "| KOSTENART_ID\n| 11\n");
  const Outcome outcome = RunProgram("script " + script);
  EXPECT_EQ(outcome.exit_code, 0) << outcome.output;
}

}  // namespace
}  // namespace tarvoni::host

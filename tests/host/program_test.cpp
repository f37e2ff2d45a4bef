#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/host/demo_database.h"
#include "tests/host/run_program.h"

namespace tarvoni::host {
namespace {

using ::testing::HasSubstr;

class Program : public ::testing::Test {
 protected:
  ~Program() override { std::filesystem::remove(file_); }
  Outcome Sql(const std::string& text, const std::string& options = "--create") {
    return RunProgram(fmt::format("sql {} {} \"{}\"", file_.string(), options, text));
  }

  std::filesystem::path file_ = TemporaryFile();
};

TEST_F(Program, UsageErrorsAreGermanAndGiveTwo) {
  EXPECT_THAT(RunProgram("sql").output, HasSubstr("Es fehlt: DATENBANK."));
  EXPECT_EQ(RunProgram("sql x.db --nie").exit_code, 2);
  EXPECT_THAT(RunProgram("sql x.db --csv --json").output, HasSubstr("schließen einander aus"));
  EXPECT_EQ(RunProgram("demo x.db --scale 0").exit_code, 2);
  EXPECT_THAT(RunProgram("demo x.db --scale viel").output, HasSubstr("ganze Zahl von 1 bis"));
  EXPECT_THAT(RunProgram("script x.tvs --ui web").output, HasSubstr("Es gibt nur headless und desktop."));
  EXPECT_FALSE(std::filesystem::exists("x.db"));
}

TEST_F(Program, SaysThatWindowsNeedADisplay) {
  const Outcome blind = RunProgram("", "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM");
  EXPECT_EQ(blind.exit_code, 1);
  EXPECT_THAT(blind.output, HasSubstr("keine grafische Oberfläche"));
}

TEST_F(Program, HelpIsGermanEverywhere) {
  for (const char* command : {"", "sql", "demo", "schema", "backup", "check", "script"}) {
    const Outcome help = RunProgram(std::string(command) + " --help");
    EXPECT_EQ(help.exit_code, 0) << command;
    EXPECT_THAT(help.output, HasSubstr("Aufruf: "));
    EXPECT_THAT(help.output, HasSubstr("diese Hilfe zeigen"));
    EXPECT_THAT(help.output, ::testing::Not(HasSubstr("OPTIONS")));
  }
}

TEST_F(Program, RunsStatementsAndPrintsRowsOrCounts) {
  EXPECT_EQ(Sql("CREATE TABLE T (A INT, B NVARCHAR(20))").output, "");
  EXPECT_EQ(Sql("INSERT INTO T VALUES (1, 'Föhre'), (2, NULL)", "").output, "2 Zeilen betroffen\n");
  EXPECT_EQ(Sql("SELECT * FROM T ORDER BY A", "").output,
            "A | B\n--+------\n1 | Föhre\n2 | NULL\n(2 Zeilen)\n");
  EXPECT_EQ(Sql("SELECT * FROM T ORDER BY A", "--csv").output, "A,B\n1,Föhre\n2,\n");
  EXPECT_EQ(Sql("SELECT * FROM T WHERE A = 1", "--json").output, "[\n{\"A\": 1, \"B\": \"Föhre\"}\n]\n");
}

TEST_F(Program, ShowsThePlaceOfAnErrorAndGivesOne) {
  Sql("CREATE TABLE T (A INT)");
  const Outcome wrong = Sql("SELECT A,\nNIX FROM T", "");
  EXPECT_EQ(wrong.exit_code, 1);
  EXPECT_THAT(wrong.output, HasSubstr("Fehler 207: "));
  EXPECT_THAT(wrong.output, HasSubstr("Zeile 2: NIX FROM T\n         ^\n"));
}

TEST_F(Program, FileRunsBatchesUntilOneFails) {
  const auto script = TemporaryFile();
  std::ofstream(script)
      << "CREATE TABLE T (A INT)\ngo\nINSERT INTO T VALUES (1);\nINSERT INTO T VALUES (2)\ngo\n"
         "SELECT COUNT(*) AS N FROM T\nGO\n\nSELECT X FROM T\ngo\nDELETE FROM T\n";
  const Outcome outcome =
      RunProgram(fmt::format("sql {} --create --file {}", file_.string(), script.string()));
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.output, HasSubstr("N\n-\n2\n(1 Zeile)\n"));
  EXPECT_THAT(outcome.output, HasSubstr("Zeile 9: SELECT X"));
  std::ofstream(script) << "SELECT COUNT(*) FROM T";
  const Outcome piped = RunProgram(fmt::format("sql {} --file - < {}", file_.string(), script.string()));
  EXPECT_THAT(piped.output, HasSubstr("2\n"));
  std::filesystem::remove(script);
}

TEST_F(Program, MissingFileIsAnErrorUnlessItMayBeCreated) {
  const Outcome outcome = Sql("SELECT 1", "");
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.output, HasSubstr("Fehler 50002"));
  EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(Program, SchemaRunsAsItIsPrinted) {
  EXPECT_EQ(RunProgram(fmt::format("schema > {0}.sql", file_.string())).exit_code, 0);
  EXPECT_EQ(RunProgram(fmt::format("sql {0} --create --file {0}.sql", file_.string())).exit_code, 0);
  EXPECT_THAT(Sql("SELECT COUNT(*) AS N FROM ARA_KOPF", "--csv").output, HasSubstr("N\n0\n"));
  std::filesystem::remove(file_.string() + ".sql");
}

TEST_F(Program, DemoThenCheckThenBackup) {
  const auto backup = TemporaryFile();
  EXPECT_EQ(RunProgram("demo " + file_.string()).exit_code, 0);
  EXPECT_EQ(RunProgram("demo " + file_.string()).exit_code, 1);  // not over what is there
  EXPECT_EQ(RunProgram("check " + file_.string()).exit_code, 0);
  EXPECT_EQ(RunProgram(fmt::format("backup {} {}", file_.string(), backup.string())).exit_code, 0);

  Sql("DELETE FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = 17", "");
  const Outcome damaged = RunProgram("check " + file_.string());
  EXPECT_EQ(damaged.exit_code, 1);
  EXPECT_THAT(damaged.output, HasSubstr("Verletzt: Zu jedem Lohnauftrag gehört genau eine Kostenposition"));
  EXPECT_THAT(damaged.output, HasSubstr("ARA_KOPF 17, POSITIONEN 0"));
  EXPECT_EQ(RunProgram("check " + backup.string()).exit_code, 0);
  std::filesystem::remove(backup);
}

TEST_F(Program, CheckRefusesWhatIsNoDatabase) {
  std::ofstream(file_) << std::string(5000, 'x');
  const Outcome outcome = RunProgram("check " + file_.string());
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.output, HasSubstr("Fehler 50005"));
  EXPECT_EQ(std::filesystem::file_size(file_), 5000U);
}

}  // namespace
}  // namespace tarvoni::host

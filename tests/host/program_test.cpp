#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "host/open_database.h"
#include "src/context/data/statement.h"
#include "tests/database/database_testing.h"
#include "tests/host/demo_database.h"
#include "tests/host/run_program.h"
#include "tests/support/passwords.h"

namespace tarvoni::host {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// For the shell.
std::string ForShell(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

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
    EXPECT_THAT(help.output, Not(HasSubstr("OPTIONS")));
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

TEST_F(Program, ShowsEveryResultOfABatch) {
  Sql("CREATE TABLE T (A INT)");
  EXPECT_EQ(
      Sql("INSERT INTO T VALUES (1),(2) SELECT A FROM T WHERE A = 1 SELECT COUNT(*) AS N FROM T", "").output,
      "2 Zeilen betroffen\nA\n-\n1\n(1 Zeile)\nN\n-\n2\n(1 Zeile)\n");
}

TEST_F(Program, DemoThenCheckThenBackup) {
  const auto backup = TemporaryFile();
  EXPECT_EQ(RunProgram("demo " + file_.string()).exit_code, 0);
  EXPECT_EQ(RunProgram("demo " + file_.string()).exit_code, 1);  // not over what is there
  EXPECT_EQ(RunProgram("check " + file_.string()).exit_code, 0);
  EXPECT_EQ(RunProgram(fmt::format("backup {} {}", file_.string(), backup.string())).exit_code, 0);

  Sql("DELETE FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = 17", "");
  Sql("UPDATE ARA_KOPF SET NAME = (SELECT MIN(NAME) FROM ARA_KOPF)", "");  // equal names are none
  const Outcome damaged = RunProgram("check " + file_.string());
  EXPECT_EQ(damaged.exit_code, 1);
  EXPECT_THAT(damaged.output, HasSubstr("Verletzt: Zu jedem Lohnauftrag gehört genau eine Kostenposition"));
  EXPECT_THAT(damaged.output, HasSubstr("ARA_KOPF 17, POSITIONEN 0"));
  EXPECT_THAT(damaged.output, Not(HasSubstr("NAME")));
  EXPECT_EQ(RunProgram("check " + backup.string()).exit_code, 0);

  std::ofstream(backup) << "Einkaufsliste";
  const std::string command = fmt::format("backup {} {}", file_.string(), backup.string());
  EXPECT_THAT(RunProgram(command).output, HasSubstr("keine Sicherung ist"));
  EXPECT_EQ(RunProgram(command + " --force").exit_code, 0);
  EXPECT_THAT(RunProgram(fmt::format("backup {} /nirgends/x.db", file_.string())).output,
              HasSubstr("den Ordner gibt es nicht"));
  std::filesystem::remove(backup);
}

TEST_F(Program, OfTwoDemosForOneFileOneMakesIt) {
  const std::string demo = "demo " + file_.string();
  const Outcome both = RunProgram(fmt::format("{0} 2>&1 & {1} {0} 2>&1; wait", demo, TARVONI_PROGRAM));
  EXPECT_EQ(both.output.find("Musterbetrieb angelegt"), both.output.rfind("Musterbetrieb angelegt"))
      << both.output;
  EXPECT_EQ(RunProgram("check " + file_.string()).exit_code, 0);

  std::ofstream(file_, std::ios::trunc);  // an empty file is as good as none
  EXPECT_EQ(RunProgram(demo).exit_code, 0);
}

TEST_F(Program, CheckRefusesWhatIsNoDatabase) {
  std::ofstream(file_) << std::string(5000, 'x');
  const Outcome outcome = RunProgram("check " + file_.string());
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.output, HasSubstr("Fehler 50005"));
  EXPECT_EQ(std::filesystem::file_size(file_), 5000U);

  const auto says = [this](const char* sentence) {
    const Outcome refused = RunProgram("check " + file_.string());
    EXPECT_EQ(refused.exit_code, 1) << sentence;
    EXPECT_THAT(refused.output, HasSubstr(sentence));
    std::filesystem::remove(file_);
  };
  EXPECT_THAT(RunProgram("check ''").output, HasSubstr("keine Datenbank genannt"));
  std::ofstream(file_, std::ios::trunc);
  says("ist leer");
  std::filesystem::create_directory(file_);
  says("ist ein Ordner");
  mkfifo(file_.c_str(), 0600);
  says("keine gewöhnliche Datei");
  Sql("CREATE TABLE T (A INT)");
  EXPECT_THAT(RunProgram("check " + file_.string()).output, HasSubstr("Datei: Die Tabelle "));
  says("weil ihre Tabellen oder Spalten fehlen");
}

TEST_F(Program, CheckFinishesWhatAKilledProgramLeft) {
  EXPECT_EQ(RunProgram("demo " + file_.string()).exit_code, 0);
  if (const pid_t child = fork(); child != 0) {
    int status = 0;
    waitpid(child, &status, 0);
  } else {
    const auto connection = OpenDatabase(file_.string());
    connection->BeginHandler();
    // More than the cache holds, so that the file stands half done on the disk.
    connection->Execute(Compose("UPDATE ARA_KOPF SET BESCHREIBUNG = '{}'", Quoted(std::string(20'000, 'x'))));
    raise(SIGKILL);
  }
  const std::string journal = file_.string() + "-journal";
  ASSERT_TRUE(std::filesystem::exists(journal));
  const Outcome check = RunProgram("check " + file_.string());
  EXPECT_EQ(check.exit_code, 0) << check.output;
  EXPECT_FALSE(std::filesystem::exists(journal));
}

TEST_F(Program, AScreenOpensOnADamagedRowAndCheckNamesIt) {
  EXPECT_EQ(RunProgram("demo " + file_.string()).exit_code, 0);
  EXPECT_EQ(sqlite::OtherProgram(file_.string())
                .Run("UPDATE ARBEITSAUFTRAG SET DATUM_NR = '2024-13-45' WHERE ID_ARA_KOPF IS NOT NULL"),
            SQLITE_OK);
  const Outcome check = RunProgram("check " + file_.string());
  EXPECT_EQ(check.exit_code, 1);
  EXPECT_THAT(check.output, HasSubstr("Spalte DATUM_NR: kein gültiges Datum („2024-13-45“)"));
  const auto script = TemporaryFile();
  std::ofstream(script) << "database " << file_.string()
                        << "\ntoday 2024-06-03\ncall ARA strPersonal_dll=1\n"
                           "expect rows DataGridArbeitsauftrag 200\n"
                           "expect txtErstellungsDatum = ⚠ 2024-13-45\nclose\n";
  const Outcome played = RunProgram("script " + script.string());
  EXPECT_EQ(played.exit_code, 0) << played.output;
  std::filesystem::remove(script);
}

// Wherever a connection text can stand in a command, also where a file is wanted.
TEST_F(Program, ShowsNoPassword) {
  const auto folder = file_.parent_path();
  const auto script = folder / "kennwort.tvs", trace = folder / "kennwort.txt";
  const auto texts = passwords::ConnectionTexts();
  for (std::size_t i = 0; i < texts.size(); i += 11) {  // each form once, with another name and beginning
    const std::string& text = texts[i];
    const std::string quoted = ForShell(text);
    std::ofstream(script) << "# " << text << "\ndatabase " << text << "\n";
    for (const std::string& command :
         {fmt::format("demo {}", quoted), fmt::format("sql {} 'SELECT 1'", quoted),
          fmt::format("check {}", quoted),
          fmt::format("script --tell --trace {} {}", trace.string(), script.string())}) {
      const Outcome outcome = RunProgram(command);
      EXPECT_EQ(outcome.exit_code, 1) << command;
      EXPECT_THAT(outcome.output, Not(HasSubstr(passwords::kSecret))) << command;
    }
  }
  std::filesystem::remove(script);
  std::filesystem::remove(trace);
}

TEST_F(Program, RefusesATakenServerWithoutItsPassword) {
  const std::string server =
      ForShell("odbc:Driver=" SQLITE_ODBC_DRIVER ";Database=" + file_.string() + ";PWD = {a;Fichte}");
  EXPECT_EQ(RunProgram(fmt::format("sql {} 'CREATE TABLE ara_kopf (A INT)'", server)).exit_code, 0);
  const Outcome outcome = RunProgram("demo " + server);
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.output, HasSubstr("PWD =***“ ist nicht leer"));
}

TEST_F(Program, ShowsNoPasswordOfAMisplacedText) {
  Sql("CREATE TABLE T (A INT)");
  const std::string text = ForShell("odbc:Driver=Keiner;PWD={a;Fichte}");
  for (const std::string& command :
       {"script " + text, "schema " + text, fmt::format("backup {} {}", file_.string(), text),
        "sql -f " + text, fmt::format("sql {} -f {}", file_.string(), text), "demo x.db --scale " + text,
        "script --ui " + text,
        fmt::format("sql {} {}", file_.string(), ForShell("SELECT FEHLT, 'PWD=Fichte' AS X")),
        fmt::format("script --trace {} x.tvs", ForShell("/fehlt/PWD=Fichte"))}) {
    const Outcome outcome = RunProgram(command);
    EXPECT_NE(outcome.exit_code, 0) << command;
    EXPECT_THAT(outcome.output, Not(HasSubstr(passwords::kSecret))) << command;
  }
}

TEST_F(Program, AnOutputThatIsFullAndAFolderForAFileAreErrors) {
  EXPECT_EQ(RunProgram("demo " + file_.string()).exit_code, 0);
  for (const std::string& command :
       {"check " + file_.string(), "sql --csv " + file_.string() + " \"SELECT 1\"", std::string("schema"),
        std::string("--help")}) {
    const Outcome full = RunProgram(command + " > /dev/full");
    EXPECT_EQ(full.exit_code, 1) << command;
    EXPECT_THAT(full.output, HasSubstr("lässt sich nicht schreiben")) << command;
  }
  const auto limited = TemporaryFile();
  EXPECT_EQ(RunProgram("demo " + limited.string(), "ulimit -f 1000;").exit_code, 1);
  EXPECT_FALSE(std::filesystem::exists(limited.string() + ".tarvoni-teil"));
  const auto empty = TemporaryFile();
  std::ofstream(empty) << "database :memory:\n";
  EXPECT_EQ(RunProgram("script --trace /dev/full " + empty.string()).exit_code, 1);
  std::filesystem::remove(empty);
  for (const std::string& command : {"sql " + file_.string() + " -f /tmp", std::string("script /tmp")})
    EXPECT_EQ(RunProgram(command).exit_code, 1) << command;
  EXPECT_THAT(RunProgram("check a.db b.db").output, HasSubstr("Das wird hier nicht verstanden: b.db"));
  const auto marked = TemporaryFile();
  std::ofstream(marked) << "\xEF\xBB\xBF"
                        << "SELECT 5 AS A";
  EXPECT_EQ(RunProgram(fmt::format("sql {} --csv -f {}", file_.string(), marked.string())).output, "A\n5\n");
  std::ofstream(marked) << "\xEF\xBB\xBF"
                        << "database :memory:\n";
  EXPECT_EQ(RunProgram("script " + marked.string()).exit_code, 0);
  std::filesystem::remove(marked);
}

}  // namespace
}  // namespace tarvoni::host

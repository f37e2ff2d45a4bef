#include "host/command_line.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

#include "host/commands.h"
#include "host/desktop/desktop.h"
#include "host/error_report.h"
#include "platform/sqlite/public/system_reason.h"
#include "src/context/data/password.h"

namespace tarvoni::host {
namespace {

constexpr const char* kDatabaseHelp = "Datei der Datenbank, oder odbc:… für eine auf einem Server";
constexpr int kMaxScale = 1000;

// CLI11 words its messages in English: what they name is taken out of them.
std::string GermanMessage(const CLI::Error& error) {
  const std::string message = error.what();
  const auto behind_colon = [&message] { return message.substr(message.find(": ") + 2); };
  const auto before = [&message](std::string_view part) { return message.substr(0, message.find(part)); };
  const std::string& kind = error.get_name();
  if (kind == "RequiredError") {
    return "Es fehlt: " + before(" is required") + ".";
  }
  // Its name is that of the command.
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
    return "Das wird hier nicht verstanden: " + behind_colon();
  if (kind == "ConversionError") return "Kein gültiger Wert: " + behind_colon();
  if (kind == "ArgumentMismatch") return "Falsche Zahl von Werten bei " + before(":") + ".";
  if (kind == "RequiresError") {
    const auto first = before(" requires ");
    return first + " braucht auch " + message.substr(first.size() + std::string_view(" requires ").size()) +
           ".";
  }
  if (kind == "ExcludesError") {
    const auto first = before(" excludes ");
    return first + " und " + message.substr(first.size() + std::string_view(" excludes ").size()) +
           " schließen einander aus.";
  }
  return message;
}

std::string FailureMessage(const CLI::App* app, const CLI::Error& error) {
  return WithoutPassword(GermanMessage(error)) + "\nHilfe: " + app->get_name() + " --help\n";
}

std::string CheckScale(const std::string& text) {
  int scale = 0;
  const bool valid = CLI::detail::lexical_cast(text, scale) && scale >= 1 && scale <= kMaxScale;
  return valid ? std::string() : fmt::format("Es muss eine ganze Zahl von 1 bis {} sein.", kMaxScale);
}

std::string CheckUi(const std::string& text) {
  return text == "headless" || text == "desktop" ? "" : "Es gibt nur headless und desktop.";
}

// The commands, each with a place for its options; `run` is what the command line asks for.
class CommandLine {
 public:
  CommandLine() {
    app_.require_subcommand(0, 1);
    app_.add_option("--database", desktop_database_, "die Datenbank im Fenster öffnen")
        ->type_name("DATENBANK");
    app_.set_version_flag("--version", "tarvoni " TARVONI_VERSION, "Version zeigen");
    app_.failure_message(FailureMessage);
    SpeakGerman(app_);
    AddSql();
    AddDemo();
    AddSchema();
    AddBackup();
    AddCheck();
    AddScript();
  }

  ExitCode Run(int argc, char** argv) {
    try {
      app_.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return app_.exit(error) == 0 ? kOk : kUsage;
    }
    return run_ ? run_() : static_cast<ExitCode>(RunDesktop(desktop_database_));
  }

 private:
  static void SpeakGerman(CLI::App& app) {
    app.set_help_flag("-h,--help", "diese Hilfe zeigen");
    app.option_defaults()->group("Optionen");
    app.get_help_ptr()->group("Optionen");
    const auto formatter = app.get_formatter();
    for (const auto& [name, text] : {std::pair{"Usage", "Aufruf"},
                                     {"OPTIONS", "Optionen"},
                                     {"SUBCOMMAND", "Befehl"},
                                     {"Positionals", "Argumente"},
                                     {"Excludes", "nicht mit"},
                                     {"Needs", "mit"},
                                     {"REQUIRED", ""}})
      formatter->label(name, text);
  }

  CLI::App* AddCommand(const std::string& name, const std::string& help, std::function<ExitCode()> run) {
    CLI::App* command = app_.add_subcommand(name, help)->group("Befehle");
    SpeakGerman(*command);
    command->callback([this, run = std::move(run)] { run_ = run; });
    return command;
  }

  CLI::Option* AddDatabase(CLI::App* command, std::string& database, const char* help = kDatabaseHelp) {
    return command->add_option("DATENBANK", database, help)->required()->type_name("");
  }

  void AddSql() {
    CLI::App* command = AddCommand("sql", "T-SQL ausführen: als Argument, aus einer Datei oder am Prompt",
                                   [this] { return RunSql(sql_); });
    AddDatabase(command, sql_.database);
    auto* text = command->add_option("TEXT", sql_.text, "auszuführende Anweisungen")->type_name("");
    auto* file =
        command->add_option("-f,--file", sql_.file,
                            "Anweisungen aus einer Datei, - für die Standardeingabe; eine Zeile mit go "
                            "trennt, was getrennt ausgeführt wird");
    file->type_name("DATEI")->excludes(text);
    const auto set_format = [this](OutputFormat format) {
      return [this, format](auto) { sql_.format = format; };
    };
    auto* csv =
        command->add_flag_function("--csv", set_format(OutputFormat::kCsv),
                                   "Ergebnis als CSV: Beistrich zwischen den Werten, Punkt in Zahlen, "
                                   "Kopfzeile, NULL leer");
    command->add_flag_function("--json", set_format(OutputFormat::kJson), "Ergebnis als JSON")->excludes(csv);
    command->add_flag("--create", sql_.create, "die Datei anlegen, wenn es sie nicht gibt");
  }

  void AddDemo() {
    CLI::App* command = AddCommand("demo", "eine neue Datenbank mit einem Musterbetrieb anlegen",
                                   [this] { return RunDemo(demo_); });
    AddDatabase(command, demo_.database, "neue Datei, oder odbc:… für eine leere Datenbank auf einem Server");
    command->add_option("--scale", demo_.scale, "Größe des Betriebs; 100 gibt einen sehr großen (Vorgabe 1)")
        ->type_name("ZAHL")
        ->check(CLI::Validator(CheckScale, "", "scale"));
  }

  void AddSchema() { AddCommand("schema", "die Tabellen als T-SQL ausgeben", RunSchema); }

  void AddBackup() {
    CLI::App* command = AddCommand("backup", "eine Datenbank im laufenden Betrieb sichern",
                                   [this] { return RunBackup(backup_); });
    AddDatabase(command, backup_.database, "Datei der Datenbank");
    command->add_option("DATEI", backup_.target, "Datei der Sicherung")->required()->type_name("");
    command->add_flag("--force", backup_.force,
                      "auch eine Datei ersetzen, die keine ältere Sicherung dieser Datenbank ist");
  }

  void AddCheck() {
    CLI::App* command = AddCommand("check", "die Datei und die Regeln der Daten prüfen",
                                   [this] { return RunCheck(database_); });
    AddDatabase(command, database_);
  }

  void AddScript() {
    CLI::App* command = AddCommand("script", "Skripte spielen, die Bildschirme bedienen und prüfen",
                                   [this] { return RunScript(script_); });
    command->add_option("DATEI", script_.files, "Skripte (.tvs), eines nach dem anderen")
        ->required()
        ->type_name("");
    command->add_flag("--update", script_.update,
                      "die erwarteten Zeilen (|) neu schreiben statt vergleichen");
    command->add_flag("--all", script_.all,
                      "nach einem Vergleich, der misslingt, weitermachen und am Ende alle nennen");
    command
        ->add_option("--database", script_.database,
                     "leere Datenbank statt der im Skript genannten, auch odbc:…")
        ->type_name("DATENBANK");
    command->add_flag("--tell", script_.tell,
                      "die Kommentare des Skripts ausgeben, sobald sie an der Reihe sind");
    command->add_option("--trace", script_.trace, "jede Anweisung an die Datenbank mit Zeit und Zeilen")
        ->type_name("DATEI");
    auto* ui = command->add_option_function<std::string>(
        "--ui", [this](const std::string& ui_name) { script_.desktop = ui_name == "desktop"; },
        "headless (Vorgabe) oder desktop: dasselbe Skript durch die Fenster");
    ui->type_name("ART")->check(CLI::Validator(CheckUi, "", "ui"));
    command->add_option("--shots", script_.shots, "Ordner für die Bilder der Zeilen shot NAME")
        ->type_name("ORDNER")
        ->needs(ui);
  }

  CLI::App app_{"Tarvoni Lohn: Lohn und Kostenrechnung eines Forstbetriebs", "tarvoni"};
  std::function<ExitCode()> run_;
  SqlOptions sql_;
  DemoCommand demo_;
  ScriptCommand script_;
  std::string desktop_database_;
  std::string database_;
  BackupCommand backup_;
};

// What was printed has arrived only when the last of it is out.
void FinishOutput() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
    throw std::system_error(errno, std::generic_category());
}

// The sentence for an error, with a line break.
std::string Describe(const std::exception& error) {
  if (const auto* failed = dynamic_cast<const DatabaseError*>(&error)) return DescribeError(*failed);
  if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error)) {
    return fmt::format("Die Datei {} lässt sich nicht öffnen: {}.\n", file->path1().string(),
                       sqlite::SystemReason(file->code().value()));
  }
  if (const auto* output = dynamic_cast<const std::system_error*>(&error)) {
    return fmt::format("Die Ausgabe lässt sich nicht schreiben: {}.\n",
                       sqlite::SystemReason(output->code().value()));
  }
  return fmt::format("{}\n", error.what());
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
  try {
    const ExitCode code = CommandLine().Run(argc, argv);
    FinishOutput();
    return code;
  } catch (const std::exception& error) {
    std::fputs(WithoutPassword(Describe(error)).c_str(), stderr);
  }
  return kFailed;
}

}  // namespace tarvoni::host

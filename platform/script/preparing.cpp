#include <algorithm>
#include <filesystem>

#include "platform/script/commands.h"
#include "platform/script/trying.h"
#include "src/context/data/statement.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/values/clock.h"

namespace tarvoni {
namespace {

void Connect(ScriptRun& run, const std::string& database) {
  if (!run.environment.connect) run.Fail("Es ist nicht festgelegt, wie eine Datenbank geöffnet wird.");
  run.context.dbAdo = run.environment.connect(database);
  run.context.strConString = run.context.dbAdo->ConnectionString();
}

void Database(ScriptRun& run) {
  const std::string& named = run.Word(1, "die Datenbank");
  Connect(run, run.options.database.empty() ? named : run.options.database);
}

// The lines of the file follow.
void Include(ScriptRun& run) {
  run.Word(1, "die Datei");
}

bool Sets(const ScriptLine& line) {
  return line.Is("today") || line.Is("locale") || line.Is("context");
}

// The first script that asks for a fixture plays its lines, the others get a copy of the database that they made: of
// the lines only those are played that set something else.
void Fixture(ScriptRun& run) {
  const auto folder = std::filesystem::path(run.Line().file).parent_path();
  const std::string key = std::filesystem::weakly_canonical(folder / run.Word(1, "die Datei")).string();
  const std::size_t end = run.next + run.Line().inside;
  const bool copies = run.hooks.copy && run.options.database.empty();
  const auto made = run.hooks.fixtures->find(key);
  if (copies && made != run.hooks.fixtures->end()) {
    // The copy lives until the connection to it is open.
    const auto copy = run.hooks.copy(*made->second);
    Connect(run, copy->ConnectionString());
    while (run.next < end) Sets(run.script.commands[run.next]) ? run.PlayLine() : void(++run.next);
    return;
  }
  while (run.next < end) run.PlayLine();
  if (!copies) return;
  if (auto copy = run.hooks.copy(run.RealDb())) run.hooks.fixtures->emplace(key, std::move(copy));
}

void MakeSchema(ScriptRun& run) {
  if (!run.hooks.schema) run.Fail("Hier gibt es die Tabellen nicht.");
  run.hooks.schema(run.Db());
}

void Demo(ScriptRun& run) {
  if (!run.hooks.demo) run.Fail("Hier gibt es keinen Demobetrieb.");
  run.hooks.demo(run.Db(), run.Line().words.size() > 1 ? run.Line().words[1] : "");
}

void Today(ScriptRun& run) {
  const auto day = DateTime::FromIso(run.Word(1, "das Datum"));
  if (!day) run.Fail("\"" + run.Line().words[1] + "\" ist kein Datum der Form 2024-03-15.");
  Clock::Set(*day);
}

void SetLocale(ScriptRun& run) {
  const std::string& name = run.Word(1, "die Sprache");
  if (name != "de" && name != "en") run.Fail("Es gibt nur die Sprachen de und en.");
  run.environment.locale = name == "de" ? Locale::German() : Locale::English();
}

void SetContext(ScriptRun& run) {
  if (!SetMember(run.context, run.Word(1, "der Name"), run.Text(2)))
    run.Fail("Der Wert passt zu keinem Feld dieses Namens.");
}

void SetOption(ScriptRun& run) {
  static const std::map<std::string, std::string> columns = {
      {"number", "NUMBER_VALUE"}, {"text", "TEXT_VALUE"}, {"double", "DOUBLE_VALUE"}};
  const auto column = columns.find(run.Word(2, "number, text oder double"));
  if (column == columns.end()) run.Fail("Eine Option ist number, text oder double.");
  const Quoted key(run.Word(1, "der Name der Option"));
  const SqlText literal =
      column->first == "text" ? TextOrNull(run.Text(3)) : SqlText::Verbatim(run.Word(3, "der Wert"));
  run.Db().Execute(Compose("DELETE FROM OPTIONEN WHERE PROPERTY_ID = '{}'", key));
  run.Db().Execute(Compose("INSERT INTO OPTIONEN (PROPERTY_ID, {}) VALUES ('{}', {})", Name(column->second),
                           key, literal));
}

// A failure that the next line expects is not one of the script.
void Sql(ScriptRun& run) {
  try {
    run.Db().Execute(SqlText::Verbatim(run.Text(1)));
  } catch (const DatabaseError& error) {
    const auto& commands = run.script.commands;
    const bool expected = run.next < commands.size() && commands[run.next].words.size() > 1 &&
                          commands[run.next].Is("expect") && commands[run.next].words[1] == "failure";
    if (!expected) throw;
    run.failure = {.text = error.what(), .number = error.Number()};
  }
}

std::string Literal(const std::string& cell) {
  if (cell.empty() || cell == "NULL") return "NULL";
  if (cell == "\"\"") return "''";
  std::string text = "'";
  for (const char c : cell) text.append(c == '\'' ? 2 : 1, c);
  return text + "'";
}

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

// A server takes keys of its own making only when it is told so before.
void Insert(ScriptRun& run) {
  constexpr int kIdentityGiven = 544;
  const std::string& table = run.Word(1, "die Tabelle");
  if (run.Line().block.size() < 2) run.Fail("Es fehlen die Zeilen mit |.");
  const auto columns = SplitCells(run.Line().block[0]);
  std::vector<std::string> rows;
  for (std::size_t i = 1; i < run.Line().block.size(); ++i) {
    auto cells = SplitCells(run.Line().block[i]);
    cells.resize(columns.size());
    for (std::string& cell : cells) cell = Literal(cell);
    rows.push_back("(" + Joined(cells) + ")");
  }
  const std::string insert = "INSERT INTO " + table + " (" + Joined(columns) + ") VALUES " + Joined(rows);
  try {
    run.Db().Execute(SqlText::Verbatim(insert));
  } catch (const DatabaseError& error) {
    if (error.Number() != kIdentityGiven) throw;
    const std::string around = "SET IDENTITY_INSERT " + table;
    run.Db().Execute(SqlText::Verbatim(around + " ON " + insert + " " + around + " OFF"));
  }
}

void Remember(ScriptRun& run) {
  if (!run.hooks.contents) run.Fail("Der Inhalt der Datenbank lässt sich hier nicht vergleichen.");
  run.remembered = run.hooks.contents(run.Db());
}

void FailWrite(ScriptRun& run) {
  const int nth = run.Number(2, "der wievielte Schreibvorgang");
  if (nth < 1) run.Fail("Gezählt wird von 1 an.");
  run.write_fault->Arm(nth, run.Line().words.size() > 3 ? run.Number(3, "die Fehlernummer") : kErrorBusy);
  run.fault_ahead = true;
}

// What is said of a box that the line before opened.
bool IsAboutABox(const ScriptLine& line) {
  if (line.Is("expect") && line.words.size() > 1)
    return line.words[1] == "message" || line.words[1] == "offer" || line.words[1].starts_with("box.");
  return line.Is("locations") ||
         std::ranges::any_of(kAnswers, [&](std::string_view answer) { return line.Is(answer); });
}

void PassOverNextLine(ScriptRun& run) {
  if (!run.AtEnd()) ++run.next;
  while (!run.AtEnd() && IsAboutABox(run.script.commands[run.next])) ++run.next;
}

void FailCommit(ScriptRun& run) {
  const int nth = run.Line().words.size() > 2 ? run.Number(2, "der wievielte Abschluss") : 1;
  if (nth < 1) run.Fail("Gezählt wird von 1 an.");
  run.commit_fault = run.ArmCommit(nth);
  if (!run.commit_fault) return PassOverNextLine(run);
  run.fault_ahead = true;
}

}  // namespace

const std::vector<ScriptCommand>& PreparingCommands() {
  static const std::vector<ScriptCommand> commands = {
      {"database NAME", Database, false, CommandUse::kWithoutScreen},
      {"fixture FILE", Fixture, false, CommandUse::kWithoutScreen},
      {"include FILE", Include},
      {"schema", MakeSchema, false, CommandUse::kWithoutScreen},
      {"demo [SCALE]", Demo},
      {"today DAY", Today},
      {"locale LANGUAGE", SetLocale},
      {"context NAME TEXT", SetContext},
      {"option KEY KIND TEXT", SetOption},
      {"sql TEXT", Sql},
      {"insert TABLE", Insert, true},
      {"remember", Remember},
      {"fail write N [NUMBER]", FailWrite},
      {"fail commit [N]", FailCommit},
  };
  return commands;
}

}  // namespace tarvoni

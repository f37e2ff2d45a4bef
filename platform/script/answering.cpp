#include <algorithm>

#include "platform/script/commands.h"
#include "platform/script/paper_rows.h"
#include "src/context/services/services.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

// What is open besides Screens and waits for an answer.
struct Opened {
  std::string kind;  // "eine Meldung", for failures
  std::string text;  // prompt or caption
  std::string title;
  std::string answers;               // the commands that answer it, parted by blanks
  TextRows rows = {};                // of a pick list or a print, captions first
  bool closes_itself = false;        // one button only: an `expect message` is answer enough
  ScriptHooks::Values details = {};  // what else can be expected of it
  std::string offer = {};            // the codes of a list
  const PrintDocument* paper = nullptr;
};

// The buttons a box offers by their script names.
std::string ButtonsOf(int style) {
  switch (BoxButtons(style)) {
    case kBoxOkCancel:
      return "ok cancel";
    case kBoxYesNo:
      return "yes no";
    case kBoxYesNoCancel:
      return "yes no cancel";
    default:
      return "ok";
  }
}

std::string IconOf(int style) {
  switch (BoxIcon(style)) {
    case kBoxStop:
      return "stop";
    case kBoxQuestion:
      return "question";
    case kBoxWarning:
      return "warning";
    case kBoxInformation:
      return "information";
    default:
      return "none";
  }
}

std::string DefaultOf(int style) {
  const std::string buttons = ButtonsOf(style);
  const auto blank = buttons.find(' ');
  if ((style & kBoxSecondIsDefault) == 0 || blank == std::string::npos) return buttons.substr(0, blank);
  return buttons.substr(blank + 1, buttons.find(' ', blank + 1) - blank - 1);
}

int ButtonCode(std::string_view name) {
  if (name == "yes") return kAnswerYes;
  if (name == "no") return kAnswerNo;
  return name == "ok" ? kAnswerOk : kAnswerCancel;
}

std::vector<std::string> TextsOf(const FieldList& fields, int first) {
  std::vector<std::string> texts;
  for (int i = first; i < fields.Count(); ++i)
    texts.push_back(FieldText(fields[i].Value(), "", CurrentLocale()));
  return texts;
}

void ExpectMessage(ScriptRun& run, const Opened& opened) {
  const std::string expected = run.Text(2);
  if (!IsNumber(expected)) return run.ExpectEqual("Meldung", expected, opened.text);
  // Messages are often part of a longer sentence.
  const std::string text = run.environment.suite->Messages().GetMessage(std::stoi(expected), run.context);
  if (opened.text.find(text) == std::string::npos) {
    run.Differ("Meldung " + expected + ": erwartet \"" + text + "\", gefunden \"" + opened.text + "\"");
  }
}

void ExpectOpened(ScriptRun& run, const Opened& opened) {
  const std::string& what = run.Line().words[1];
  if (what == "message") return ExpectMessage(run, opened);
  if (!what.starts_with("box.")) return run.ExpectBlock(opened.kind, opened.rows);
  const std::string detail = what.substr(4);
  if (run.Word(2, "das Gleichheitszeichen") != "=") run.Fail("Es fehlt das Gleichheitszeichen.");
  if (detail == "Title") return run.ExpectEqual(what, run.Text(3), opened.title);
  const auto found = opened.details.find(detail);
  if (found == opened.details.end()) run.Fail("Für " + opened.kind + " gibt es kein box." + detail + ".");
  run.ExpectEqual(what, run.Text(3), found->second);
}

bool LooksAtOpened(const ScriptLine& line) {
  return line.Is("expect") && line.words.size() > 1 &&
         (HasWord("message offer preview", line.words[1]) || line.words[1].starts_with("box."));
}

[[noreturn]] void Unexpected(ScriptRun& run, const Opened& opened) {
  run.Fail("Unerwartet öffnet sich " + opened.kind + ": \"" + opened.text + "\" (" + opened.title + ")");
}

// The answer of the row of `try` that is at work.
const ScriptLine* AnswerOfRow(ScriptRun& run, const Opened& opened) {
  run.trial->Opened(opened.text, opened.offer);
  if (opened.closes_itself) return nullptr;
  auto words = run.trial->Answer(opened.answers);
  if (words.empty()) Unexpected(run, opened);
  return &run.Pretend(std::move(words), run.Line().number, run.Line().raw);
}

// A picture of the Screen below what opened; of a paper the paper itself.
void PlayShot(ScriptRun& run, const Opened& opened) {
  if (!opened.paper) return run.PlayLine();
  run.TakeLine();
  run.driver.ShotPaper(*opened.paper, run.Word(1, "der Name des Bildes"));
}

// Waits for the line that answers; null if the box closes by itself.
const ScriptLine* AnswerTo(ScriptRun& run, const Opened& opened) {
  if (run.trial) return AnswerOfRow(run, opened);
  const std::size_t caller = run.current;
  bool expected = false;
  while (!run.AtEnd()) {
    const ScriptLine& line = run.script.commands[run.next];
    if (line.Is("shot")) {
      PlayShot(run, opened);
      continue;
    }
    if (!LooksAtOpened(line)) {
      if (HasWord(opened.answers, line.words[0])) return &run.TakeLine();
      break;
    }
    run.TakeLine();
    ExpectOpened(run, opened);
    expected = true;
  }
  if (opened.closes_itself && expected) {
    run.current = caller;
    return nullptr;
  }
  if (!run.AtEnd()) run.current = run.next;
  Unexpected(run, opened);
}

std::optional<std::size_t> PickRow(ScriptRun& run, const PickRequest& request, const std::string& code) {
  if (code == "none") return std::nullopt;
  Recordset rows = request.rows;
  for (std::size_t row = 0; !rows.EndOfFile(); rows.MoveNext(), ++row) {
    const Value& value = rows.Fields()[request.code_column].Value();
    if (utf8::Trim(FieldText(value, "", CurrentLocale())) == code) return row;
  }
  run.Fail("Die Auswahl \"" + request.caption + "\" bietet " + code + " nicht an.");
}

std::string CodesOf(const PickRequest& request) {
  std::string codes;
  for (Recordset rows = request.rows; !rows.EndOfFile(); rows.MoveNext()) {
    const std::string code = FieldText(rows.Fields()[request.code_column].Value(), "", CurrentLocale());
    codes.append(codes.empty() ? "" : ", ").append(utf8::Trim(code));
  }
  return codes;
}

TextRows OfferOf(const PickRequest& request) {
  TextRows shown(1);
  Recordset rows = request.rows;
  const int first = request.hidden_columns;
  for (int i = first; i < rows.Fields().Count(); ++i) shown[0].push_back(rows.Fields()[i].Name());
  for (; !rows.EndOfFile(); rows.MoveNext()) shown.push_back(TextsOf(rows.Fields(), first));
  return shown;
}

// Answers take part in AnswerTo only.
void Unused(ScriptRun& /*run*/) {}

}  // namespace

const std::vector<ScriptCommand>& AnsweringCommands() {
  static const std::vector<ScriptCommand> commands = {
      {"answer BUTTON", Unused, false, CommandUse::kAnswer},
      {"input TEXT", Unused, false, CommandUse::kAnswer},
      {"pick CODE …", Unused, false, CommandUse::kAnswer},
      {"date DAY", Unused, false, CommandUse::kAnswer},
      {"month MONTH YEAR", Unused, false, CommandUse::kAnswer},
      {"locations PATH …", Unused, false, CommandUse::kAnswer},
      {"text TEXT", Unused, false, CommandUse::kAnswer},
  };
  return commands;
}

int ScriptPlayer::MessageBox(const std::string& prompt, int style, const std::string& title) {
  const std::string buttons = ButtonsOf(style);
  const ScriptLine* line = AnswerTo(
      *run_, {.kind = "eine Meldung",
              .text = prompt,
              .title = title,
              .answers = "answer",
              .closes_itself = buttons == "ok",
              .details = {{"Buttons", buttons}, {"Icon", IconOf(style)}, {"Default", DefaultOf(style)}}});
  if (!line) return kAnswerOk;
  const std::string& answer = run_->Word(1, "die Antwort");
  if (!HasWord(buttons, answer)) run_->Fail("Die Meldung hat nur die Tasten: " + buttons);
  return ButtonCode(answer);
}

std::string ScriptPlayer::InputBox(const std::string& prompt, const std::string& title,
                                   const std::string& initial) {
  const ScriptLine* line = AnswerTo(*run_, {.kind = "eine Eingabe",
                                            .text = prompt,
                                            .title = title,
                                            .answers = "input answer",
                                            .details = {{"Text", initial}}});
  if (line->Is("input")) return run_->Text(1);
  return run_->Word(1, "die Antwort") == "ok" ? initial : std::string();
}

PickResult ScriptPlayer::PickList(const PickRequest& request) {
  const ScriptLine* line =
      AnswerTo(*run_, {.kind = "eine Auswahl",
                       .text = request.caption,
                       .title = request.start_text,
                       .answers = "pick answer",
                       .rows = OfferOf(request),
                       .details = {{"Caption", request.caption}, {"Extra", request.extra_button}},
                       .offer = CodesOf(request)});
  if (line->Is("pick")) return {.row = PickRow(*run_, request, run_->Text(1)), .extra = false};
  const bool extra = run_->Word(1, "die Antwort") == "extra";
  if (extra && request.extra_button.empty()) run_->Fail("Die Auswahl hat keine weitere Taste.");
  return {.row = std::nullopt, .extra = extra};
}

std::optional<DateTime> ScriptPlayer::PickDate(const std::string& caption, const std::optional<DateTime>&) {
  AnswerTo(*run_, {.kind = "eine Datumsauswahl", .text = caption, .title = "", .answers = "date"});
  if (run_->Word(1, "das Datum") == "none") return std::nullopt;
  const auto date = ParseDate(run_->Line().words[1]);
  if (!date) run_->Fail("\"" + run_->Line().words[1] + "\" ist kein Datum.");
  return date;
}

std::optional<YearMonth> ScriptPlayer::PickMonth(const std::string& caption, const YearMonth&) {
  AnswerTo(*run_, {.kind = "eine Monatsauswahl", .text = caption, .title = "", .answers = "month"});
  const std::string& month = run_->Word(1, "der Monat");
  if (month == "none") return std::nullopt;
  const std::string& year = run_->Word(2, "das Jahr");
  if (!IsNumber(month) || !IsNumber(year)) run_->Fail("Ein Monat hat die Form 3 2024.");
  return YearMonth{.year = std::stoi(year), .month = std::stoi(month)};
}

std::vector<std::int32_t> ScriptPlayer::PickLocations(const LocationRequest& request) {
  AnswerTo(*run_, {.kind = "die Waldortauswahl",
                   .text = request.caption,
                   .title = request.start_text,
                   .answers = "locations"});
  std::vector<std::int32_t> ids;
  const auto words = run_->Line().words;
  for (std::size_t i = 1; i < words.size() && words[i] != "none"; ++i) {
    const auto found = std::ranges::find_if(request.locations, [&](const Location& location) {
      return location.path == words[i] || location.name == words[i];
    });
    if (found == request.locations.end())
      run_->Fail("Den Waldort " + words[i] + " gibt es in der Auswahl nicht.");
    ids.push_back(found->id);
  }
  if (!request.many && ids.size() > 1) run_->Fail("Hier kann nur ein Waldort gewählt werden.");
  return ids;
}

std::optional<std::string> ScriptPlayer::EditText(const TextRequest& request) {
  const ScriptLine* line = AnswerTo(
      *run_, {.kind = "ein Text", .text = request.caption, .title = request.text, .answers = "text answer"});
  if (!line->Is("text"))
    return run_->Word(1, "die Antwort") == "ok" ? std::optional(request.text) : std::nullopt;
  if (request.read_only) run_->Fail("Dieser Text kann nur gelesen werden.");
  return run_->Text(1);
}

void ScriptPlayer::PreviewPrint(const PrintDocument& document) {
  AnswerTo(*run_, {.kind = "eine Druckvorschau",
                   .text = document.title,
                   .title = document.title,
                   .answers = "answer",
                   .rows = PaperRows(document),
                   .closes_itself = true,
                   .paper = &document});
}

}  // namespace tarvoni

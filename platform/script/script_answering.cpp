#include <algorithm>

#include "platform/script/public/script_player.h"
#include "src/context/services/services.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

bool HasWord(std::string_view words, std::string_view word) {
  const std::string padded = " " + std::string(words) + " ";
  return padded.find(" " + std::string(word) + " ") != std::string::npos;
}

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

int ButtonCode(std::string_view name) {
  if (name == "yes") return kAnswerYes;
  if (name == "no") return kAnswerNo;
  return name == "ok" ? kAnswerOk : kAnswerCancel;
}

// Up to nine digits, so that the number fits.
bool IsNumber(std::string_view text) {
  return !text.empty() && text.size() < 10 &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::vector<std::string> TextsOf(const FieldList& fields, int first) {
  std::vector<std::string> texts;
  for (int i = first; i < fields.Count(); ++i)
    texts.push_back(FieldText(fields[i].Value(), "", CurrentLocale()));
  return texts;
}

}  // namespace

const ScriptLine* ScriptPlayer::AnswerTo(const Opened& opened) {
  const std::size_t caller = current_;
  bool expected = false;
  while (!AtEnd()) {
    const ScriptLine& line = script_.commands[next_];
    if (line.Is("shot")) {
      RunLine();
      continue;
    }
    const bool looks =
        line.Is("expect") && line.words.size() > 1 && HasWord("message offer preview", line.words[1]);
    if (!looks) {
      if (HasWord(opened.answers, line.words[0])) return &TakeLine();
      break;
    }
    TakeLine();
    ExpectOpened(opened);
    expected = true;
  }
  if (opened.closes_itself && expected) {
    current_ = caller;
    return nullptr;
  }
  if (!AtEnd()) current_ = next_;
  Fail("Unerwartet öffnet sich " + opened.kind + ": \"" + opened.text + "\" (" + opened.title + ")");
}

void ScriptPlayer::ExpectOpened(const Opened& opened) {
  const std::string& what = Line().words[1];
  if (what != "message") return ExpectBlock(opened.kind, opened.rows);
  const std::string expected = Text(2);
  if (!IsNumber(expected)) return ExpectEqual("Meldung", expected, opened.text);
  // Messages are often part of a longer sentence.
  const std::string text = environment_.suite->Messages().GetMessage(std::stoi(expected), context_);
  if (opened.text.find(text) == std::string::npos) {
    Fail("Meldung " + expected + ": erwartet \"" + text + "\", gefunden \"" + opened.text + "\"");
  }
}

void ScriptPlayer::UnusedAnswer() {
  Fail("Die Antwort wird nicht gebraucht: Es ist nichts geöffnet.");
}

int ScriptPlayer::MessageBox(const std::string& prompt, int style, const std::string& title) {
  const std::string buttons = ButtonsOf(style);
  const ScriptLine* line = AnswerTo({.kind = "eine Meldung",
                                     .text = prompt,
                                     .title = title,
                                     .answers = "answer",
                                     .closes_itself = buttons == "ok"});
  if (!line) return kAnswerOk;
  const std::string& answer = Word(1, "die Antwort");
  if (!HasWord(buttons, answer)) Fail("Die Meldung hat nur die Tasten: " + buttons);
  return ButtonCode(answer);
}

std::string ScriptPlayer::InputBox(const std::string& prompt, const std::string& title,
                                   const std::string& initial) {
  const ScriptLine* line =
      AnswerTo({.kind = "eine Eingabe", .text = prompt, .title = title, .answers = "input answer"});
  if (line->Is("input")) return Text(1);
  return Word(1, "die Antwort") == "ok" ? initial : std::string();
}

std::optional<std::size_t> ScriptPlayer::PickRow(const PickRequest& request) {
  const std::string code = Text(1);
  if (code == "none") return std::nullopt;
  Recordset rows = request.rows;
  for (std::size_t row = 0; !rows.EndOfFile(); rows.MoveNext(), ++row) {
    const Value& value = rows.Fields()[request.code_column].Value();
    if (utf8::Trim(FieldText(value, "", CurrentLocale())) == code) return row;
  }
  Fail("Die Auswahl \"" + request.caption + "\" bietet " + code + " nicht an.");
}

PickResult ScriptPlayer::PickList(const PickRequest& request) {
  Rows shown(1);
  Recordset rows = request.rows;
  const int first = request.hidden_columns;
  for (int i = first; i < rows.Fields().Count(); ++i) shown[0].push_back(rows.Fields()[i].Name());
  for (; !rows.EndOfFile(); rows.MoveNext()) shown.push_back(TextsOf(rows.Fields(), first));
  const ScriptLine* line = AnswerTo({.kind = "eine Auswahl",
                                     .text = request.caption,
                                     .title = request.start_text,
                                     .answers = "pick answer",
                                     .rows = std::move(shown)});
  if (line->Is("pick")) return {.row = PickRow(request), .extra = false};
  const bool extra = Word(1, "die Antwort") == "extra";
  if (extra && request.extra_button.empty()) Fail("Die Auswahl hat keine weitere Taste.");
  return {.row = std::nullopt, .extra = extra};
}

std::optional<DateTime> ScriptPlayer::PickDate(const std::string& caption, const std::optional<DateTime>&) {
  AnswerTo({.kind = "eine Datumsauswahl", .text = caption, .title = "", .answers = "date"});
  if (Word(1, "das Datum") == "none") return std::nullopt;
  const auto date = ParseDate(Line().words[1]);
  if (!date) Fail("\"" + Line().words[1] + "\" ist kein Datum.");
  return date;
}

std::optional<YearMonth> ScriptPlayer::PickMonth(const std::string& caption, const YearMonth&) {
  AnswerTo({.kind = "eine Monatsauswahl", .text = caption, .title = "", .answers = "month"});
  const std::string& month = Word(1, "der Monat");
  if (month == "none") return std::nullopt;
  const std::string& year = Word(2, "das Jahr");
  if (!IsNumber(month) || !IsNumber(year)) Fail("Ein Monat hat die Form 3 2024.");
  return YearMonth{.year = std::stoi(year), .month = std::stoi(month)};
}

std::vector<std::int32_t> ScriptPlayer::PickLocations(const LocationRequest& request) {
  AnswerTo({.kind = "die Waldortauswahl",
            .text = request.caption,
            .title = request.start_text,
            .answers = "locations"});
  std::vector<std::int32_t> ids;
  for (std::size_t i = 1; i < Line().words.size() && Line().words[i] != "none"; ++i) {
    const std::string& code = Line().words[i];
    const auto found = std::ranges::find_if(request.locations, [&](const Location& location) {
      return location.path == code || location.name == code;
    });
    if (found == request.locations.end()) Fail("Den Waldort " + code + " gibt es in der Auswahl nicht.");
    ids.push_back(found->id);
  }
  if (!request.many && ids.size() > 1) Fail("Hier kann nur ein Waldort gewählt werden.");
  return ids;
}

std::optional<std::string> ScriptPlayer::EditText(const TextRequest& request) {
  const ScriptLine* line = AnswerTo(
      {.kind = "ein Text", .text = request.caption, .title = request.text, .answers = "text answer"});
  if (!line->Is("text")) return Word(1, "die Antwort") == "ok" ? std::optional(request.text) : std::nullopt;
  if (request.read_only) Fail("Dieser Text kann nur gelesen werden.");
  return Text(1);
}

void ScriptPlayer::PreviewPrint(const PrintDocument& document) {
  Rows rows(1);
  for (const auto& column : document.columns) rows[0].push_back(column.caption);
  rows.insert(rows.end(), document.rows.begin(), document.rows.end());
  AnswerTo({.kind = "eine Druckvorschau",
            .text = document.title,
            .title = "",
            .answers = "answer",
            .rows = std::move(rows),
            .closes_itself = true});
}

}  // namespace tarvoni

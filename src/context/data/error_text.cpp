#include "src/context/data/error_text.h"

#include "src/context/data/database_error.h"
#include "src/context/data/password.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

// The server's words may repeat what was typed, whatever its length.
constexpr int kLongestDetail = 200;

std::string Shortened(const std::string& text) {
  if (utf8::Length(text) <= kLongestDetail) return text;
  return std::string(utf8::Substring(text, 0, kLongestDetail)) + "…";
}

// Numbers of a T-SQL server that what a user typed can lead to.
const char* SentenceOf(int number) {
  switch (number) {
    case 102:
      return "Die Eingabe ist keine gültige Zahl.";
    case 105:
      return "Die Eingabe enthält ein Hochkomma (') und kann so nicht übernommen werden.";
    case 220:
    case 244:
    case 248:
    case 8115:
      return "Eine Zahl ist zu groß für ihr Feld.";
    case 241:
    case 242:
      return "Die Eingabe ist kein gültiges Datum.";
    case 245:
    case 8114:
      return "Die Eingabe ist keine Zahl.";
    case 515:
      return "Eine Angabe fehlt, ohne die der Eintrag nicht gespeichert werden kann.";
    case 547:
      return "Der Eintrag wird an anderer Stelle verwendet oder verweist auf etwas, das es nicht gibt.";
    case 2601:
    case 2627:
      return "Diesen Eintrag gibt es schon.";
    case 2628:
    case 8152:
      return "Ein Text ist zu lang für sein Feld.";
    case 8134:
      return "Es müsste durch null geteilt werden.";
    default:
      return "Die Datenbank konnte den Befehl nicht ausführen.";
  }
}

}  // namespace

std::string ErrorText(const std::exception& error) {
  const auto* failed = dynamic_cast<const DatabaseError*>(&error);
  if (!failed || failed->Number() > kErrorNotSupported) return WithoutPassword(error.what());
  return std::string(SentenceOf(failed->Number())) + " (Fehler " + std::to_string(failed->Number()) + ": " +
         Shortened(WithoutPassword(error.what())) + ")";
}

}  // namespace tarvoni

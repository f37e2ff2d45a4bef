#include "platform/script/faulty_connection.h"

#include <algorithm>
#include <vector>

#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

bool IsWordSign(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '#' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// The words of a batch in capitals, without its texts.
std::vector<std::string> WordsOf(std::string_view statement) {
  std::vector<std::string> words;
  for (std::size_t at = 0; at < statement.size();) {
    if (statement[at] == '\'') {
      at = std::min(statement.find('\'', at + 1), statement.size() - 1) + 1;
      continue;
    }
    const std::size_t begin = at;
    while (at < statement.size() && IsWordSign(statement[at])) ++at;
    if (at > begin) words.push_back(utf8::Upper(statement.substr(begin, at - begin)));
    if (at == begin) ++at;
  }
  return words;
}

}  // namespace

bool WritesRows(std::string_view statement) {
  const auto words = WordsOf(statement);
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (words[i] != "INSERT" && words[i] != "UPDATE" && words[i] != "DELETE") continue;
    const std::size_t table = words[i + 1] == "INTO" || words[i + 1] == "FROM" ? i + 2 : i + 1;
    if (table < words.size() && !words[table].starts_with('#')) return true;
  }
  return false;
}

void WriteFault::Arm(int nth, int number) {
  nth_ = nth;
  number_ = number;
  seen_ = 0;
}

void WriteFault::Hear(std::string_view statement) {
  if (nth_ == 0 || !WritesRows(statement) || ++seen_ != nth_) return;
  const bool busy = number_ == kErrorBusy;
  throw DatabaseError(
      number_,
      busy ? "Ein anderes Programm hält die Datenbank gerade fest. Bitte gleich noch einmal versuchen."
           : "Das Skript lässt diese Anweisung scheitern.",
      0, 0, std::string(statement));
}

}  // namespace tarvoni

#include "platform/odbc/server_batch.h"

#include "src/context/data/batch_words.h"
#include "src/context/values/keywords.h"

namespace tarvoni::odbc {
namespace {

// The driver manager takes no further result from a statement whose first one failed, and freeing it cancels
// what still runs on the server. A first result that cannot fail keeps the rest of the batch within reach.
constexpr std::string_view kLead = "SELECT 0; ";

// The definition of a view or a trigger has to stand first in its batch.
bool BeginsWithDefinition(std::string_view text) {
  const std::string_view first = BatchWords(text).Next();
  return EqualsKeyword(first, "CREATE") || EqualsKeyword(first, "ALTER");
}

}  // namespace

bool CreatesTemporaryTable(std::string_view text) {
  BatchWords words(text);
  std::string_view before, last;
  for (auto word = words.Next(); !word.empty(); word = words.Next()) {
    if (EqualsKeyword(before, "CREATE") && EqualsKeyword(last, "TABLE") && IsTemporaryName(word)) return true;
    before = last;
    last = word;
  }
  return false;
}

bool SwitchesCountsOff(std::string_view text) {
  BatchWords words(text);
  std::string_view before, last;
  for (auto word = words.Next(); !word.empty(); word = words.Next()) {
    if (EqualsKeyword(before, "SET") && EqualsKeyword(last, "NOCOUNT") && EqualsKeyword(word, "ON"))
      return !words.Next().empty();
    before = last;
    last = word;
  }
  return false;
}

std::string InOwnScope(std::string_view text) {
  std::string call = "EXEC sp_executesql N'";
  for (const char c : text) call.append(c == '\'' ? 2 : 1, c);
  return call + "'";
}

bool WritesSeveralTimes(std::string_view text) {
  BatchWords words(text);
  int writes = 0;
  for (auto word = words.Next(); !word.empty() && writes < 2; word = words.Next())
    writes += IsWritingWord(word);
  return writes == 2;
}

ServerBatch ForServer(std::string_view text) {
  const bool ends_with_it = CreatesTemporaryTable(text) || SwitchesCountsOff(text);
  ServerBatch batch{ends_with_it ? InOwnScope(text) : std::string(text), false};
  batch.has_lead = WritesSeveralTimes(text) && !BeginsWithDefinition(batch.text);
  if (batch.has_lead) batch.text.insert(0, kLead);
  return batch;
}

}  // namespace tarvoni::odbc

#include "platform/tsql/words.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarvoni::tsql {
namespace {

// The reserved words of Transact-SQL. TEXT, DATE, NUMBER and the like are not among them: they are plain
// names.
// clang-format off
constexpr std::string_view kReservedWords[] = {
    "ADD", "ALL", "ALTER", "AND", "ANY", "AS", "ASC", "AUTHORIZATION", "BACKUP", "BEGIN", "BETWEEN",
    "BREAK", "BROWSE", "BULK", "BY", "CASCADE", "CASE", "CHECK", "CHECKPOINT", "CLOSE", "CLUSTERED",
    "COALESCE", "COLLATE", "COLUMN", "COMMIT", "COMPUTE", "CONSTRAINT", "CONTAINS", "CONTAINSTABLE",
    "CONTINUE", "CONVERT", "CREATE", "CROSS", "CURRENT", "CURRENT_DATE", "CURRENT_TIME",
    "CURRENT_TIMESTAMP", "CURRENT_USER", "CURSOR", "DATABASE", "DBCC", "DEALLOCATE", "DECLARE", "DEFAULT",
    "DELETE", "DENY", "DESC", "DISK", "DISTINCT", "DISTRIBUTED", "DOUBLE", "DROP", "DUMP", "ELSE", "END",
    "ERRLVL", "ESCAPE", "EXCEPT", "EXEC", "EXECUTE", "EXISTS", "EXIT", "EXTERNAL", "FETCH", "FILE",
    "FILLFACTOR", "FOR", "FOREIGN", "FREETEXT", "FREETEXTTABLE", "FROM", "FULL", "FUNCTION", "GOTO",
    "GRANT", "GROUP", "HAVING", "HOLDLOCK", "IDENTITY", "IDENTITY_INSERT", "IDENTITYCOL", "IF", "IN",
    "INDEX", "INNER", "INSERT", "INTERSECT", "INTO", "IS", "JOIN", "KEY", "KILL", "LEFT", "LIKE",
    "LINENO", "LOAD", "MERGE", "NATIONAL", "NOCHECK", "NONCLUSTERED", "NOT", "NULL", "NULLIF", "OF",
    "OFF", "OFFSETS", "ON", "OPEN", "OPENDATASOURCE", "OPENQUERY", "OPENROWSET", "OPENXML", "OPTION",
    "OR", "ORDER", "OUTER", "OVER", "PERCENT", "PIVOT", "PLAN", "PRECISION", "PRIMARY", "PRINT", "PROC",
    "PROCEDURE", "PUBLIC", "RAISERROR", "READ", "READTEXT", "RECONFIGURE", "REFERENCES", "REPLICATION",
    "RESTORE", "RESTRICT", "RETURN", "REVERT", "REVOKE", "RIGHT", "ROLLBACK", "ROWCOUNT", "ROWGUIDCOL",
    "RULE", "SAVE", "SCHEMA", "SECURITYAUDIT", "SELECT", "SEMANTICKEYPHRASETABLE",
    "SEMANTICSIMILARITYDETAILSTABLE", "SEMANTICSIMILARITYTABLE", "SESSION_USER", "SET", "SETUSER",
    "SHUTDOWN", "SOME", "STATISTICS", "SYSTEM_USER", "TABLE", "TABLESAMPLE", "TEXTSIZE", "THEN", "TO",
    "TOP", "TRAN", "TRANSACTION", "TRIGGER", "TRUNCATE", "TRY_CONVERT", "TSEQUAL", "UNION", "UNIQUE",
    "UNPIVOT", "UPDATE", "UPDATETEXT", "USE", "USER", "VALUES", "VARYING", "VIEW", "WAITFOR", "WHEN",
    "WHERE", "WHILE", "WITH", "WITHIN", "WRITETEXT"};
// clang-format on

constexpr size_t kShortest = 2;
constexpr size_t kLongest = std::ranges::max_element(kReservedWords, {}, &std::string_view::size)->size();

// Upper case of a letter; other characters never become one.
constexpr char Fold(char c) {
  return static_cast<char>(c & 0xDF);
}

constexpr size_t kSlots = 1024;  // sparse enough that most names meet an empty slot at once

constexpr size_t SlotOf(std::string_view word) {
  size_t hash = word.size();
  for (const size_t i : {size_t{0}, size_t{1}, word.size() / 2, word.size() - 1}) {
    hash = hash * 37 + static_cast<unsigned char>(Fold(word[i]));
  }
  return hash % kSlots;
}

// Open addressing: a slot holds the word's place plus one.
constexpr auto kSlotTable = [] {
  std::array<std::uint8_t, kSlots> slots{};
  for (size_t i = 0; i < std::size(kReservedWords); ++i) {
    size_t slot = SlotOf(kReservedWords[i]);
    while (slots[slot] != 0) slot = (slot + 1) % kSlots;
    slots[slot] = static_cast<std::uint8_t>(i + 1);
  }
  return slots;
}();
static_assert(std::size(kReservedWords) < 255);

bool SpellsWord(std::string_view text, std::string_view word) {
  return text.size() == word.size() &&
         std::ranges::equal(text, word, [](char a, char b) { return Fold(a) == b; });
}

constexpr bool IsAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Beyond ASCII: letters of all scripts, but no signs, punctuation, surrogates or private characters.
bool IsLetter(char32_t c) {
  if (c < 0xC0) return c == 0xAA || c == 0xB5 || c == 0xBA;
  if (c == 0xD7 || c == 0xF7) return false;  // × ÷
  return !(c >= 0x2000 && c <= 0x2BFF) && !(c >= 0x3000 && c <= 0x303F) && !(c >= 0xD800 && c <= 0xF8FF) &&
         c != 0xFEFF && c < 0xFFF0;
}

struct Decoded {
  char32_t character = 0;
  size_t length = 0;  // 0 when the bytes are no UTF-8
};

// Characters of up to three bytes; those beyond are no letters here.
Decoded Decode(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const auto tail = [&](size_t i) -> int {
    const int byte = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    return (byte & 0xC0) == 0x80 ? byte & 0x3F : -1;
  };
  const int second = tail(1);
  if (second < 0) return {};
  if ((lead & 0xE0) == 0xC0) return {static_cast<char32_t>((lead & 0x1F) << 6 | second), 2};
  const int third = tail(2);
  if (third < 0 || (lead & 0xF0) != 0xE0) return {};
  const auto character = static_cast<char32_t>((lead & 0x0F) << 12 | second << 6 | third);
  return character < 0x800 ? Decoded{} : Decoded{character, 3};
}

// What goes on with a name, of the characters of ASCII.
constexpr auto kNamePart = [] {
  std::array<bool, 256> part{};
  for (char c = 'A'; c <= 'Z'; ++c) part[c] = part[c | 0x20] = true;
  for (const char c : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '_', '#', '@', '$'}) part[c] = true;
  return part;
}();

}  // namespace

std::string_view FindReservedWord(std::string_view word) {
  if (word.size() < kShortest || word.size() > kLongest) return {};
  for (size_t slot = SlotOf(word); kSlotTable[slot] != 0; slot = (slot + 1) % kSlots) {
    const std::string_view candidate = kReservedWords[kSlotTable[slot] - 1U];
    if (SpellsWord(word, candidate)) return candidate;
  }
  return {};
}

size_t LetterLength(std::string_view text) {
  if (text.empty()) return 0;
  if (IsAsciiLetter(text[0])) return 1;
  if (static_cast<unsigned char>(text[0]) < 0x80) return 0;
  const auto [character, length] = Decode(text);
  return length > 0 && IsLetter(character) ? length : 0;
}

size_t NameLength(std::string_view text) {
  if (text.empty()) return 0;
  size_t end = text[0] == '#' || text[0] == '_' ? 1 : LetterLength(text);
  if (end == 0) return 0;
  for (;;) {
    while (end < text.size() && kNamePart[static_cast<unsigned char>(text[end])]) ++end;
    const bool ascii = end == text.size() || static_cast<unsigned char>(text[end]) < 0x80;
    const size_t part = ascii ? 0 : LetterLength(text.substr(end));
    if (part == 0) return end;
    end += part;
  }
}

}  // namespace tarvoni::tsql

#include "platform/sqlite/collation.h"

#include <gtest/gtest.h>
#include <utf8proc.h>

#include <random>
#include <vector>

#include "src/context/values/text.h"
#include "tests/database/function_testing.h"

namespace tarvoni::sqlite {
namespace {

std::string Encoded(char32_t code) {
  std::array<utf8proc_uint8_t, 4> buffer;
  const auto size = utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), buffer.data());
  return {buffer.begin(), buffer.begin() + size};
}

int Sign(int order) {
  return (order > 0) - (order < 0);
}

// Texts of few letters, so that many of them are alike: case, accents, ligatures, blanks, broken characters.
std::string RandomText(std::mt19937& random) {
  static const std::vector<std::string> kPieces = {
      "a", "A", "ä", "Ä", "á",      "b",      "s", "ß",    "ss",   "æ",        "e", "o", "ö",
      " ", "-", "1", "Ж", "\u0301", "\u0308", "ế", "\xC3", "\xA4", "\xE2\x82", "ﬁ", "Å", "ẞ"};
  std::string text;
  for (auto i = random() % 6; i > 0; --i) text += kPieces[random() % kPieces.size()];
  return text;
}

TEST(CollationTest, IsATotalOrder) {
  std::mt19937 random(8);
  int equal = 0;
  for (int i = 0; i < 200'000; ++i) {
    const std::string a = RandomText(random), b = RandomText(random), c = RandomText(random);
    const int ab = Sign(Collate(a, b)), bc = Sign(Collate(b, c)), ac = Sign(Collate(a, c));
    ASSERT_EQ(Collate(a, a), 0) << a;
    ASSERT_EQ(Sign(Collate(b, a)), -ab) << a << '|' << b;
    if (ab <= 0 && bc <= 0) {
      ASSERT_EQ(ac, std::min(ab, bc)) << a << '|' << b << '|' << c;
    }
    equal += ab == 0;
  }
  EXPECT_GT(equal, 1000);
}

TEST(CollationTest, EqualTexts) {
  const std::pair<const char*, const char*> equal[] = {
      {"EICHBERG", "Eichberg  "},
      {"öhlBERG", "Öhlberg"},
      {"Straße", "STRASSE"},
      {"ẞ", "ß"},
      {"ä", "a\u0308"},
      {"Ẽ", "e\u0303"},
      {"ЖУК", "жук"},
      {"Ω", "ω"},
      {"", " "},
      {"ŽIŽKA", "žižka"},
  };
  for (const auto& [a, b] : equal) EXPECT_EQ(Collate(a, b), 0) << a << '|' << b;
  const std::pair<const char*, const char*> unequal[] = {
      {"Muhlgraben", "Mühlgraben"},
      {"Ohlberg", "Öhlberg"},
      {" a", "a"},
      {"a", "a\t"},
      {"oe", "ö"},
      {"é", "è"},
  };
  for (const auto& [a, b] : unequal) EXPECT_NE(Collate(a, b), 0) << a << '|' << b;
}

// The table of Latin letters against the character database: a letter with an accent is its parts.
TEST(CollationTest, LatinLettersAreTheirParts) {
  int checked = 0;
  for (char32_t code = 0xC0; code <= 0x17F; ++code) {
    std::array<utf8proc_int32_t, 4> parts{};
    int boundary = 0;
    const auto count = utf8proc_decompose_char(static_cast<utf8proc_int32_t>(code), parts.data(),
                                               parts.size(), UTF8PROC_DECOMPOSE, &boundary);
    if (count < 2) continue;
    std::string decomposed;
    for (int i = 0; i < count; ++i)
      decomposed += Encoded(static_cast<char32_t>(parts[static_cast<std::size_t>(i)]));
    EXPECT_EQ(CompareText(Encoded(code), decomposed), 0) << Encoded(code);
    ++checked;
  }
  EXPECT_GT(checked, 140);
}

TEST(CollationTest, CaseIsThatOfTheCharacterDatabase) {
  for (char32_t code = 0x80; code <= 0x17F; ++code) {
    if (code == 0x130 || code == 0xB5) continue;  // İ keeps its dot; µ is no letter of a word here
    const auto lower = static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(code)));
    EXPECT_EQ(Collate(Encoded(code), Encoded(lower)), 0) << Encoded(code);
    EXPECT_EQ(FoldCase(Encoded(code)), Encoded(lower)) << Encoded(code);
  }
}

TEST(CollationTest, ServesIndexesAndKeys) {
  FunctionDatabase database;
  database.Run("CREATE TABLE t (x TEXT COLLATE TSQL UNIQUE)");
  database.Run("INSERT INTO t VALUES ('Lärche'),('apfel'),('Äpfelchen'),('Apfelmus'),(NULL)");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM t WHERE x='LÄRCHE  '"), "1");
  EXPECT_EQ(database.Ask("SELECT group_concat(x,' ') FROM (SELECT x FROM t ORDER BY x)"),
            "'apfel Äpfelchen Apfelmus Lärche'");
  EXPECT_NE(sqlite3_exec(database.Raw(), "INSERT INTO t VALUES ('lärche ')", nullptr, nullptr, nullptr),
            SQLITE_OK);
  EXPECT_EQ(
      database.Ask(
          "SELECT COUNT(DISTINCT y COLLATE TSQL) FROM (SELECT 'Fi' AS y UNION ALL SELECT 'FI ' UNION ALL "
          "SELECT 'lä')"),
      "2");
}

}  // namespace
}  // namespace tarvoni::sqlite

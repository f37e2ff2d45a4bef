#include "src/context/values/text.h"

#include <gtest/gtest.h>

namespace tarvoni {
namespace {

TEST(TextTest, FoldsLatinLetters) {
  EXPECT_EQ(FoldCase("ÄÖÜ Mühlgraben ß ŠŽŁŸĲĹŇ"), "äöü mühlgraben ß šžłÿĳĺň");
  EXPECT_EQ(FoldCase("×÷ÿßıĸ€ЖΩ"), "×÷ÿßıĸ€ЖΩ");
  EXPECT_EQ(FoldCase("A\xC3"), "a\xC3");  // a text that was cut within a letter
}

TEST(TextTest, EqualWithoutRegardToCaseAndTrailingBlanks) {
  EXPECT_EQ(CompareText("MÜHLGRABEN", "mühlgraben  "), 0);
  EXPECT_EQ(CompareText("", "   "), 0);
  EXPECT_EQ(CompareText("Straße", "STRASSE"), 0);
  EXPECT_EQ(CompareText("Æsche", "aesche"), 0);
  EXPECT_NE(CompareText("Muhlgraben", "Mühlgraben"), 0);
  EXPECT_NE(CompareText(" a", "a"), 0);
  EXPECT_NE(CompareText("a\tb", "a b"), 0);
}

TEST(TextTest, OrdersAsAnAlphabet) {
  const char* const ordered[] = {"",       " x", "-",     "_",         "§",        "€",    "10",    "9",
                                 "a",      "Ä",  "apfel", "Äpfelchen", "Apfelmus", "obst", "Obst.", "öl",
                                 "Ölberg", "s",  "ŝ",     "ss",        "Zange",    "zaun", "Ж"};
  for (std::size_t i = 0; i < std::size(ordered); ++i) {
    for (std::size_t j = 0; j < std::size(ordered); ++j) {
      const int order = CompareText(ordered[i], ordered[j]);
      EXPECT_EQ(order < 0, i < j) << ordered[i] << " / " << ordered[j];
      EXPECT_EQ(order == 0, i == j) << ordered[i] << " / " << ordered[j];
    }
  }
}

TEST(TextTest, TheFirstAccentDecidesBetweenEqualLetters) {
  EXPECT_LT(CompareText("Mullers", "Müllers"), 0);
  EXPECT_LT(CompareText("aä", "äa"), 0);
  EXPECT_LT(CompareText("äa", "ab"), 0);
  EXPECT_LT(CompareText("a\u0301\u0302", "a\u0302\u0301"), 0);
  EXPECT_LT(CompareText("a\u0301", "a\u0301\u0302"), 0);
}

TEST(TextTest, BrokenCharactersStayApart) {
  EXPECT_NE(CompareText("\xC3", "\xC3\xA4"), 0);
  EXPECT_NE(CompareText("\xC3", "\xC4"), 0);
  EXPECT_NE(CompareText(std::string_view("a\0b", 3), "a"), 0);
  EXPECT_LT(CompareText("\xE2\x82", "\xE2\x82\xAC") * CompareText("\xE2\x82\xAC", "\xE2\x82"), 0);
}

TEST(TextTest, TakesCharacterByCharacter) {
  std::string_view text = "aß€😀\xA4";
  EXPECT_EQ(TakeCharacter(text), U'a');
  EXPECT_EQ(TakeCharacter(text), U'ß');
  EXPECT_EQ(TakeCharacter(text), U'€');
  EXPECT_EQ(TakeCharacter(text), U'😀');
  EXPECT_EQ(TakeCharacter(text), char32_t{0xDCA4});
  EXPECT_TRUE(text.empty());
  std::string_view broken = "\xE2x\xAC";
  EXPECT_EQ(TakeCharacter(broken), char32_t{0xDCE2});
  EXPECT_EQ(TakeCharacter(broken), U'x');
}

}  // namespace
}  // namespace tarvoni

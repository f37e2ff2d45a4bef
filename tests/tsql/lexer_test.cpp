#include "platform/tsql/public/lexer.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvoni::tsql {
namespace {

// "kind:text@line:column" of every word but the end.
std::string Words(std::string_view text) {
  constexpr std::string_view kKinds[] = {"end", "name", "word", "int", "dec", "float", "text", "sign"};
  std::string result;
  const LexedBatch lexed = Lex(text);
  for (const Token& token : lexed.tokens) {
    if (token.kind == TokenKind::kEnd) break;
    if (!result.empty()) result += ' ';
    result += token.quoted ? "quoted" : kKinds[static_cast<size_t>(token.kind)];
    result += ':' + std::string(token.text) + '@' + std::to_string(token.at.line) + ':' +
              std::to_string(token.at.column);
  }
  return result;
}

std::string Shape(std::string_view text) {
  const LexedBatch all = Lex(text);
  const LexedBatch shape = LexShape(text);
  EXPECT_EQ(shape.shape, all.shape);
  EXPECT_EQ(shape.literals.size(), all.literals.size());
  EXPECT_TRUE(shape.tokens.empty());
  return all.shape;
}

// "number line:column" of the error, "none" without one.
std::string ErrorOf(std::string_view text) {
  try {
    Lex(text);
    return "none";
  } catch (const Error& error) {
    return std::to_string(error.Number()) + ' ' + std::to_string(error.At().line) + ':' +
           std::to_string(error.At().column);
  }
}

TEST(Lexer, TellsWordsApart) {
  EXPECT_EQ(Words(""), "");
  EXPECT_EQ(
      Words("select Id,[order] ,\"a b\"\r\n\tFROM #tmp"),
      "word:SELECT@1:1 name:Id@1:8 sign:,@1:10 quoted:order@1:11 sign:,@1:19 quoted:a b@1:20 word:FROM@2:2 "
      "name:#tmp@2:7");
  EXPECT_EQ(
      Words("a<>b!=c<=d>=e!<f!>g<h>i=j"),
      "name:a@1:1 sign:<>@1:2 name:b@1:4 sign:!=@1:5 name:c@1:7 sign:<=@1:8 name:d@1:10 sign:>=@1:11 "
      "name:e@1:13 "
      "sign:!<@1:14 name:f@1:16 sign:!>@1:17 name:g@1:19 sign:<@1:20 name:h@1:21 sign:>@1:22 name:i@1:23 "
      "sign:=@1:24 name:j@1:25");
  EXPECT_EQ(Words("Größe.straße2 _x ԱՁ"),
            "name:Größe@1:1 sign:.@1:6 name:straße2@1:7 name:_x@1:15 name:ԱՁ@1:18");
}

TEST(Lexer, KnowsReservedWordsInAnyCase) {
  EXPECT_EQ(Words("oRdEr"), "word:ORDER@1:1");
  for (const std::string word : {"AS", "BY", "FILE", "IDENTITY_INSERT", "INDEX", "KEY", "PERCENT", "PLAN",
                                 "USER", "WRITETEXT", "SEMANTICSIMILARITYDETAILSTABLE", "ADD"}) {
    EXPECT_EQ(Words(word), "word:" + word + "@1:1");
  }
  for (const std::string name :
       {"TEXT", "DATE", "LONG", "SHORT", "NUMBER", "DATUM", "TYP", "NAME", "DESCRIPTION", "CAST", "COUNT",
        "NOCOUNT", "A", "ORDERS", "KE", "SELECT_", "N", "DEUX"}) {
    EXPECT_EQ(Words(name), "name:" + name + "@1:1");
  }
}

TEST(Lexer, CommentsAreBlanks) {
  EXPECT_EQ(Words("a--b\n--\nc/*d/*e*/ * / f*/g -/**/-h"),
            "name:a@1:1 name:c@3:1 name:g@3:18 sign:-@3:20 sign:-@3:25 name:h@3:26");
  EXPECT_EQ(Words("/***/a/*/ */b--"), "name:a@1:6 name:b@1:13");
}

TEST(Lexer, ReadsNumbers) {
  EXPECT_EQ(Words("017 .50 5. 1e2 1.5E-3 2147483647 2147483648 000002147483647"),
            "int:017@1:1 dec:.50@1:5 dec:5.@1:9 float:1e2@1:12 float:1.5E-3@1:16 int:2147483647@1:23 "
            "dec:2147483648@1:34 int:000002147483647@1:45");
  EXPECT_EQ(Words("1+.5-a.b"), "int:1@1:1 sign:+@1:2 dec:.5@1:3 sign:-@1:5 name:a@1:6 sign:.@1:7 name:b@1:8");
  EXPECT_EQ(Lex("1e").literals[0].text, "1e0");
  EXPECT_EQ(Lex("2.E+").literals[0].text, "2.E+0");
}

TEST(Lexer, ReadsTextsAndQuotedNames) {
  const LexedBatch lexed = Lex("'O''Malley' N'ä' '' '''' [a]]b] \"c\"\"d\" '[\"' 'x\ny' e");
  ASSERT_EQ(lexed.literals.size(), 6u);
  EXPECT_EQ(lexed.literals[0].text, "O'Malley");
  EXPECT_EQ(lexed.literals[1].text, "ä");
  EXPECT_EQ(lexed.literals[2].text, "");
  EXPECT_EQ(lexed.literals[3].text, "'");
  EXPECT_EQ(lexed.literals[4].text, "[\"");
  EXPECT_EQ(lexed.tokens[4].text, "a]b");
  EXPECT_EQ(lexed.tokens[5].text, "c\"d");
  EXPECT_EQ(lexed.tokens[7].literal, 5);
  EXPECT_EQ(lexed.tokens[8].at.line, 2);
  EXPECT_EQ(lexed.tokens[8].at.column, 4);
}

TEST(Lexer, ShapesLeaveOutValuesAndLayout) {
  EXPECT_EQ(Shape("select Id,[x y] from T where A='b' AND c in (1,2.50,1e3)"),
            "SELECT Id , [x y] FROM T WHERE A = ?t AND c IN ( ?i , ?d(3,2) , ?f )");
  EXPECT_EQ(Shape("SELECT  1 -- one\n"), Shape("select/**/2"));
  EXPECT_EQ(Shape("SELECT 'a',n'b'"), Shape("SELECT 'it''s',N''"));
  EXPECT_NE(Shape("SELECT 'a'"), Shape("SELECT N'a'"));
  EXPECT_NE(Shape("SELECT 1"), Shape("SELECT 2147483648"));
  EXPECT_NE(Shape("SELECT 1.5"), Shape("SELECT 1.50"));
  EXPECT_NE(Shape("SELECT a AS Nr"), Shape("SELECT a AS NR"));
  EXPECT_NE(Shape("SELECT [a]"), Shape("SELECT ['a']"));
  EXPECT_NE(Shape("SELECT [?i]"), Shape("SELECT 1"));
}

TEST(Lexer, DecimalsHaveTheDigitsTheyNeed) {
  const std::pair<std::string_view, Type> kTable[] = {
      {"0012.50", Type::Decimal(4, 2)}, {".5", Type::Decimal(1, 1)}, {"0.05", Type::Decimal(2, 2)},
      {"5.", Type::Decimal(1, 0)},      {"0.", Type::Decimal(1, 0)}, {"2147483648", Type::Decimal(10, 0)}};
  for (const auto& [digits, type] : kTable) EXPECT_EQ(DecimalType(digits), type) << digits;
}

TEST(Lexer, ErrorsHaveNumberAndPlace) {
  const std::pair<std::string_view, std::string_view> kTable[] = {
      {"SELECT 'Holz", "105 1:8"},
      {"SELECT\n 'Ä', N'Holz''", "105 2:8"},
      {"SELECT [a]]", "105 1:8"},
      {"SELECT \"a", "105 1:8"},
      {"SELECT 1 /* /* */ ", "113 1:10"},
      {"a /*/", "113 1:3"},
      {"SELECT ä ?", "102 1:10"},
      {"SELECT !a", "102 1:8"},
      {"SELECT []", "102 1:8"},
      {"a €", "102 1:3"},
      {"a \xff b", "102 1:3"},
      {"a\xc3", "102 1:2"},
      {"a \xe2\x82", "102 1:3"},
      {"a \xe0\x83\x84", "102 1:3"},
      {"a×b", "102 1:2"},
      {"SELECT @x", "50001 1:8"},
      {"SELECT 0x1F", "50001 1:8"},
      {"SELECT 1e309", "168 1:8"},
      {"SELECT 1e-400", "none"},
      {"SELECT 12345678901234567890123456789012345678", "none"},
      {"SELECT 1234567890123456789012345678901234567.89", "1007 1:8"},
      {"SELECT '\xff' -- \xff", "none"},
  };
  for (const auto& [text, error] : kTable) EXPECT_EQ(ErrorOf(text), error) << text;
  EXPECT_EQ(ErrorOf(std::string_view("a\0b", 3)), "102 1:2");
}

TEST(Lexer, AnErrorQuotesTheBeginningOfALongText) {
  std::string text = "'y";
  for (int i = 0; i < 100; ++i) text += "xä";
  try {
    Lex(text);
    FAIL();
  } catch (const Error& error) {
    const std::string message = error.what();
    EXPECT_LT(message.size(), 150u);
    EXPECT_NE(message.find("xäx'"), std::string::npos);
  }
}

}  // namespace
}  // namespace tarvoni::tsql

#include "src/context/data/statement.h"

#include <gtest/gtest.h>

#include <array>
#include <type_traits>
#include <vector>

#include "src/context/data/bracketed_name.h"
#include "src/context/data/database_error.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/environment.h"

namespace tarvoni {
namespace {

using detail::PatternFault;
using detail::Place;
using detail::Spliced;

static_assert(Spliced<SqlText> && Spliced<Quoted> && Spliced<Digits>);
static_assert(!Spliced<std::string> && !Spliced<const char*> && !Spliced<int>,
              "a bare value must not compile");
static_assert(!std::is_constructible_v<SqlText, std::string> &&
                  !std::is_constructible_v<SqlText, const char*> && !std::is_convertible_v<Quoted, SqlText> &&
                  !std::is_convertible_v<Digits, SqlText>,
              "a text made at run time must not become a statement");

// Whether Compose takes the pattern with a value of each place.
template <typename... Places>
constexpr bool Fits(std::string_view pattern, Places... values) {
  const std::array<Place, sizeof...(Places)> places = {values...};
  return PatternFault(pattern, places).empty();
}

constexpr Place kBare = Place::kBare, kQuoted = Place::kQuoted, kDigits = Place::kDigits;
static_assert(Fits("ID = {} AND NUMBER = '{}' AND NAME LIKE '%{}%' AND A = 0{}", kBare, kQuoted, kQuoted,
                   kDigits));
static_assert(Fits("IN ({},0{}) AND [O'N] = 'it''s {}' AND A10 = -1", kBare, kDigits, kQuoted));
static_assert(!Fits("NUMBER = {}", kQuoted) && !Fits("NUMBER = '' {}", kQuoted), "a text outside of quotes");
static_assert(!Fits("NUMBER = '{}'", kBare) && !Fits("NUMBER = '0{}'", kDigits), "a bare value in quotes");
static_assert(!Fits("ID = {}", kDigits) && !Fits("ID = 10{}", kDigits) && !Fits("ID = A0{}", kDigits),
              "digits without the 0");
static_assert(!Fits("ID = 0{}", kBare) && !Fits("ID = 1{}", kBare), "a bare value behind a digit");
static_assert(!Fits("ID = 5-{}", kBare) && !Fits("[A{}]", kBare), "a minus may follow, a bracket may");
static_assert(!Fits("{}") && !Fits("A", kBare) && !Fits("{} {}", kBare), "a value for each place");
static_assert(!Fits("IN ({}", kBare) && !Fits("{})", kBare) && !Fits(")(") && !Fits("'") && !Fits("[A"),
              "half a statement");
static_assert(!Fits("A -- {}", kBare) && !Fits("A /* {} */", kBare) && Fits("'--{}'", kQuoted), "a comment");

template <typename Make>
int ErrorOf(Make make) {
  try {
    make();
    return 0;
  } catch (const DatabaseError& error) {
    return error.Number();
  }
}

TEST(Statement, ComposesLiterals) {
  EXPECT_EQ(Compose("UPDATE T SET A = {},B = {},C = {} WHERE ID = {}", NumberOrNull("12,50"),
                    TextOrNull("Föhre; --"), IdOrNull(""), Id(7))
                .Text(),
            "UPDATE T SET A = 12.50,B = 'Föhre; --',C = NULL WHERE ID = 7");
  EXPECT_EQ(Compose("WHERE NUMBER = '{}' AND ID = 0{}", Quoted(" 7 "), Digits("")).Text(),
            "WHERE NUMBER = ' 7 ' AND ID = 0");
  EXPECT_EQ(Compose("{} {} {}", NumberOrNull("  "), TextOrNull(""), IdOrNull(0)).Text(), "NULL NULL NULL");
  EXPECT_EQ(Compose("{} {} {}", Number(0.1), Number(1e21), Number(Decimal(-1250, 2))).Text(),
            "0.1 1000000000000000000000 -12.5");
  EXPECT_EQ(Compose("{},{}", TextOrNull("a {} b"), Id(1)).Text(), "'a {} b',1") << "a value is not a pattern";
  EXPECT_EQ(SqlText("\nSELECT 1\n").Text(), "SELECT 1\n") << "the first line may stand below the quote";
}

TEST(Statement, JoinsListsForIn) {
  const std::vector<std::int32_t> ids = {7, -1, 12};
  const std::vector<std::string> texts = {"A 1", "", "b,c"};
  EXPECT_EQ(Compose("A IN ({}) AND B IN ({})", IdList(ids), TextList(texts)).Text(),
            "A IN (7,-1,12) AND B IN ('A 1','','b,c')");
  EXPECT_TRUE(IdList({}).Empty() && TextList({}).Empty());
}

TEST(Statement, WritesDatesInTheRecordsFormat) {
  const DateTime day{.year = 2024, .month = 2, .day = 29};
  EXPECT_EQ(DateOrNull(day, "yyyymmdd").Text(), "'20240229'");
  EXPECT_EQ(DateOrNull(day, "'dd.mm.yyyy'").Text(), "'29.02.2024'");
  EXPECT_EQ(DateOrNull(std::nullopt, "yyyymmdd").Text(), "NULL");
}

TEST(Statement, RefusesWhatWouldBecomePartOfTheCommand) {
  const char* const hostile[] = {"1 OR 1=1", "1;DROP TABLE T", "--",    "1--",   "0x1F",
                                 "1e5",      "NULL",           "8.765", "1,2,3", "(1)"};
  for (const char* text : hostile) {
    EXPECT_EQ(ErrorOf([&] { NumberOrNull(text); }), 102) << text;
    EXPECT_EQ(ErrorOf([&] { IdOrNull(text); }), 102) << text;
    EXPECT_EQ(ErrorOf([&] { (void)Digits(text); }), 102) << text;
  }
  EXPECT_EQ(ErrorOf([] { Id(""); }), 102);
  EXPECT_EQ(ErrorOf([] { Number(""); }), 102);
  for (const char* text : {"'", "O'Brien", "x' OR 'a'='a", "''"}) {
    EXPECT_EQ(ErrorOf([&] { TextOrNull(text); }), 105) << text;
    EXPECT_EQ(ErrorOf([&] { (void)Quoted(text); }), 105) << text;
    EXPECT_EQ(ErrorOf([&] { TextList(std::array{std::string("a"), std::string(text)}); }), 105) << text;
  }
  EXPECT_EQ(ErrorOf([] { (void)Quoted(std::string_view("a\0b", 3)); }), 105);
  EXPECT_EQ(Name("PERSONAL.ID_1").Text(), "PERSONAL.ID_1");
  EXPECT_EQ(Compose("SELECT A AS {}", BracketedName("Zuschlag % [A], 'neu'")).Text(),
            "SELECT A AS [Zuschlag % [A]], 'neu']");
  for (const char* text : {"", "A B", "A;B", "[A]", "A'", "Ä"})
    EXPECT_EQ(ErrorOf([&] { Name(text); }), 102) << text;
}

TEST(Statement, ReadsTypedNumbersInTheLocaleInForce) {
  Environment english{.locale = Locale::English(), .connect = {}};
  const EnvironmentScope scope(english);
  EXPECT_EQ(NumberOrNull("8.765").Text(), "8.765");
  EXPECT_EQ(ErrorOf([] { NumberOrNull("8,765"); }), 102);
}

TEST(ContextRecord, TakesMembersByName) {
  TvnVar_Dll context;
  EXPECT_TRUE(SetMember(context, "strLocalCurrency", "CZK"));
  EXPECT_TRUE(SetMember(context, "lngWaldortScope", "-3"));
  EXPECT_FALSE(SetMember(context, "lngWaldortScope", "3x"));
  EXPECT_FALSE(SetMember(context, "dbAdo", "x"));
  const TvnVar_Dll copy = context;
  SetMember(context, "strLocalCurrency", "PLN");
  EXPECT_EQ(copy.strLocalCurrency, "CZK");
  EXPECT_EQ(copy.lngWaldortScope, -3);
}

}  // namespace
}  // namespace tarvoni

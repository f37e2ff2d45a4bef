#include "src/context/data/statement.h"

#include <gtest/gtest.h>

#include "src/context/data/database_error.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/environment.h"

namespace tarvoni {
namespace {

template <typename Value>
concept Splices = requires(Value value) {
  Compose("{}", value);
};

static_assert(Splices<SqlText>);
static_assert(!Splices<std::string> && !Splices<const char*> && !Splices<int>,
              "a bare value must not compile");

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
                    TextOrNull("Föhre; --"), IdOrNull(""), Id(7)),
            "UPDATE T SET A = 12.50,B = 'Föhre; --',C = NULL WHERE ID = 7");
  EXPECT_EQ(Compose("WHERE NUMBER = '{}' AND ID = 0{}", Quoted(" 7 "), Digits("")),
            "WHERE NUMBER = ' 7 ' AND ID = 0");
  EXPECT_EQ(Compose("{} {} {}", NumberOrNull("  "), TextOrNull(""), IdOrNull(0)), "NULL NULL NULL");
  EXPECT_EQ(Compose("{} {} {}", Number(0.1), Number(1e21), Number(Decimal(-1250, 2))),
            "0.1 1000000000000000000000 -12.5");
  EXPECT_EQ(Compose("{}", Fragment("a {} b")), "a {} b") << "a value is not a pattern";
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
    EXPECT_EQ(ErrorOf([&] { Digits(text); }), 102) << text;
  }
  EXPECT_EQ(ErrorOf([] { Id(""); }), 102);
  EXPECT_EQ(ErrorOf([] { Number(""); }), 102);
  for (const char* text : {"'", "O'Brien", "x' OR 'a'='a", "''"}) {
    EXPECT_EQ(ErrorOf([&] { TextOrNull(text); }), 105) << text;
    EXPECT_EQ(ErrorOf([&] { Quoted(text); }), 105) << text;
  }
  EXPECT_EQ(ErrorOf([] { Quoted(std::string_view("a\0b", 3)); }), 105);
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

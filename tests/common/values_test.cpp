#include <gtest/gtest.h>

#include "src/context/values/call_error.h"
#include "src/context/values/clock.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"

namespace tarvoni {
namespace {

constexpr Locale kGerman = Locale::German();
constexpr Locale kEnglish = Locale::English();

TEST(NumberText, FormatsEveryMaskOfTheScreens) {
  struct Case {
    double number;
    const char* mask;
    const char* german;
  };
  const Case cases[] = {
      {0, "0.00", "0,00"},
      {1.005, "0.00", "1,01"},
      {-1.005, "0.00", "-1,01"},
      {2.675, "#0.00", "2,68"},
      {0.5, "#0.00", "0,50"},
      {1234.5, "0.00", "1234,50"},
      {-0.001, "0.00", "0,00"},
      {-12.5, "-####0.00", "-12,50"},
      {12.5, "-####0.00", "12,50"},
      {12.5, "-###0.00", "12,50"},
      {12.5, "-##0.00", "12,50"},
      {1234567.891, "-######0.00", "1234567,89"},
      {1234567.891, "######0.00", "1234567,89"},
      {0.00005, "-######0.0000", "0,0001"},
      {3.14159, "0.0000", "3,1416"},
      {42.4, "###################0", "42"},
      {0, "#########0", "0"},
      {7, "###0", "7"},
      {0, "#", ""},
      {42, "#", "42"},
      {5, "00", "05"},
      {123, "00", "123"},
      {5, "000", "005"},
      {5, "0000", "0005"},
      {2.5, "0", "3"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FormatNumber(c.number, c.mask, kGerman), c.german) << c.number << " as " << c.mask;
  }
  EXPECT_EQ(FormatNumber(1234.5, "0.00", kEnglish), "1234.50");
  EXPECT_EQ(FormatNumber(Decimal::Parse("12345678901234567890.125").value(), "0.00", kGerman),
            "12345678901234567890,13");
  EXPECT_EQ(NumberToText(Decimal::Parse("12.50").value(), kGerman), "12,5");
}

TEST(NumberText, ReadsWhatIsUnambiguousAndRefusesTheRest) {
  struct Case {
    const char* text;
    const char* german;  // null: refused
    const char* english;
  };
  const Case cases[] = {
      {"8,765", "8.765", nullptr},
      {"8.765", nullptr, "8.765"},
      {" 12 ", "12", "12"},
      {"-5", "-5", "-5"},
      {"+5", "5", "5"},
      {"12,", "12", nullptr},
      {",5", "0.5", nullptr},
      {"", nullptr, nullptr},
      {"-", nullptr, nullptr},
      {",", nullptr, nullptr},
      {"1,2,3", nullptr, nullptr},
      {"1.234,56", nullptr, nullptr},
      {"1,234.56", nullptr, nullptr},
      {"12a", nullptr, nullptr},
      {"1e5", nullptr, nullptr},
      {"1 2", nullptr, nullptr},
      {"0x10", nullptr, nullptr},
      {"5-", nullptr, nullptr},
  };
  const auto read = [](const char* text, const Locale& locale) {
    const auto number = ParseNumber(text, locale);
    return number ? number->ToShortString() : "refused";
  };
  for (const Case& c : cases) {
    EXPECT_EQ(read(c.text, kGerman), c.german ? c.german : "refused") << c.text;
    EXPECT_EQ(read(c.text, kEnglish), c.english ? c.english : "refused") << c.text;
  }
}

TEST(NumberText, ReadsNumbersFromElsewhereUnlessTheyCouldBeTwo) {
  struct Case {
    const char* text;
    const char* german;
  };
  const Case cases[] = {
      {"1.234,50", "1234,50"},
      {"1 234,50", "1234,50"},
      {"1,234.50", "1234,50"},
      {"1'234.50", "1234,50"},
      {"1\u00A0234", "1234"},
      {"1.234.567", "1234567"},
      {"-12.345,6", "-12345,6"},
      {"\u22125", "-5"},
      {"7.5", "7,5"},
      {"0.765", "0,765"},
      {"1,234", "1,234"},
      {",5", ",5"},
      {"12", "12"},
      {"8.765", "refused"},
      {"1 2", "refused"},
      {"1\t234", "refused"},
      {"1\n234", "refused"},
      {"1.23.456", "refused"},
      {"1.234,567.8", "refused"},
      {"0.123.456", "refused"},
      {"1.234 567", "refused"},
      {"12a", "refused"},
      {"--1", "refused"},
      {"1.-5", "refused"},
      {"", "refused"},
      {".", "refused"},
      {"1..5", "refused"},
      {"1 234 5", "refused"},
  };
  for (const Case& c : cases) EXPECT_EQ(PlainNumber(c.text, kGerman).value_or("refused"), c.german) << c.text;
  EXPECT_EQ(PlainNumber("1.234,50", kEnglish), "1234.50");
  EXPECT_EQ(PlainNumber("8.765", kEnglish), "8.765");
  EXPECT_FALSE(PlainNumber("8,765", kEnglish));
}

TEST(NumberText, MaskAdmitsWhatCanStillBecomeANumberOfItsSize) {
  const NumberMask mask = NumberMask::Of("-##0.00");
  for (const char* text : {"", "-", "1", "123", "123,", "123,4", "-123,45", ","}) {
    EXPECT_TRUE(mask.Admits(text, kGerman)) << text;
  }
  for (const char* text : {"1234", "1,234", "1.2", "--1", "1-", "1,2,", "a"}) {
    EXPECT_FALSE(mask.Admits(text, kGerman)) << text;
  }
  EXPECT_FALSE(NumberMask::Of("##0.00").Admits("-", kGerman));
  EXPECT_FALSE(NumberMask::Of("00").Admits("123", kGerman));
  EXPECT_FALSE(NumberMask::Of("00").Admits("1,", kGerman));
  EXPECT_TRUE(NumberMask::Of("#0.00").Admits("123456,78", kGerman)) << "a format for sums has no size";
}

TEST(NumberText, ConvertsToIntegersWithRoundingAndOverflow) {
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(3.5), 4);
  EXPECT_EQ(ToInt16(-2.5), -2);
  EXPECT_EQ(ToInt16(32767.4), 32767);
  EXPECT_THROW(ToInt16(32767.5), OverflowError);
  EXPECT_THROW(ToInt16(-32769), OverflowError);
  EXPECT_EQ(ToInt32("2147483647", kGerman), 2147483647);
  EXPECT_THROW(ToInt32("2147483648", kGerman), OverflowError);
  EXPECT_EQ(ToInt32("1,6", kGerman), 2);
  EXPECT_THROW(ToInt32("1.6", kGerman), CallError);
  EXPECT_THROW(ToInt32("F_POS", kGerman), CallError);
}

TEST(DateText, ReadsDatesAndRefusesDaysThatDoNotExist) {
  Clock::Set({.year = 2024, .month = 3, .day = 15});
  struct Case {
    const char* text;
    const char* iso;
  };
  const Case cases[] = {
      {"5.3.2024", "2024-03-05"},
      {"05.03.24", "2024-03-05"},
      {"5,3,24", "2024-03-05"},
      {"1.1.44", "2044-01-01"},
      {"1.1.45", "1945-01-01"},
      {"1.1.00", "2000-01-01"},
      {"050324", "2024-03-05"},
      {"05032024", "2024-03-05"},
      {"0503", "2024-03-05"},
      {"310424", nullptr},
      {"20240305", nullptr},
      {"50324", nullptr},
      {"5", nullptr},
      {"1-3-24", nullptr},
      {"0503x4", nullptr},
      {"29.02.2024", "2024-02-29"},
      {"5.3.", "2024-03-05"},
      {"2024-03-05", "2024-03-05"},
      {"29.2.2023", nullptr},
      {"31.4.2024", nullptr},
      {"5/3/2024", nullptr},
      {"5.3.202", nullptr},
      {"5.13.2024", nullptr},
      {"", nullptr},
      {"heute", nullptr},
      {"1.2.3.4", nullptr},
      {"-1.2.2024", nullptr},
      {"1.1.1752", nullptr},
  };
  for (const Case& c : cases) {
    const auto date = ParseDate(c.text);
    EXPECT_EQ(date ? date->ToIso() : "refused", c.iso ? c.iso : "refused") << c.text;
  }
  Clock::Reset();
}

TEST(DateText, YearThatIsLeftOutIsThatOfTheDayBefore) {
  Clock::Set({.year = 2099, .month = 12, .day = 31});
  const DateTime before{.year = 2023, .month = 8, .day = 1};
  EXPECT_EQ(ParseDate("1.3.", before), (DateTime{.year = 2023, .month = 3, .day = 1}));
  EXPECT_EQ(ParseDate("0103", before), (DateTime{.year = 2023, .month = 3, .day = 1}));
  EXPECT_EQ(ParseDate("29.2.", before), std::nullopt) << "no leap year";
  EXPECT_EQ(ParseDate("1.3.").value().year, 2099);
  EXPECT_EQ(ParseDate("1.3.19", before).value().year, 2119) << "two digits go by today alone";
  EXPECT_EQ(ParseDate("1.3.20", before).value().year, 2020);
  Clock::Reset();
}

TEST(DateText, FormatsByMask) {
  const DateTime date{.year = 2024, .month = 3, .day = 5, .milliseconds = (13 * 3600 + 4 * 60 + 9) * 1000};
  EXPECT_EQ(FormatDate(date, "dd.mm.yyyy", kGerman), "05.03.2024");
  EXPECT_EQ(FormatDate(date, "mmmm", kGerman), "März");
  EXPECT_EQ(FormatDate(date, "mmmm", kEnglish), "March");
  EXPECT_EQ(FormatDate(date, "yyyymmdd", kGerman), "20240305");
  EXPECT_EQ(FormatDate(date, "YYYY-MM-DD hh:nn:ss", kGerman), "2024-03-05 13:04:09");
  EXPECT_EQ(FormatDate(date, "{\\d 'yyyy-mm-dd'}", kGerman), "{d '2024-03-05'}");
}

TEST(FieldText, ShowsEachKindOfValue) {
  EXPECT_EQ(FieldText(Null{}, "0.00", kGerman), "");
  EXPECT_EQ(FieldText(Decimal(1250, 2), "", kGerman), "12,5");
  EXPECT_EQ(FieldText(Decimal(1250, 2), "0.00", kGerman), "12,50");
  EXPECT_EQ(FieldText(std::int64_t{5}, "00", kGerman), "05");
  EXPECT_EQ(FieldText(0.1, "", kEnglish), "0.1");
  EXPECT_EQ(FieldText(std::string("x1"), "0.00", kGerman), "x1");
  EXPECT_EQ(FieldText(std::string("24"), "0000", kGerman), "0024") << "a number that stands in a text";
  EXPECT_EQ(FieldText(std::string("24,5"), "0.00", kGerman), "24,50");
  EXPECT_EQ(FieldText(std::string("24"), "dd.mm.yyyy", kGerman), "24");
  EXPECT_EQ(FieldText(std::string("024"), "", kGerman), "024");
  EXPECT_EQ(FieldText(DateTime{.year = 2024, .month = 3, .day = 5}, "", kGerman), "05.03.2024");
}

}  // namespace
}  // namespace tarvoni

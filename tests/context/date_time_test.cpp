#include "src/context/values/date_time.h"

#include <gtest/gtest.h>

#include "src/context/values/clock.h"
#include "src/context/values/value.h"

namespace tarvoni {
namespace {

// Walks the calendar day by day, as a person would.
DateTime NextDay(DateTime date) {
  if (++date.day <= DaysInMonth(date.year, date.month)) return date;
  date.day = 1;
  if (++date.month <= 12) return date;
  date.month = 1;
  ++date.year;
  return date;
}

TEST(DateTimeTest, DaysCountTheWholeCalendar) {
  DateTime date{.year = 1753};
  int days = date.Days();
  EXPECT_EQ(days, -53690);
  for (; date.year <= 9999; date = NextDay(date), ++days) {
    ASSERT_EQ(date.Days(), days) << date.ToIso();
    ASSERT_EQ(DateTime::FromDays(days), date) << days;
  }
  EXPECT_EQ(days - 1, 2958463);
  EXPECT_EQ(DateTime().Days(), 0);
}

TEST(DateTimeTest, IsoFormComesBack) {
  for (const char* text : {"2024-02-29", "1753-01-01", "9999-12-31", "2024-02-29 13:45:00",
                           "2024-02-29 00:00:00.003", "2024-02-29 23:59:59.997"}) {
    const auto date = DateTime::FromIso(text);
    ASSERT_TRUE(date) << text;
    EXPECT_EQ(date->ToIso(), text);
    EXPECT_EQ(DateTime::FromDays(date->Days(), date->milliseconds), *date);
  }
  EXPECT_LT(DateTime::FromIso("2024-02-29"), DateTime::FromIso("2024-02-29 00:00:00.003"));
}

TEST(DateTimeTest, OtherFormsAreRefused) {
  for (const char* text :
       {"", "2024-2-29", "2023-02-29", "1752-12-31", "2024-13-01", "2024-00-01", "2024-01-00", "2024/02/29",
        "2024-02-29 00:00:00", "2024-02-29T13:45:00", "2024-02-29 13:45", "2024-02-29 24:00:00",
        "2024-02-29 13:60:00", "2024-02-29 13:45:00.000", "2024-02-29 13:45:00.0x3", "20240229xx",
        "2024-02-29 13-45-00"}) {
    EXPECT_FALSE(DateTime::FromIso(text)) << text;
  }
}

TEST(ClockTest, StandsStillWhenSet) {
  const DateTime moment{.year = 2024, .month = 2, .day = 29, .milliseconds = 5000};
  Clock::Set(moment);
  EXPECT_EQ(Clock::Now(), moment);
  EXPECT_EQ(Clock::Today().ToIso(), "2024-02-29");
  Clock::Reset();
  EXPECT_GT(Clock::Now(), moment);
  EXPECT_LT(Clock::Now().milliseconds, DateTime::kMillisecondsPerDay);
}

TEST(ValueTest, DisplayTextIsTheSameEverywhere) {
  EXPECT_EQ(ToDisplayText(Null{}), "NULL");
  EXPECT_EQ(ToDisplayText(true), "1");
  EXPECT_EQ(ToDisplayText(false), "0");
  EXPECT_EQ(ToDisplayText(std::int64_t{-42}), "-42");
  EXPECT_EQ(ToDisplayText(Decimal(12500, 3)), "12.5");
  EXPECT_EQ(ToDisplayText(-7 / 1.1), "-6.36363636363636");
  EXPECT_EQ(ToDisplayText(0.1 + 0.2), "0.3");
  EXPECT_EQ(ToDisplayText(-0.0), "0");
  EXPECT_EQ(ToDisplayText(100.0), "100");
  EXPECT_EQ(ToDisplayText(std::string("Öl  ")), "Öl  ");
  EXPECT_EQ(ToDisplayText(DateTime{.year = 2024, .month = 3, .day = 1, .milliseconds = 21'900'000}),
            "2024-03-01 06:05:00");
}

}  // namespace
}  // namespace tarvoni

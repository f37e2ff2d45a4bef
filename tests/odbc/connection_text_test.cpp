#include "platform/odbc/connection_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/odbc/wide_text.h"
#include "tests/support/database_testing.h"

namespace tarvoni::odbc {
namespace {

using dbtest::ErrorIn;

TEST(ConnectionText, AttributesAreFoundWithoutRegardToCaseAndBraces) {
  constexpr std::string_view kText = "driver={Free;TDS}; UID = sa ;PWD={a}}b;c};Leer=;Nur;Port=1";
  EXPECT_EQ(Attribute(kText, "DRIVER"), "Free;TDS");
  EXPECT_EQ(Attribute(kText, "UID"), "sa");
  EXPECT_EQ(Attribute(kText, "PWD"), "a}b;c");
  EXPECT_EQ(Attribute(kText, "LEER"), "");
  EXPECT_EQ(Attribute(kText, "PORT"), "1");
  EXPECT_EQ(Attribute(kText, "SERVER"), std::nullopt);
  EXPECT_EQ(Attribute("PWD={x;Driver=FreeTDS", "DRIVER"), std::nullopt);
}

TEST(ConnectionText, FreeTdsGetsWhatIsNotNamed) {
  EXPECT_EQ(DriverText("odbc:Driver=FreeTDS;Server=x"),
            "Driver=FreeTDS;Server=x;ClientCharset=UTF-8;TDS_Version=7.4");
  EXPECT_EQ(DriverText("ODBC:Driver=/usr/lib/libtdsodbc.so;tds_version=7.1;"),
            "Driver=/usr/lib/libtdsodbc.so;tds_version=7.1;ClientCharset=UTF-8");
  EXPECT_EQ(DriverText("odbc:Driver={ODBC Driver};Server=freetds"), "Driver={ODBC Driver};Server=freetds");
}

TEST(ConnectionText, AnotherKindOfTextIsRefusedWithoutItsPassword) {
  const auto error = ErrorIn([] { DriverText("Driver=x;PWD=geheim"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorConnection);
  EXPECT_THAT(error->what(), ::testing::Not(::testing::HasSubstr("geheim")));
}

TEST(WideText, GoesThereAndBackAndMarksWhatIsBroken) {
  constexpr std::string_view kText = "aÄÖÜß€\U0001F332z";
  EXPECT_EQ(ToWide(kText), u"aÄÖÜß€\U0001F332z");
  EXPECT_EQ(FromWide(ToWide(kText)), kText);
  EXPECT_EQ(ToWide("a\xC3"), u"a\uFFFD");                // cut
  EXPECT_EQ(ToWide("\xC0\x80x"), u"\uFFFD\uFFFDx");      // longer than need be
  EXPECT_EQ(ToWide("\xED\xA0\x80").front(), u'\uFFFD');  // half a pair
  EXPECT_EQ(FromWide(u"\xD800x"), "\xEF\xBF\xBDx");      // half a pair
  EXPECT_EQ(FromWide(std::u16string(1, 0xDC00)), "\xEF\xBF\xBD");
}

TEST(ConnectionText, TheLockIsThisProgramsOwnBusiness) {
  EXPECT_TRUE(WantsApplicationLock("odbc:Driver=X;Server=s"));
  EXPECT_TRUE(WantsApplicationLock("odbc:Driver=X;applicationlock=yes"));
  EXPECT_FALSE(WantsApplicationLock("odbc:Driver=X; ApplicationLock = No ;Server=s"));
  EXPECT_EQ(DriverText("odbc:Driver=X;ApplicationLock=no;Server=s"), "Driver=X;Server=s");
}

}  // namespace
}  // namespace tarvoni::odbc

#include "src/common/amount.h"

#include <gtest/gtest.h>

namespace tarvoni {
namespace {

std::string Divided(const char* dividend, const char* divisor, int places = 2) {
  const auto quotient = Quotient(*Decimal::Parse(dividend), *Decimal::Parse(divisor), places);
  return quotient ? quotient->ToString() : "nothing";
}

TEST(Quotient, RoundsHalfAwayFromZeroAtItsPlaces) {
  EXPECT_EQ(Divided("1000.01", "2"), "500.01");
  EXPECT_EQ(Divided("1000", "3"), "333.33");
  EXPECT_EQ(Divided("-0.01", "2"), "-0.01");
  EXPECT_EQ(Divided("0.0049", "1"), "0.00");
  EXPECT_EQ(Divided("-10", "-4", 0), "3");
}

// The half lies behind the places that a first rounding would keep.
TEST(Quotient, RoundsOnceWhateverTheScales) {
  EXPECT_EQ(Divided("12.3449", "1"), "12.34");
  EXPECT_EQ(Divided("12.3456", "0.0001"), "123456.00");
  EXPECT_EQ(Divided("1", "7.0000", 10), "0.1428571429");
}

TEST(Quotient, IsNothingWithoutADivisorOrRoom) {
  EXPECT_EQ(Divided("1", "0.00"), "nothing");
  EXPECT_EQ(Divided("99999999999999999999999999999999999999", "0.01"), "nothing");
  EXPECT_EQ(Divided("0.00000000000000000000000000000000000001", "99999999999999999999999999999999999999"),
            "nothing");
}

}  // namespace
}  // namespace tarvoni

#include "src/context/values/decimal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "src/context/values/wide_integer.h"
#include "tests/context/big_number.h"

namespace tarvoni {
namespace {

using test::BigNumber;
using test::RandomWholeNumber;

constexpr int kRounds = 3000;

std::string Unscaled(const std::optional<Decimal>& number) {
  return number ? Decimal(number->Unscaled(), 0).ToString() : "none";
}

// What a number of over 38 digits must give.
std::string Limited(const BigNumber& number) {
  return number.digits.size() > Decimal::kMaxDigits ? "none" : number.Text();
}

Decimal FromUnscaled(const std::string& whole, int scale) {
  return Decimal(Decimal::Parse(whole).value().Unscaled(), scale);
}

TEST(DecimalTest, ReadsAndWritesAllPlaces) {
  for (const char* text : {"0", "12.50", "-0.005", "0.00", "-1", "99999999999999999999999999999999999999",
                           "-0.00000000000000000000000000000000000001", "18446744073709551616.25"}) {
    EXPECT_EQ(Decimal::Parse(text).value().ToString(), text);
  }
  EXPECT_EQ(Decimal::Parse("+.5").value().ToString(), "0.5");
  EXPECT_EQ(Decimal::Parse("5.").value().ToString(), "5");
  EXPECT_EQ(Decimal::Parse("000000000000000000000000000000000000000000012.5").value().ToString(), "12.5");
}

TEST(DecimalTest, RefusesWhatIsNoNumber) {
  for (const char* text :
       {"", "-", ".", "+.", "1.2.3", "1e5", " 1", "1 ", "--1", "1,5", "a", "0x1F",
        "100000000000000000000000000000000000000", "0.000000000000000000000000000000000000001"}) {
    EXPECT_FALSE(Decimal::Parse(text)) << text;
  }
}

TEST(DecimalTest, ShortTextHasNoTrailingZeros) {
  const auto short_text = [](const char* text) { return Decimal::Parse(text).value().ToShortString(); };
  EXPECT_EQ(short_text("12.500"), "12.5");
  EXPECT_EQ(short_text("0.00"), "0");
  EXPECT_EQ(short_text("-3.250"), "-3.25");
  EXPECT_EQ(short_text("100"), "100");
  EXPECT_EQ(short_text("100.00"), "100");
}

TEST(DecimalTest, RoundsHalfAwayFromZero) {
  const auto rescaled = [](const char* text, int scale) {
    return Decimal::Parse(text).value().Rescaled(scale).value().ToString();
  };
  EXPECT_EQ(rescaled("1.005", 2), "1.01");
  EXPECT_EQ(rescaled("-1.005", 2), "-1.01");
  EXPECT_EQ(rescaled("1.00499999", 2), "1.00");
  EXPECT_EQ(rescaled("2.5", 0), "3");
  EXPECT_EQ(rescaled("-0.4", 0), "0");
  EXPECT_EQ(rescaled("7", 3), "7.000");

  const auto rounded = [](const char* text, int places) {
    return Decimal::Parse(text).value().Rounded(places).ToString();
  };
  EXPECT_EQ(rounded("1250.00", -2), "1300.00");
  EXPECT_EQ(rounded("-1250.00", -2), "-1300.00");
  EXPECT_EQ(rounded("449.5", -2), "400.0");
  EXPECT_EQ(rounded("1.005", 2), "1.010");
  EXPECT_EQ(rounded("1.005", 7), "1.005");
  EXPECT_EQ(rounded("99999999999999999999999999999999999999", -1), "100000000000000000000000000000000000000");
  EXPECT_EQ(rounded("99999999999999999999999999999999999999", -60), "0");
}

TEST(DecimalTest, RescalingAgreesWithSchoolArithmetic) {
  std::mt19937 random(1);
  for (int i = 0; i < kRounds; ++i) {
    const std::string whole = RandomWholeNumber(random, 38);
    const int from = static_cast<int>(random() % 39), to = static_cast<int>(random() % 39);
    const BigNumber number = BigNumber::Of(whole);
    const BigNumber expected = to < from ? number.Rounded(from - to) : number.Shifted(to - from);
    EXPECT_EQ(Unscaled(FromUnscaled(whole, from).Rescaled(to)), Limited(expected)) << whole << from << to;
  }
}

TEST(DecimalTest, ArithmeticAgreesWithSchoolArithmetic) {
  std::mt19937 random(2);
  for (int i = 0; i < kRounds; ++i) {
    const std::string a = RandomWholeNumber(random, 38), b = RandomWholeNumber(random, 38);
    const int a_scale = static_cast<int>(random() % 20), b_scale = static_cast<int>(random() % 19);
    const int scale = std::max(a_scale, b_scale);
    const BigNumber x = BigNumber::Of(a).Shifted(scale - a_scale);
    const BigNumber y = BigNumber::Of(b).Shifted(scale - b_scale);
    const bool fits = Limited(x) != "none" && Limited(y) != "none";
    const Decimal first = FromUnscaled(a, a_scale), second = FromUnscaled(b, b_scale);
    EXPECT_EQ(Unscaled(Add(first, second)), fits ? Limited(x + y) : "none") << a << ' ' << b;
    EXPECT_EQ(Unscaled(Subtract(first, second)), fits ? Limited(x + y.Negated()) : "none") << a << ' ' << b;
    EXPECT_EQ(Unscaled(Multiply(first, second)), Limited(BigNumber::Of(a) * BigNumber::Of(b)))
        << a << ' ' << b;
    EXPECT_EQ(first < second, (x + y.Negated()).negative) << a << ' ' << b;
    EXPECT_EQ(first == second, (x + y.Negated()).digits.empty()) << a << ' ' << b;
  }
}

TEST(DecimalTest, ProductKnowsItsScale) {
  const auto product = Multiply(Decimal::Parse("1.5").value(), Decimal::Parse("-0.25").value());
  EXPECT_EQ(product.value().ToString(), "-0.375");
  EXPECT_FALSE(Multiply(Decimal(1, 20), Decimal(1, 19)));
  EXPECT_EQ(Multiply(Decimal(0, 20), Decimal(1, 19)).value(), Decimal(0, 0));
}

TEST(DecimalTest, ComparesAcrossScales) {
  EXPECT_EQ(Decimal(1250, 2), Decimal(125, 1));
  EXPECT_LT(Decimal(-1, 38), Decimal(0, 0));
  EXPECT_LT(Decimal::Parse("1").value(),
            Decimal::Parse("1.00000000000000000000000000000000000001").value_or(Decimal(2, 0)));
  const Decimal huge(PowerOfTen(38) - 1, 0);
  EXPECT_GT(huge, Decimal(1, 38));
  EXPECT_LT(Decimal(-huge.Unscaled(), 0), Decimal(-1, 38));
}

TEST(DecimalTest, NearestToADouble) {
  const auto nearest = [](double value, int scale) {
    const auto number = Decimal::FromDouble(value, scale);
    return number ? number->ToString() : "none";
  };
  EXPECT_EQ(nearest(0.125, 2), "0.13");
  EXPECT_EQ(nearest(-2.5, 0), "-3");
  EXPECT_EQ(nearest(1.005, 2), "1.00");  // the double lies below the half
  EXPECT_EQ(nearest(0.1, 30), "0.100000000000000005551115123126");
  EXPECT_EQ(nearest(5e-324, 38), "0.00000000000000000000000000000000000000");
  EXPECT_EQ(nearest(1e22, 2), "10000000000000000000000.00");
  EXPECT_EQ(nearest(9007199254740993.0, 4), "9007199254740992.0000");
  EXPECT_EQ(nearest(1e38, 0), "none");
  EXPECT_EQ(nearest(-1e37, 2), "none");
  EXPECT_EQ(nearest(std::nan(""), 2), "none");
  EXPECT_EQ(nearest(std::numeric_limits<double>::infinity(), 2), "none");
}

TEST(DecimalTest, DoublesAreTheNearestOnes) {
  EXPECT_EQ(Decimal::Parse("0.1").value().ToDouble(), 0.1);
  EXPECT_EQ(Decimal::Parse("-123456789012345678.25").value().ToDouble(), -123456789012345678.25);
  EXPECT_EQ(Decimal::Parse("0.30000000000000004").value().ToDouble(), 0.30000000000000004);
  std::mt19937_64 random(3);
  for (int i = 0; i < kRounds; ++i) {
    const double value = static_cast<double>(random() % 1'000'000'000) / 1e4;
    EXPECT_EQ(Decimal::FromDouble(value, 4).value().ToDouble(), value);
  }
}

TEST(WideIntegerTest, DividesWhatItMultiplied) {
  std::mt19937_64 random(4);
  const auto wide = [&random] {
    return (static_cast<UInt128>(random()) << 64 | random()) >> (random() % 127);
  };
  for (int i = 0; i < kRounds; ++i) {
    const UInt128 a = wide() | 1, b = wide() | 1, rest = wide() % b;
    UInt256 sum = MultiplyWide(a, b);
    sum.low += rest;
    sum.high += sum.low < rest;
    const Division division = Divide(sum, b);
    EXPECT_TRUE(division.quotient.low == a && division.quotient.high == 0 && division.remainder == rest);
  }
  EXPECT_FALSE(DivideRounded(MultiplyWide(~UInt128{0}, 4), 2));
  EXPECT_TRUE(ShiftRightRounded({~UInt128{0}, 0}, 300).value() == 0);
  EXPECT_TRUE(ShiftRightRounded({~UInt128{0}, 0}, 256).value() == 1);
  EXPECT_FALSE(ShiftRightRounded({UInt128{1} << 100, 0}, 100));
  EXPECT_TRUE(DivideRounded({0, 7}, 2).value() == 4);
  EXPECT_TRUE(DivideRounded({0, ~UInt128{0}}, ~UInt128{0}).value() == 1);
}

}  // namespace
}  // namespace tarvoni

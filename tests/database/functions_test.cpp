#include "platform/sqlite/functions.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <regex>
#include <set>

#include "platform/tsql/public/type.h"
#include "tests/context/big_number.h"
#include "tests/database/function_testing.h"

namespace tarvoni::sqlite {
namespace {

using test::BigNumber;
using test::RandomWholeNumber;

// Numbers of TypeKind.
constexpr const char* kBit = "1";
constexpr const char* kTiny = "2";
constexpr const char* kSmall = "3";
constexpr const char* kInt = "4";
constexpr const char* kBig = "5";

std::string Call(const std::string& function, std::initializer_list<std::string> arguments) {
  std::string call = function + "(";
  for (const auto& argument : arguments) call += argument + ",";
  call.back() = ')';
  return call;
}

TEST(FunctionsTest, KindsAreNumberedAsTheseTestsWriteThem) {
  EXPECT_EQ(std::to_string(static_cast<int>(tsql::TypeKind::kBit)), kBit);
  EXPECT_EQ(std::to_string(static_cast<int>(tsql::TypeKind::kBigInt)), kBig);
}

TEST(FunctionsTest, WholeNumbersKeepToTheirType) {
  FunctionDatabase database;
  const auto range = [](const char* value, const char* kind) { return Call("ts_int_range", {value, kind}); };
  const auto cast = [](const char* value, const char* kind) { return Call("ts_int_cast", {value, kind}); };
  Check(database, {
                      {range("2147483647", kInt), "2147483647"},
                      {range("2147483648", kInt), "error 8115"},
                      {range("-2147483649", kInt), "error 8115"},
                      {range("256", kTiny), "error 8115"},
                      {range("-1", kTiny), "error 8115"},
                      {range("-32768", kSmall), "-32768"},
                      {range("9223372036854775807+1", kBig), "error 8115"},
                      {range("NULL", kInt), "NULL"},
                      {cast("255", kTiny), "255"},
                      {cast("256", kTiny), "error 220"},
                      {cast("-1", kTiny), "error 220"},
                      {cast("32768", kSmall), "error 220"},
                      {cast("2147483648", kInt), "error 8115"},
                      {cast("-7", kBit), "1"},
                      {cast("0", kBit), "0"},
                      {cast("1e300", kInt), "error 8115"},
                  });
}

TEST(FunctionsTest, WholeNumbersFromOtherValues) {
  FunctionDatabase database;
  const auto text = [](const char* value, const char* kind) {
    return Call("ts_int_from_text", {value, kind});
  };
  const auto exact = [](const char* value, const char* kind, const char* round) {
    return Call("ts_int_from_exact", {value, "2", kind, round});
  };
  const auto real = [](const char* value, const char* kind) {
    return Call("ts_int_from_float", {value, kind});
  };
  Check(database, {
                      {text("' 42 '", kInt), "42"},
                      {text("''", kInt), "0"},
                      {text("'101.0'", kInt), "error 245"},
                      {text("'zwölf'", kInt), "error 245"},
                      {text("'99999999999'", kInt), "error 248"},
                      {text("'256'", kTiny), "error 244"},
                      {text("'40000'", kSmall), "error 244"},
                      {text("'9223372036854775808'", kBig), "error 8115"},
                      {text("'True'", kBit), "1"},
                      {text("NULL", kInt), "NULL"},
                      {exact("599", kInt, "0"), "5"},
                      {exact("-599", kInt, "0"), "-5"},
                      {exact("550", kInt, "1"), "6"},
                      {exact("-550", kInt, "1"), "-6"},
                      {exact("25599", kTiny, "0"), "255"},
                      {exact("25599", kTiny, "1"), "error 8115"},
                      {exact("1", kBit, "0"), "1"},
                      {exact("9223372036854775807*10", kInt, "0"), "error 8115"},
                      {real("5.99", kInt), "5"},
                      {real("-5.99", kInt), "-5"},
                      {real("2147483648.0", kInt), "error 232"},
                      {real("-0.5", kTiny), "0"},
                      {real("9223372036854775807.0", kBig), "error 232"},
                      {real("-9223372036854775808.0", kBig), "-9223372036854775808"},
                      {real("0.1", kBit), "1"},
                      {real("1e300", kBig), "error 232"},
                  });
}

TEST(FunctionsTest, DivisionIsOfTheServer) {
  FunctionDatabase database;
  Check(database,
        {
            {"ts_int_div(7,2)", "3"},
            {"ts_int_div(-7,2)", "-3"},
            {"ts_int_div(1,0)", "error 8134"},
            {"ts_int_div(-9223372036854775807-1,-1)", "error 8115"},
            {"ts_int_div(NULL,0)", "NULL"},
            {"ts_int_mod(-7,4)", "-3"},
            {"ts_int_mod(7,0)", "error 8134"},
            {"ts_int_mod(-9223372036854775807-1,-1)", "0"},
            {"ts_float_div(7,2)", "3.5e0"},
            {"ts_float_div(7,0.0)", "error 8134"},
            {"ts_float_div(1e300,1e-300)", "error 8115"},
            {"ts_exact_div(20000,3,0)", "6666"},
            {"ts_exact_div(-20000,3,0)", "-6666"},
            {"ts_exact_div(10,3,6)", "3333333"},
            {"ts_exact_div(123456,10,-3)", "12"},
            {"ts_exact_div(1,0,6)", "error 8134"},
            {"ts_exact_div(9223372036854775807,1,19)", "wide 92233720368547758070000000000000000000"},
            {"ts_exact_div(9223372036854775807,1,20)", "error 8115"},
            {"ts_exact_div(5,ts_exact_mul(4000000000000000000,25000000000000000,0),50)", "5000000000000000"},
        });
}

TEST(FunctionsTest, ExactValuesFromOtherValues) {
  FunctionDatabase database;
  Check(database, {
                      {"ts_exact_from_text('2.345',9,2)", "235"},
                      {"ts_exact_from_text('-2.345',9,2)", "-235"},
                      {"ts_exact_from_text('',9,2)", "error 8114"},
                      {"ts_exact_from_text('1e2',9,2)", "error 8114"},
                      {"ts_exact_from_text('1234567.5',9,3)", "error 8115"},
                      {"ts_exact_from_text('99999999999999999999',20,0)", "wide 99999999999999999999"},
                      {"ts_money_from_text('12.5')", "125000"},
                      {"ts_money_from_text('-$1,250.00005')", "-12500001"},
                      {"ts_money_from_text('x')", "error 235"},
                      {"ts_exact_from_float(2.5,9,0)", "3"},
                      {"ts_exact_from_float(19.845,18,2)", "1984"},
                      {"ts_exact_from_float(1e9,9,0)", "error 8115"},
                      {"ts_exact_from_float(1e30,38,0)", "wide 1000000000000000019884624838656"},
                      {"ts_exact_rescale(12345,3,2,9)", "1235"},
                      {"ts_exact_rescale(-12345,3,2,9)", "-1235"},
                      {"ts_exact_rescale(5,0,2,3)", "500"},
                      {"ts_exact_rescale(10,0,2,3)", "error 8115"},
                      {"ts_exact_rescale(NULL,0,2,3)", "NULL"},
                      {"ts_exact_rescale(1.0,0,2,9)", "error 8115"},
                      {"ts_exact_money(9223372036854775807)", "9223372036854775807"},
                      {"ts_exact_money(ts_exact_add(9223372036854775807,1))", "error 8115"},
                      {"ts_exact_neg(-9223372036854775807-1)", "wide 9223372036854775808"},
                  });
}

TEST(FunctionsTest, WideValuesStayExact) {
  FunctionDatabase database;
  const std::string most = "ts_exact_from_text('99999999999999999999999999999999999999',38,0)";
  Check(database,
        {
            {"ts_exact_add(9223372036854775807,9223372036854775807)", "wide 18446744073709551614"},
            {"ts_exact_add(ts_exact_add(9223372036854775807,1),-1)", "9223372036854775807"},
            {"ts_exact_add(-9223372036854775807,-1,-1)", "wide -9223372036854775809"},
            {"ts_exact_add(" + most + ",1)", "error 8115"},
            {"ts_exact_add(ts_exact_neg(" + most + "),-1)", "error 8115"},
            {"ts_exact_mul(" + most + "," + most + ",38)", "wide 99999999999999999999999999999999999998"},
            {"ts_exact_mul(" + most + "," + most + ",76)", "1"},
            {"ts_exact_mul(5,-1,1)", "-1"},
            {"ts_exact_mul(4,-1,1)", "0"},
            {"ts_exact_mul(" + most + ",10,0)", "error 8115"},
            {"ts_exact_cmp(" + most + ",38,1,0)", "-1"},
            {"ts_exact_cmp(1250,2,125,1)", "0"},
            {"ts_exact_cmp(1,0,-" + most + ",0)", "1"},
            {"ts_exact_add(x'00',1)", "error 50005"},
            {"ts_round(" + most + ",0,-1,38)", "error 8115"},
        });
}

TEST(FunctionsTest, RoundsHalfAwayFromZero) {
  FunctionDatabase database;
  Check(database, {
                      {"ts_round(1005,3,2,38)", "1010"},
                      {"ts_round(-1005,3,2,38)", "-1010"},
                      {"ts_round(1004,3,2,38)", "1000"},
                      {"ts_round(1250,0,-2,38)", "1300"},
                      {"ts_round(4495,1,-2,38)", "4000"},
                      {"ts_round(7,0,2,38)", "7"},
                      {"ts_round(1005,3,-9223372036854775807,38)", "0"},
                      {"ts_round(1005,3,9223372036854775807,38)", "1005"},
                      {"ts_round(1005,3,NULL,38)", "NULL"},
                      {"ts_round_float(0.125,2)", "1.3e-1"},
                      {"ts_round_float(-2.5,0)", "-3e0"},
                      {"ts_round_float(1250,-2)", "1.3e3"},
                      {"ts_round_float(19.845,2)", "1.984e1"},
                      {"ts_round_float(1.5*2410.8/173/100,4)", "2.09e-1"},
                      {"ts_round_float(1e300,2)", "1e300"},
                      {"ts_round_float(5e-324,400)", "0e0"},
                      {"ts_round_float(123.456,30)", "1.23456e2"},
                  });
}

// Which of the halves x.65 lie above themselves as floats, as a server was seen to round them.
TEST(FunctionsTest, RoundsFloatsByWhatTheyAre) {
  FunctionDatabase database;
  for (int whole = 1; whole < 100; ++whole) {
    const bool up = (whole >= 4 && whole <= 15) || whole >= 64;
    const std::string text = std::to_string(whole);
    EXPECT_EQ(database.Value("ts_round_float(" + text + ".65,1)=" + text + (up ? ".7" : ".6")), "1") << whole;
  }
}

TEST(FunctionsTest, ExactArithmeticAgreesWithSchoolArithmetic) {
  FunctionDatabase database;
  std::mt19937 random(5);
  const auto literal = [](const std::string& whole) { return "ts_exact_from_text('" + whole + "',38,0)"; };
  const auto limited = [](const BigNumber& number) {
    if (number.digits.size() > Decimal::kMaxDigits) return std::string("error 8115");
    const bool wide = number.digits.size() > 19 ||
                      (number.digits.size() == 19 && number.digits.back() == '9' &&
                       BigNumber::CompareMagnitudes(number, BigNumber::Of("9223372036854775807")) > 0);
    return (wide ? "wide " : "") + number.Text();
  };
  for (int i = 0; i < 2000; ++i) {
    const std::string a = RandomWholeNumber(random, 38), b = RandomWholeNumber(random, 38);
    const int drop = static_cast<int>(random() % 60), scale = static_cast<int>(random() % 39);
    const BigNumber x = BigNumber::Of(a), y = BigNumber::Of(b);
    const std::string pair = literal(a) + "," + literal(b);
    ASSERT_EQ(database.Value("ts_exact_add(" + pair + ")"), limited(x + y)) << pair;
    ASSERT_EQ(database.Value("ts_exact_add(" + literal(a) + ",ts_exact_neg(" + literal(b) + "))"),
              limited(x + y.Negated()))
        << pair;
    ASSERT_EQ(database.Value("ts_exact_mul(" + pair + "," + std::to_string(drop) + ")"),
              limited((x * y).Rounded(drop)))
        << pair << drop;
    ASSERT_EQ(database.Value("ts_round(" + literal(a) + "," + std::to_string(scale) + ",2,38)"),
              limited(scale <= 2 ? x : x.Rounded(scale - 2).Shifted(scale - 2)))
        << a << ' ' << scale;
  }
}

// a = quotient * b + rest, where the rest is nearer to zero than b and has the sign of a.
TEST(FunctionsTest, QuotientsAreCut) {
  FunctionDatabase database;
  std::mt19937 random(6);
  for (int i = 0; i < 2000; ++i) {
    const std::string a = RandomWholeNumber(random, 20), b = RandomWholeNumber(random, 18);
    const int shift = static_cast<int>(random() % 18);
    const std::string quotient =
        database.Value("ts_text_from_exact(ts_exact_div(ts_exact_from_text('" + a +
                       "',38,0),ts_exact_from_text('" + b + "',38,0)," + std::to_string(shift) + "),0)");
    const BigNumber dividend = BigNumber::Of(a).Shifted(shift);
    const BigNumber product = BigNumber::Of(quotient.substr(1, quotient.size() - 2)) * BigNumber::Of(b);
    const BigNumber rest = dividend + product.Negated();
    ASSERT_TRUE(rest.digits.empty() || rest.negative == dividend.negative) << a << '/' << b;
    ASSERT_LT(BigNumber::CompareMagnitudes(rest, BigNumber::Of(b)), 0) << a << '/' << b;
  }
}

TEST(FunctionsTest, AggregatesOverWideValues) {
  FunctionDatabase database;
  database.Run("CREATE TABLE t (x)");
  EXPECT_EQ(database.Ask("SELECT ts_exact_sum(x),ts_exact_min(x),ts_exact_max(x) FROM t"), "NULL NULL NULL");
  database.Run("INSERT INTO t VALUES (NULL)");
  EXPECT_EQ(database.Ask("SELECT ts_exact_sum(x),ts_exact_min(x),ts_exact_max(x) FROM t"), "NULL NULL NULL");
  database.Run(
      "INSERT INTO t VALUES (9223372036854775807),(9223372036854775807),(-5),"
      "(ts_exact_from_text('-99999999999999999999',38,0))");
  EXPECT_EQ(database.Ask("SELECT ts_exact_sum(x),ts_exact_min(x),ts_exact_max(x) FROM t"),
            "wide -81553255926290448390 wide -99999999999999999999 9223372036854775807");
  EXPECT_EQ(database.Ask("SELECT ts_exact_sum(DISTINCT x) FROM t WHERE typeof(x)='integer' AND x>0"),
            "9223372036854775807");
  EXPECT_EQ(
      database.Ask("SELECT ts_exact_sum(ts_exact_from_text('99999999999999999999999999999999999999',38,0)) "
                   "FROM t WHERE x IS NOT NULL"),
      "error 8115");
  EXPECT_EQ(database.Ask("SELECT ts_exact_sum(1.5)"), "error 8115");
}

TEST(FunctionsTest, KeysSortAsTheirValues) {
  FunctionDatabase database;
  std::mt19937 random(7);
  const auto literal = [](const std::string& whole) { return "ts_exact_from_text('" + whole + "',38,0)"; };
  for (int i = 0; i < 500; ++i) {
    const std::string a = literal(RandomWholeNumber(random, 38)), b = literal(RandomWholeNumber(random, 38));
    EXPECT_EQ(database.Value("(ts_exact_key(" + a + ")<ts_exact_key(" + b + "))=(ts_exact_cmp(" + a + ",0," +
                             b + ",0)<0)"),
              "1")
        << a << b;
  }
  EXPECT_EQ(database.Value("ts_exact_key(5)=ts_exact_key(ts_exact_add(9223372036854775807,5,"
                           "-9223372036854775807))"),
            "1");
  EXPECT_EQ(database.Value("ts_exact_key(NULL)"), "NULL");
}

TEST(FunctionsTest, Floats) {
  FunctionDatabase database;
  Check(database, {
                      {"ts_float_from_text('-325e-2')", "-3.25e0"},
                      {"ts_float_from_text('')", "0e0"},
                      {"ts_float_from_text('2,5')", "error 8114"},
                      {"ts_float_from_text('1e400')", "error 8115"},
                      {"ts_float_from_exact(1250,2)", "1.25e1"},
                      {"ts_float_from_exact(3,1)", "3e-1"},
                  });
}

TEST(FunctionsTest, NumbersAsText) {
  FunctionDatabase database;
  Check(database, {
                      {"ts_text_from_exact(1250,2)", "'12.50'"},
                      {"ts_text_from_exact(-5,3)", "'-0.005'"},
                      {"ts_text_from_exact(42,0)", "'42'"},
                      {"ts_text_from_money(125000)", "'12.50'"},
                      {"ts_text_from_money(-50)", "'-0.01'"},
                      {"ts_text_from_float(2.5)", "'2.5'"},
                      {"ts_text_from_float(1.0/3)", "'0.333333'"},
                      {"ts_text_from_float(1234567.0)", "'1.23457e+006'"},
                      {"ts_text_from_float(0.00001)", "'1e-005'"},
                      {"ts_text_from_float(1e300)", "'1e+300'"},
                      {"ts_text_from_float(100000.0)", "'100000'"},
                      {"ts_text_from_float(-0.0)", "'0'"},
                      {"ts_int_text_cast(42,4,1)", "'42  '"},
                      {"ts_int_text_cast(12345,4,1)", "'*   '"},
                      {"ts_int_text_cast(-7,5,0)", "'-7'"},
                      {"ts_int_text_cast(-7,1,0)", "'*'"},
                      {"ts_number_text_cast('12.50',10,0)", "'12.50'"},
                      {"ts_number_text_cast('4.50',6,1)", "'4.50  '"},
                      {"ts_number_text_cast('12.50',4,0)", "error 8115"},
                  });
}

TEST(FunctionsTest, TextsByCharacters) {
  FunctionDatabase database;
  Check(database, {
                      {"ts_text_cast('abcdef',3,1)", "'abc'"},
                      {"ts_text_cast('äöü',2,0)", "'äö'"},
                      {"ts_text_cast('äö',4,1)", "'äö  '"},
                      {"ts_text_cast('abc',1000000000,0)", "'abc'"},
                      {"ts_text_store('ZELL5      ',5,1)", "'ZELL5'"},
                      {"ts_text_store('ZELLHO',5,1)", "error 8152"},
                      {"ts_text_store('ZELLÖ',5,1)", "'ZELLÖ'"},
                      {"ts_text_store('mg',5,1)", "'mg   '"},
                      {"ts_text_store('mg ',5,0)", "'mg '"},
                      {"ts_text_store('Zell  x',5,0)", "error 8152"},
                      {"ts_left('Öhlberg',2)", "'Öh'"},
                      {"ts_left('Öhlberg',0)", "''"},
                      {"ts_left('Öhlberg',99)", "'Öhlberg'"},
                      {"ts_left('Öhlberg',-1)", "error 536"},
                      {"ts_right('Süßöl',3)", "'ßöl'"},
                      {"ts_right('Süß',0)", "''"},
                      {"ts_right('Süß',50)", "'Süß'"},
                      {"ts_right('Süß',-1)", "error 536"},
                      {"ts_right(NULL,1)", "NULL"},
                      {"ts_len('grün  ')", "4"},
                      {"ts_len('   ')", "0"},
                      {"ts_rtrim(' a  ')", "' a'"},
                      {"ts_rtrim('  ')", "''"},
                      {"ts_ltrim('  a ')", "'a '"},
                      {"ts_ltrim('  ')", "''"},
                      {"ts_upper('Süß grün éàç ÿž')", "'SÜß GRÜN ÉÀÇ ŸŽ'"},
                      {"ts_lower('ÄÖÜ SS Ž')", "'äöü ss ž'"},
                      {"ts_upper('')", "''"},
                  });
}

TEST(FunctionsTest, Like) {
  FunctionDatabase database;
  const auto like = [](const char* text, const char* pattern) { return Call("ts_like", {text, pattern}); };
  Check(database, {
                      {like("'Eichberg'", "'eich%'"), "1"},
                      {like("'Eichberg'", "'%BERG'"), "1"},
                      {like("'Eichberg'", "'%ch%r_'"), "1"},
                      {like("'Eichberg'", "'eich'"), "0"},
                      {like("'MÜHLE'", "'mü%'"), "1"},
                      {like("'Mühle'", "'mu%'"), "0"},
                      {like("'Mühle'", "'m_hle'"), "1"},
                      {like("'b7'", "'[a-c][0-9]'"), "1"},
                      {like("'d7'", "'[a-c][0-9]'"), "0"},
                      {like("'d7'", "'[^a-c]_'"), "1"},
                      {like("'B7'", "'[^a-c]_'"), "0"},
                      {like("'x'", "'[abx]'"), "1"},
                      {like("'a%b'", "'a[%]b'"), "1"},
                      {like("'axb'", "'a[%]b'"), "0"},
                      {like("'a'", "'[a'"), "0"},
                      {like("'aab'", "'%ab'"), "1"},
                      {like("'EB1  '", "'eb1'"), "1"},
                      {like("'EB1'", "'eb1  '"), "0"},
                      {like("''", "'%'"), "1"},
                      {like("''", "'_'"), "0"},
                      {like("'a'", "''"), "0"},
                      {like("NULL", "'%'"), "NULL"},
                  });
}

TEST(FunctionsTest, WhatIsNumeric) {
  FunctionDatabase database;
  Check(database, {
                      {"ts_isnumeric(NULL)", "0"},
                      {"ts_isnumeric(5)", "1"},
                      {"ts_isnumeric(2.5)", "1"},
                      {"ts_isnumeric(' 5 ')", "1"},
                      {"ts_isnumeric('12a')", "0"},
                      {"ts_isnumeric(ts_exact_add(9223372036854775807,1))", "1"},
                  });
}

TEST(FunctionsTest, Dates) {
  FunctionDatabase database;
  Check(database, {
                      {"ts_date_from_text('20240229 13:45')", "'2024-02-29 13:45:00'"},
                      {"ts_date_from_text('')", "'1900-01-01'"},
                      {"ts_date_from_text('gestern')", "error 241"},
                      {"ts_date_from_text('29.02.2024')", "error 242"},
                      {"ts_date_from_text(NULL)", "NULL"},
                      {"ts_date_from_days(0)", "'1900-01-01'"},
                      {"ts_date_from_days(45349.5)", "'2024-02-29 12:00:00'"},
                      {"ts_date_from_days(-53690)", "'1753-01-01'"},
                      {"ts_date_from_days(-53690.1)", "error 8115"},
                      {"ts_date_from_days(1e300)", "error 8115"},
                      {"ts_date_add('2024-02-29',1)", "'2024-03-01'"},
                      {"ts_date_add('2024-02-29 13:45:00',-60)", "'2023-12-31 13:45:00'"},
                      {"ts_date_add('2024-02-29',-0.25)", "'2024-02-28 18:00:00'"},
                      {"ts_date_add('1800-01-01',0.5)", "'1800-01-01 12:00:00'"},
                      {"ts_date_add('9999-12-31',1)", "error 517"},
                      {"ts_date_add('1753-01-01',-0.1)", "error 517"},
                      {"ts_date_add('2024-02-29',1e9)", "error 517"},
                      {"ts_date_add('morgen',1)", "error 50005"},
                      {"ts_date_add(NULL,1)", "NULL"},
                      {"ts_text_from_date('2024-02-29 13:45:00')", "'Feb 29 2024  1:45PM'"},
                      {"ts_text_from_date('2024-10-01')", "'Oct  1 2024 12:00AM'"},
                      {"ts_text_from_date('2024-10-01 12:05:00')", "'Oct  1 2024 12:05PM'"},
                  });
  database.context.date_format = DateFormat::kDmy;
  EXPECT_EQ(database.Value("ts_date_from_text('29.02.2024')"), "'2024-02-29'");
}

TEST(FunctionsTest, IdentitiesAndErrors) {
  FunctionDatabase database;
  EXPECT_EQ(database.Value("ts_ident_current('BELEG')"), "NULL");
  EXPECT_EQ(database.Value("ts_next_identity('BELEG')"), "error 8115");
  std::int64_t last = 0;
  database.context.next_identity = [&last](std::string_view table) {
    return table == "BELEG" ? std::optional(++last) : std::nullopt;
  };
  database.context.current_identity = [&last](std::string_view table) {
    if (table == "VOLL") throw DatabaseError(kErrorDiskFull, "voll");
    return table == "BELEG" ? std::optional(last) : std::nullopt;
  };
  EXPECT_EQ(database.Value("ts_next_identity('BELEG'),ts_next_identity('BELEG')"), "1 2")
      << "asked each time";
  EXPECT_EQ(database.Value("ts_ident_current('BELEG'),ts_ident_current('NOTIZ'),ts_ident_current(NULL)"),
            "2 NULL NULL");
  EXPECT_EQ(database.Value("ts_ident_current('VOLL')"), "error " + std::to_string(kErrorDiskFull));
  EXPECT_EQ(database.Value("CASE WHEN 1=2 THEN ts_raise(512) ELSE 3 END"), "3");
  EXPECT_EQ(database.Value("ts_raise(512)"), "error 512");
  ASSERT_TRUE(database.context.error);
  EXPECT_NE(database.context.error->message.find("more than 1 value"), std::string::npos);
}

// Every function that the header of the emitter promises is there, and takes as many arguments as it says.
TEST(FunctionsTest, AllThatIsPromisedIsThere) {
  FunctionDatabase database;
  std::ifstream file(RUNTIME_HEADER);
  const std::string header((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  const std::regex call(R"((ts_\w+)\(([^)]*)\))");
  std::set<std::string> promised;
  for (std::sregex_iterator it(header.begin(), header.end(), call), end; it != end; ++it) {
    const std::string arguments = (*it)[2];
    const bool any = arguments.ends_with("…");
    const auto count = any ? -1 : std::count(arguments.begin(), arguments.end(), ',') + 1;
    promised.insert((*it)[1]);
    const std::string row =
        database.Ask("SELECT narg FROM pragma_function_list WHERE name='" + (*it)[1].str() + "'");
    EXPECT_EQ(row, std::to_string(count)) << (*it)[0];
  }
  EXPECT_GE(promised.size(), 50U);
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM pragma_function_list WHERE name LIKE 'ts\\_%' ESCAPE '\\'"),
            std::to_string(promised.size()))
      << "none is there that the header does not know";
}

}  // namespace
}  // namespace tarvoni::sqlite

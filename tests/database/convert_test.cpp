#include "platform/sqlite/convert.h"

#include <gtest/gtest.h>

#include "platform/sqlite/number_text.h"
#include "tests/database/function_testing.h"

namespace tarvoni::sqlite {
namespace {

using tsql::LiteralToken;
using tsql::TokenKind;
using tsql::Type;
using tsql::TypeKind;

struct DateCase {
  const char* text;
  DateFormat format;
  const char* iso;
};

TEST(DateTextTest, FormsOfADay) {
  constexpr auto kMdy = DateFormat::kMdy, kDmy = DateFormat::kDmy, kYmd = DateFormat::kYmd;
  const DateCase cases[] = {
      {"20240229", kMdy, "2024-02-29"},
      {"20240229", kDmy, "2024-02-29"},
      {"240229", kMdy, "2024-02-29"},
      {"500229", kYmd, ""},
      {"491231", kDmy, "2049-12-31"},
      {"501231", kDmy, "1950-12-31"},
      {"2024", kMdy, "2024-01-01"},
      {"2024-02-29", kMdy, "2024-02-29"},
      {"2024-02-29", kYmd, "2024-02-29"},
      {"2024-02-03", kDmy, "2024-03-02"},
      {"2024-02-29", kDmy, ""},
      {"2024.3.1", kMdy, "2024-03-01"},
      {"02/29/2024", kMdy, "2024-02-29"},
      {"02/29/2024", kDmy, ""},
      {"29.02.2024", kDmy, "2024-02-29"},
      {"1/3/2024", kDmy, "2024-03-01"},
      {"1/3/2024", kMdy, "2024-01-03"},
      {"1/3/24", kMdy, "2024-01-03"},
      {"1-3-50", kDmy, "1950-03-01"},
      {"24/2/29", kYmd, "2024-02-29"},
      {"24/29/2", DateFormat::kYdm, "2024-02-29"},
      {"2/24/29", DateFormat::kMyd, "2024-02-29"},
      {"29/24/2", DateFormat::kDym, "2024-02-29"},
      {"2/2024/29", kMdy, "2024-02-29"},
      {"Feb 29 2024", kMdy, "2024-02-29"},
      {"29 February 2024", kMdy, "2024-02-29"},
      {"february 29, 2024", kDmy, "2024-02-29"},
      {"29-FEB-2024", kDmy, "2024-02-29"},
      {"Feb 2024", kMdy, "2024-02-01"},
      {"Oct  1 2024 12:00AM", kMdy, "2024-10-01"},
      {"", kMdy, "1900-01-01"},
      {"   ", kDmy, "1900-01-01"},
      {"  20240229 ", kMdy, "2024-02-29"},
      {"17530101", kMdy, "1753-01-01"},
  };
  for (const auto& [text, format, iso] : cases) {
    if (*iso == '\0') {
      EXPECT_EQ(NumberOf([&] { DateFromText(text, format); }), 242) << text;
    } else {
      EXPECT_EQ(DateFromText(text, format).ToIso(), iso) << text;
    }
  }
}

TEST(DateTextTest, TimesOfDay) {
  const std::pair<const char*, const char*> cases[] = {
      {"20240229 00:00", "2024-02-29"},
      {"20240229 13:45:30", "2024-02-29 13:45:30"},
      {"2024-02-29T13:45:00", "2024-02-29 13:45:00"},
      {"2024-02-29t13:45:00.5", "2024-02-29 13:45:00.500"},
      {"20240229T13:45:00", "2024-02-29 13:45:00"},
      {"1/3/2024 06:05", "2024-01-03 06:05:00"},
      {"20240229 1:45PM", "2024-02-29 13:45:00"},
      {"20240229 1:45 am", "2024-02-29 01:45:00"},
      {"20240229 12AM", "2024-02-29"},
      {"20240229 12 PM", "2024-02-29 12:00:00"},
      {"20240229 13:00PM", "2024-02-29 13:00:00"},
      {"Feb 29 2024  1:45PM", "2024-02-29 13:45:00"},
      {"13:45", "1900-01-01 13:45:00"},
      {"13:45 20240229", "2024-02-29 13:45:00"},
      {"20240229 00:00:00.001", "2024-02-29"},
      {"20240229 00:00:00.002", "2024-02-29 00:00:00.003"},
      {"20240229 00:00:00.004", "2024-02-29 00:00:00.003"},
      {"20240229 00:00:00.005", "2024-02-29 00:00:00.007"},
      {"20240229 00:00:00.008", "2024-02-29 00:00:00.007"},
      {"20240229 00:00:00.009", "2024-02-29 00:00:00.010"},
      {"20240229 00:00:00.5", "2024-02-29 00:00:00.500"},
      {"20240229 00:00:00.25", "2024-02-29 00:00:00.250"},
      {"20240229 00:00:00:7", "2024-02-29 00:00:00.007"},
      {"20240229 23:59:59.997", "2024-02-29 23:59:59.997"},
      {"20240229 23:59:59.999", "2024-03-01"},
      {"1752-12-31 00:00", ""},
  };
  for (const auto& [text, iso] : cases) {
    if (*iso == '\0') {
      EXPECT_EQ(NumberOf([&] { DateFromText(text, DateFormat::kMdy); }), 242) << text;
    } else {
      EXPECT_EQ(DateFromText(text, DateFormat::kMdy).ToIso(), iso) << text;
    }
  }
  EXPECT_EQ(DateFromText("2024-02-03T01:00:00", DateFormat::kDmy).ToIso(), "2024-02-03 01:00:00");
}

TEST(DateTextTest, Refusals) {
  const auto number = [](const char* text) {
    return NumberOf([=] { DateFromText(text, DateFormat::kMdy); });
  };
  for (const char* text : {"gestern",
                           "x",
                           "1",
                           "12345",
                           "1234567",
                           "123456789",
                           "2/29",
                           "2/29/",
                           "2/29/124",
                           "2-29/2024",
                           "20240229 x",
                           "20240229 20240229",
                           "20240229T",
                           "20240229 13",
                           "20240229 13:",
                           "Feb 29",
                           "Febr 29 2024",
                           "29 2 2024",
                           "13:45 13:45",
                           "20240229 13:45:00.1234",
                           "2024-02-29-01",
                           "20240229 13:45XM",
                           "2/29/20244"}) {
    EXPECT_EQ(number(text), 241) << text;
  }
  for (const char* text :
       {"20230229", "2024-02-30", "13/01/2024", "20241301", "20240229 24:00", "20240229 12:60",
        "20240229 12:00:60", "20240229 13:00AM", "00000101", "99991231 23:59:59.999"}) {
    EXPECT_EQ(number(text), 242) << text;
  }
}

TEST(DateTextTest, FormatsByName) {
  EXPECT_EQ(ParseDateFormat("dmy"), DateFormat::kDmy);
  EXPECT_EQ(ParseDateFormat("YMD"), DateFormat::kYmd);
  EXPECT_EQ(ParseDateFormat("dym"), DateFormat::kDym);
  EXPECT_EQ(NumberOf([] { ParseDateFormat("tmj"); }), 2741);
}

TEST(NumberTextTest, WholeNumbers) {
  EXPECT_EQ(WholeFromText("  +0042 ", TypeKind::kInt), 42);
  EXPECT_EQ(WholeFromText("\t-7", TypeKind::kSmallInt), -7);
  EXPECT_EQ(WholeFromText("-9223372036854775808", TypeKind::kBigInt),
            std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(WholeFromText("0000000000000000000000000000000000000000000007", TypeKind::kInt), 7);
  EXPECT_EQ(WholeFromText("false", TypeKind::kBit), 0);
  EXPECT_EQ(WholeFromText("-12", TypeKind::kBit), 1);
  EXPECT_EQ(WholeFromText("000", TypeKind::kBit), 0);
  for (const char* text :
       {"-", "+", "--5", "5-", "5 5", "1e2", "5.", ".", "0x1F", "1,000", "12a", "7\t", "True"}) {
    EXPECT_EQ(NumberOf([=] { WholeFromText(text, TypeKind::kInt); }), 245) << text;
  }
  EXPECT_EQ(NumberOf([] { WholeFromText("2147483648", TypeKind::kInt); }), 248);
  EXPECT_EQ(NumberOf([] { WholeFromText(std::string(60, '9'), TypeKind::kInt); }), 248);
  EXPECT_EQ(NumberOf([] { WholeFromText("-1", TypeKind::kTinyInt); }), 244);
  EXPECT_EQ(NumberOf([] { WholeFromText("ja", TypeKind::kBit); }), 245);
}

TEST(NumberTextTest, ExactNumbers) {
  const auto text = [](const char* digits, int precision, int scale) {
    return Decimal(ExactFromText(digits, precision, scale), scale).ToString();
  };
  EXPECT_EQ(text(" -3.250 ", 9, 2), "-3.25");
  EXPECT_EQ(text("1.239", 9, 2), "1.24");
  EXPECT_EQ(text("-1.235", 9, 2), "-1.24");
  EXPECT_EQ(text("1.2349999999999999999999999999999999999999999999", 9, 2), "1.23");
  EXPECT_EQ(text(".5", 9, 0), "1");
  EXPECT_EQ(text("5.", 9, 1), "5.0");
  EXPECT_EQ(text("0099.9", 3, 1), "99.9");
  EXPECT_EQ(text("0.004", 2, 2), "0.00");
  for (const char* digits : {"", " ", "-", ".", "1.2.3", "1e2", "2,5", "2.5 m", "$5"}) {
    EXPECT_EQ(NumberOf([=] { ExactFromText(digits, 9, 2); }), 8114) << digits;
  }
  EXPECT_EQ(NumberOf([] { ExactFromText("99.95", 3, 1); }), 8115) << "rounding adds a digit";
  EXPECT_EQ(NumberOf([] { ExactFromText("100", 3, 1); }), 8115);
}

TEST(NumberTextTest, Amounts) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {"12.5", 125000},
      {"", 0},
      {"-", 0},
      {".", 0},
      {"$", 0},
      {",", 0},
      {"$1,250.55", 12505500},
      {"-€ 5", -50000},
      {"€-5", -50000},
      {"1,5", 150000},
      {"1.00005", 10001},
      {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
  };
  for (const auto& [text, units] : cases) EXPECT_EQ(MoneyFromText(text), units) << text;
  for (const char* text : {"x", "1.2.3", "1e5", "5$", "--5", "-$-5", "$$5", "1.5,0"}) {
    EXPECT_EQ(NumberOf([=] { MoneyFromText(text); }), 235) << text;
  }
  EXPECT_EQ(NumberOf([] { MoneyFromText("922337203685477.5808"); }), 8115);
}

TEST(NumberTextTest, Floats) {
  EXPECT_EQ(FloatFromText(" 1e-1 "), 0.1);
  EXPECT_EQ(FloatFromText("+1.5E+2"), 150);
  EXPECT_EQ(FloatFromText("1d2"), 100);
  EXPECT_EQ(FloatFromText(".5"), 0.5);
  EXPECT_EQ(FloatFromText("1e-400"), 0);
  EXPECT_EQ(FloatFromText("0." + std::string(400, '0') + "1"), 0);
  for (const char* text : {"x", "1e", "e5", "1e5.5", "nan", "inf", "0x10", "1 2", "-", "."}) {
    EXPECT_EQ(NumberOf([=] { FloatFromText(text); }), 8114) << text;
  }
  EXPECT_EQ(NumberOf([] { FloatFromText("0.001e400"); }), 8115);
  EXPECT_EQ(NumberOf([] { FloatFromText("1e400"); }), 8115);
  EXPECT_EQ(NumberOf([] { FloatFromText(std::string(400, '9')); }), 8115);
}

TEST(NumberTextTest, WhatIsNumeric) {
  for (const char* text :
       {"-", "+", ".", "$", "1,5", "1.5", "1e5", " 5 ", "-5", "1d5", ",", "€", "-$5", "\t2"}) {
    EXPECT_TRUE(IsNumericText(text)) << text;
  }
  for (const char* text :
       {"", " ", "5 5", "12a", "1.2.3", "--5", "abc", "0x1F", "1e", "e", "1\t", "1e400", "5-"}) {
    EXPECT_FALSE(IsNumericText(text)) << text;
  }
}

std::string Shown(const StoredValue& value) {
  struct Show {
    std::string operator()(Null) const { return "NULL"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return "float " + ToDisplayText(number); }
    std::string operator()(const std::string& text) const { return "'" + text + "'"; }
    std::string operator()(const WideExact& bytes) const {
      return "wide " + Decimal(DecodeWide(bytes.data()), 0).ToString();
    }
  };
  return std::visit(Show{}, value);
}

struct LiteralCase {
  TokenKind kind;
  const char* text;
  Type target;
  const char* expected;
};

TEST(LiteralTest, TakesTheTypeItMeets) {
  constexpr auto kInteger = TokenKind::kInteger, kDecimal = TokenKind::kDecimal, kFloat = TokenKind::kFloat,
                 kText = TokenKind::kText;
  const Type tiny = {TypeKind::kTinyInt, 3, 0, 0};
  const LiteralCase cases[] = {
      {kInteger, "017", Type::Int(), "17"},
      {kInteger, "2147483648", Type::Int(), "error 8115"},
      {kInteger, "256", tiny, "error 220"},
      {kInteger, "3", Type::Bit(), "1"},
      {kInteger, "9999999999999999999", Type::BigInt(), "error 8115"},
      {kDecimal, "3.99", Type::Int(), "3"},
      {kDecimal, "256.5", tiny, "error 8115"},
      {kFloat, "5.99e0", Type::Int(), "5"},
      {kFloat, "1e10", Type::Int(), "error 232"},
      {kText, "' 7'", Type::Int(), "error 245"},
      {kText, " 7", Type::Int(), "7"},
      {kText, "", Type::Int(), "0"},
      {kText, "99999999999", Type::Int(), "error 248"},
      {kInteger, "2", Type::Decimal(9, 3), "2000"},
      {kDecimal, "2.3455", Type::Decimal(9, 3), "2346"},
      {kDecimal, ".5", Type::Decimal(9, 0), "1"},
      {kDecimal, "1234567.5", Type::Decimal(9, 3), "error 8115"},
      {kFloat, "25e-1", Type::Decimal(9, 0), "3"},
      {kText, "2.5", Type::Decimal(9, 2), "250"},
      {kText, "", Type::Decimal(9, 2), "error 8114"},
      {kInteger, "99999999999999999999", Type::Decimal(20, 0), "wide 99999999999999999999"},
      {kDecimal, "1.23456", Type::Money(), "12346"},
      {kFloat, "1e30", Type::Money(), "error 8115"},
      {kText, "$1,5", Type::Money(), "150000"},
      {kText, "x", Type::Money(), "error 235"},
      {kInteger, "7", Type::Float(), "float 7"},
      {kDecimal, "0.1", Type::Float(), "float 0.1"},
      {kText, "-325e-2", Type::Float(), "float -3.25"},
      {kText, "x", Type::Float(), "error 8114"},
      {kText, "29.02.2024", Type::DateTime(), "'2024-02-29'"},
      {kText, "02/29/2024", Type::DateTime(), "error 242"},
      {kText, "morgen", Type::DateTime(), "error 241"},
      {kDecimal, "1.5", Type::DateTime(), "'1900-01-02 12:00:00'"},
      {kText, "zu lang", Type::Char(3), "'zu lang'"},
      {kText, "kurz", Type::Char(9), "'kurz'"},
      {kInteger, "007", Type::VarChar(9), "'7'"},
      {kDecimal, "4.50", Type::VarChar(9), "'4.50'"},
      {kDecimal, ".50", Type::VarChar(9), "'0.50'"},
      {kFloat, "1e7", Type::VarChar(9), "'1e+007'"},
  };
  for (const auto& [kind, text, target, expected] : cases) {
    const LiteralToken literal{kind, text, {}};
    std::string shown;
    const int error = NumberOf([&] { shown = Shown(LiteralToStored(literal, target, DateFormat::kDmy)); });
    EXPECT_EQ(error == 0 ? shown : "error " + std::to_string(error), expected) << text << ToSql(target);
  }
}

// What is bound comes back as the type says.
class StoredTest : public ::testing::Test {
 protected:
  std::string Back(const StoredValue& value, const Type& type) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database_.Raw(), "SELECT ?1", -1, &statement, nullptr);
    EXPECT_EQ(BindStored(statement, 1, value), SQLITE_OK);
    sqlite3_step(statement);
    Value back;
    const int error = NumberOf([&] { back = FromStored(statement, 0, type); });
    sqlite3_finalize(statement);
    return error == 0 ? std::to_string(back.index()) + " " + ToDisplayText(back)
                      : "error " + std::to_string(error);
  }

  FunctionDatabase database_;
};

TEST_F(StoredTest, CellsBecomeValues) {
  EXPECT_EQ(Back(Null{}, Type::Int()), "0 NULL");
  EXPECT_EQ(Back(std::int64_t{1}, Type::Bit()), "1 1");
  EXPECT_EQ(Back(std::int64_t{-5}, Type::Int()), "2 -5");
  EXPECT_EQ(Back(2.5, Type::Float()), "3 2.5");
  EXPECT_EQ(Back(std::int64_t{7}, Type::Float()), "3 7");
  EXPECT_EQ(Back(std::int64_t{12350}, Type::Decimal(9, 3)), "4 12.35");
  EXPECT_EQ(Back(std::int64_t{12350}, Type::Money()), "4 1.235");
  EXPECT_EQ(Back(EncodeWide(PowerOfTen(25)), Type::Decimal(38, 5)), "4 100000000000000000000");
  EXPECT_EQ(Back(EncodeWide(-PowerOfTen(25)), Type::Decimal(38, 5)), "4 -100000000000000000000");
  EXPECT_EQ(Back(std::string("Öl  "), Type::Char(4)), "5 Öl  ");
  EXPECT_EQ(Back(std::string(), Type::VarChar(4)), "5 ");
  EXPECT_EQ(Back(std::string("2024-02-29 13:45:00"), Type::DateTime()), "6 2024-02-29 13:45:00");
}

TEST_F(StoredTest, OverflowsShowWhereTheValueIsRead) {
  for (const Type& type : {Type::Int(), Type::BigInt(), Type::Decimal(38, 2), Type::Money()}) {
    EXPECT_EQ(Back(9.3e18, type), "error 8115") << ToSql(type);
  }
  EXPECT_EQ(Back(std::string("gestern"), Type::DateTime()), "5 ⚠ gestern");
}

TEST(StoredTypeTest, TypesAsAdoNumbersThem) {
  EXPECT_EQ(FieldTypeOf(Type::Bit()), FieldType::kBoolean);
  EXPECT_EQ(FieldTypeOf({TypeKind::kTinyInt, 3, 0, 0}), FieldType::kUnsignedTinyInt);
  EXPECT_EQ(FieldTypeOf(Type::Money()), FieldType::kCurrency);
  EXPECT_EQ(FieldTypeOf(Type::Decimal(9, 2)), FieldType::kNumeric);
  EXPECT_EQ(FieldTypeOf(Type::DateTime()), FieldType::kDbTimeStamp);
  EXPECT_EQ(FieldTypeOf(Type::VarChar(9)), FieldType::kVarWChar);
  EXPECT_EQ(DefinedSizeOf(Type::VarChar(9)), 9);
  EXPECT_EQ(DefinedSizeOf(Type::Decimal(9, 2)), 0);
}

}  // namespace
}  // namespace tarvoni::sqlite

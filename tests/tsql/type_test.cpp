#include "platform/tsql/public/type.h"

#include <gtest/gtest.h>

#include "platform/tsql/public/catalogue.h"

namespace tarvoni::tsql {
namespace {

struct Declared {
  std::string_view written;
  Type type;
  std::string_view canonical;
};

Type Ansi(Type text) {
  text.ansi = true;
  return text;
}

TEST(Type, ReadsWhatIsDeclaredAndWritesItInOneSpelling) {
  const Declared kTable[] = {
      {"int", Type::Int(), "INT"},
      {"INTEGER", Type::Int(), "INT"},
      {"bigint", Type::BigInt(), "BIGINT"},
      {"SmallInt", {TypeKind::kSmallInt, 5, 0, 0}, "SMALLINT"},
      {"TINYINT", {TypeKind::kTinyInt, 3, 0, 0}, "TINYINT"},
      {"BIT", Type::Bit(), "BIT"},
      {"DECIMAL", Type::Decimal(18, 0), "DECIMAL(18,0)"},
      {"NUMERIC(9)", Type::Decimal(9, 0), "DECIMAL(9,0)"},
      {" dec ( 38 , 38 ) ", Type::Decimal(38, 38), "DECIMAL(38,38)"},
      {"SMALLMONEY", Type::Money(), "MONEY"},
      {"REAL", Type::Real(), "REAL"},
      {"FLOAT(24)", Type::Real(), "REAL"},
      {"FLOAT(25)", Type::Float(), "FLOAT"},
      {"DOUBLE PRECISION", Type::Float(), "FLOAT"},
      {"SMALLDATETIME", Type::SmallDateTime(), "SMALLDATETIME"},
      {"DATE", Type::Date(), "DATE"},
      {"DATETIME2(7)", Type::DateTime(), "DATETIME"},
      {"NCHAR", Type::Char(1), "NCHAR(1)"},
      {"CHAR(8000)", Ansi(Type::Char(8000)), "CHAR(8000)"},
      {"VARCHAR", Ansi(Type::VarChar(1)), "VARCHAR(1)"},
      {"nvarchar(20)", Type::VarChar(20), "NVARCHAR(20)"},
      {"NVARCHAR(max)", Type::VarChar(Type::kMaxLength), "NVARCHAR(MAX)"},
      {"TEXT", Ansi(Type::VarChar(Type::kMaxLength)), "VARCHAR(MAX)"},
      {"NTEXT", Type::VarChar(Type::kMaxLength), "NVARCHAR(MAX)"},
  };
  for (const auto& [written, type, canonical] : kTable) {
    SCOPED_TRACE(written);
    EXPECT_EQ(ParseType(written), type);
    EXPECT_EQ(ToSql(type), canonical);
    EXPECT_EQ(ParseType(canonical), type);
  }
}

TEST(Type, RefusesWhatNoColumnCanHave) {
  for (const std::string_view written : {"",
                                         "()",
                                         "INTEGERS",
                                         "INT(4)",
                                         "MONEY(9,2)",
                                         "TEXT(10)",
                                         "DECIMAL(0)",
                                         "DECIMAL(39)",
                                         "DECIMAL(5,6)",
                                         "DECIMAL(9,2",
                                         "DECIMAL(9,2,1)",
                                         "DECIMAL(x)",
                                         "DECIMAL(-1)",
                                         "DECIMAL(MAX)",
                                         "FLOAT(54)",
                                         "CHAR(0)",
                                         "CHAR(8001)",
                                         "CHAR(MAX)",
                                         "NVARCHAR(8001)",
                                         "NVARCHAR(2,1)",
                                         "NVARCHAR()",
                                         "DOUBLE",
                                         "XML"}) {
    EXPECT_EQ(ParseType(written), std::nullopt) << written;
  }
}

TEST(Names, CompareWithoutRegardToCase) {
  EXPECT_TRUE(SameName("Kosten_2", "kOSTEN_2"));
  EXPECT_TRUE(SameName("Größe", "GRÖßE"));
  EXPECT_TRUE(SameName("ÄÖÜÉ", "äöüé"));
  EXPECT_FALSE(SameName("MASSE", "MASSEN"));
  EXPECT_FALSE(SameName("GROSSE", "GROßE"));
  EXPECT_FALSE(SameName("a×", "a÷"));
  EXPECT_FALSE(SameName("[", "{"));
  EXPECT_FALSE(SameName("Ä", "Ô"));
  EXPECT_FALSE(SameName("ĥ", "ą"));
}

}  // namespace
}  // namespace tarvoni::tsql

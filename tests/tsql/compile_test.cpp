#include "platform/tsql/public/compile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/tsql/public/parser.h"

namespace tarvoni::tsql {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class SmallCatalogue : public Catalogue {
 public:
  std::shared_ptr<const TableDefinition> FindTable(std::string_view name) const override {
    for (const auto& table : tables_)
      if (SameName(table->name, name)) return table;
    return nullptr;
  }

 private:
  static ColumnDefinition Column(const char* name, const char* type) { return {name, *ParseType(type)}; }
  static std::shared_ptr<const TableDefinition> Posten() {
    TableDefinition table{
        "POSTEN",
        {Column("ID", "INT"), Column("NAME", "NVARCHAR(20)"), Column("STD", "DECIMAL(9,4)"),
         Column("SATZ", "DECIMAL(9,4)"), Column("BETRAG", "MONEY"), Column("TAG", "DATETIME"),
         Column("JAHR", "SMALLINT"), Column("GROSS", "DECIMAL(18,4)")},
        {{0}}};
    table.columns[0].nullable = false;
    table.columns[0].identity = true;
    return std::make_shared<const TableDefinition>(std::move(table));
  }
  static std::shared_ptr<const TableDefinition> Tarif() {
    return std::make_shared<const TableDefinition>(
        TableDefinition{"TARIF", {Column("GRUPPE", "NVARCHAR(6)"), Column("LOHN", "FLOAT")}, {}});
  }

  std::vector<std::shared_ptr<const TableDefinition>> tables_{Posten(), Tarif()};
};

class CompileTest : public ::testing::Test {
 protected:
  Plan CompileText(std::string_view text, const CompileOptions& options = {}) {
    lexed_ = Lex(text);
    return Compile(lexed_, std::make_shared<const Batch>(Parse(lexed_)), catalogue_, options);
  }

  std::string SqlOf(std::string_view text) {
    const Plan plan = CompileText(text);
    const auto& action = plan.steps.back().action;
    if (const auto* query = std::get_if<QueryStep>(&action)) return query->sql.text;
    return std::get<WriteStep>(action).sql.text;
  }

  int ErrorOf(std::string_view text) {
    try {
      CompileText(text);
    } catch (const Error& error) {
      return error.Number();
    }
    return 0;
  }

  Type TypeOf(const std::string& expression) {
    const Plan plan = CompileText("SELECT " + expression + " AS X FROM POSTEN");
    return std::get<QueryStep>(plan.steps.back().action).columns.front().type;
  }

  SmallCatalogue catalogue_;
  LexedBatch lexed_;
};

TEST_F(CompileTest, ComparisonsStayServedByAnIndex) {
  EXPECT_EQ(SqlOf("SELECT ID FROM POSTEN WHERE NAME = 'x'"),
            "SELECT t1.\"ID\" FROM main.\"POSTEN\" AS t1 WHERE (t1.\"NAME\"=?)");
  EXPECT_THAT(
      SqlOf(
          "SELECT POSTEN.ID FROM POSTEN LEFT JOIN TARIF ON UPPER(TARIF.GRUPPE) = UPPER(RTRIM(POSTEN.NAME))"),
      HasSubstr("ON (t2.\"GRUPPE\"=t1.\"NAME\")"));
  EXPECT_THAT(SqlOf("SELECT ID FROM POSTEN WHERE TAG <= '20240630'"), HasSubstr("(t1.\"TAG\"<=?)"));
  EXPECT_THAT(SqlOf("SELECT ID FROM POSTEN WHERE STD = 1.5"), HasSubstr("(t1.\"STD\"=?)"));
  EXPECT_THAT(SqlOf("SELECT ID FROM POSTEN WHERE BETRAG > 100"), HasSubstr("(t1.\"BETRAG\">?)"));
}

TEST_F(CompileTest, LiteralsTakeTheTypeTheyMeet) {
  const Plan plan =
      CompileText("SELECT ID FROM POSTEN WHERE TAG = '20240630' AND ID = '7' AND STD = 1.5 AND NAME = 'a'");
  std::vector<TypeKind> kinds;
  for (const Parameter& parameter : std::get<QueryStep>(plan.steps.front().action).sql.parameters)
    kinds.push_back(parameter.type.kind);
  EXPECT_THAT(kinds,
              ElementsAre(TypeKind::kDateTime, TypeKind::kInt, TypeKind::kDecimal, TypeKind::kVarChar));
  EXPECT_TRUE(plan.pinned.empty());
}

TEST_F(CompileTest, TextThatIsNoColumnBringsTheCollation) {
  EXPECT_THAT(SqlOf("SELECT ID FROM POSTEN WHERE NAME+'x' = 'ax'"), HasSubstr("COLLATE TSQL=?"));
  EXPECT_THAT(SqlOf("SELECT X.N FROM (SELECT NAME AS N FROM POSTEN) X WHERE X.N IN ('a')"),
              HasSubstr("c1 COLLATE TSQL IN (?)"));
  EXPECT_THAT(SqlOf("SELECT DISTINCT UPPER(NAME) AS N FROM POSTEN ORDER BY N"),
              HasSubstr("ORDER BY 1 COLLATE TSQL"));
}

TEST_F(CompileTest, ExactArithmeticIsNativeWhereItFits) {
  EXPECT_THAT(SqlOf("SELECT STD*SATZ AS X FROM POSTEN"), HasSubstr("(t1.\"STD\"*t1.\"SATZ\")"));
  EXPECT_THAT(SqlOf("SELECT GROSS*GROSS AS X FROM POSTEN"),
              HasSubstr("ts_exact_mul(t1.\"GROSS\",t1.\"GROSS\",0)"));
  EXPECT_THAT(SqlOf("SELECT STD+1 AS X FROM POSTEN"), HasSubstr("(t1.\"STD\"+10000)"));
  EXPECT_THAT(SqlOf("SELECT BETRAG/100 AS X FROM POSTEN"), HasSubstr("(t1.\"BETRAG\"/100)"));
  EXPECT_THAT(SqlOf("SELECT BETRAG/ID AS X FROM POSTEN"),
              HasSubstr("ts_exact_div(t1.\"BETRAG\",t1.\"ID\",0)"));
  EXPECT_THAT(SqlOf("SELECT JAHR*100+7 AS X FROM POSTEN"), HasSubstr("((t1.\"JAHR\"*100)+7)"));
  EXPECT_THAT(SqlOf("SELECT ID*100 AS X FROM POSTEN"), HasSubstr("ts_int_range((t1.\"ID\"*100),4)"));
}

TEST_F(CompileTest, TypesOfArithmetic) {
  EXPECT_EQ(TypeOf("STD*SATZ"), Type::Decimal(19, 8));
  EXPECT_EQ(TypeOf("STD+SATZ"), Type::Decimal(10, 4));
  EXPECT_EQ(TypeOf("1.0/3"), Type::Decimal(7, 6));
  EXPECT_EQ(TypeOf("BETRAG*2"), Type::Money());
  EXPECT_EQ(TypeOf("BETRAG*STD").scale, 8);
  EXPECT_EQ(TypeOf("SUM(STD)"), Type::Decimal(38, 4));
  EXPECT_EQ(TypeOf("ISNULL(ID,2.9)"), Type::Int());
  EXPECT_EQ(TypeOf("CASE WHEN ID = 1 THEN ID ELSE 2.5 END"), Type::Decimal(11, 1));
}

TEST_F(CompileTest, ValuesThatShapeThePlanArePinned) {
  const Plan plan =
      CompileText("SELECT TOP 3 ROUND(STD,2) AS X,ID*7 AS Y FROM POSTEN WHERE ID = 5 ORDER BY 1");
  std::vector<std::string> pinned;
  for (const PinnedLiteral& literal : plan.pinned) pinned.push_back(literal.text);
  EXPECT_THAT(pinned, ElementsAre("3", "7", "1"));
}

TEST_F(CompileTest, AScalarQueryOfManyRowsIsTested) {
  EXPECT_THAT(SqlOf("SELECT (SELECT NAME FROM POSTEN WHERE ID = TARIF.LOHN) AS X FROM TARIF"),
              ::testing::Not(HasSubstr("ts_raise")));
  EXPECT_THAT(SqlOf("SELECT (SELECT NAME FROM POSTEN B WHERE B.ID = A.ID) AS X FROM POSTEN A"),
              ::testing::Not(HasSubstr("ts_raise")));
  EXPECT_THAT(SqlOf("SELECT (SELECT ID FROM POSTEN B WHERE B.NAME = A.NAME) AS X FROM POSTEN A"),
              HasSubstr("ts_raise(512)"));
}

TEST_F(CompileTest, TemporaryTablesLiveInTheirBatch) {
  const CompileOptions options{"", "17"};
  const Plan plan = CompileText(
      "CREATE TABLE #tmp (ID int) INSERT INTO #tmp (ID) SELECT ID FROM POSTEN SELECT * FROM #tmp", options);
  ASSERT_EQ(plan.steps.size(), 3u);
  EXPECT_EQ(std::get<CreateTableStep>(plan.steps[0].action).stored_name, "temp.\"#tmp$17_1\"");
  EXPECT_THAT(std::get<QueryStep>(plan.steps[2].action).sql.text, HasSubstr("FROM temp.\"#tmp$17_1\" AS"));
  EXPECT_TRUE(plan.reusable);
}

// Its columns must stay where SQLite sees them and takes an index. One that needs nothing of the row is no part.
TEST_F(CompileTest, AQueryThatLiesTooDeepIsAPartAsAWhole) {
  std::string before = "SELECT ", behind;
  for (int i = 0; i < 8; ++i) {
    before += "ROUND(";
    behind += ",2)";
  }
  behind += " FROM POSTEN A";
  const auto sql = [&](const std::string& condition) {
    const std::string query = "(SELECT MAX(B.STD) FROM POSTEN B WHERE " + condition + ")";
    return std::get<QueryStep>(CompileText(before + query + behind).steps.back().action).sql;
  };
  const Sql correlated = sql("B.ID = A.ID AND YEAR(B.TAG)*100+MONTH(B.TAG) <= A.JAHR*100");
  ASSERT_EQ(correlated.parts.size(), 1u);
  EXPECT_THAT(correlated.text, HasSubstr("ts_part(0,t1.\"ID\",t1.\"JAHR\")"));
  EXPECT_THAT(correlated.parts[0].text, HasSubstr("FROM main.\"POSTEN\" AS t2 WHERE ((t2.\"ID\"=?) AND "));
  EXPECT_TRUE(correlated.parts[0].parts.empty());
  EXPECT_THAT(sql("B.ID = 1 AND YEAR(B.TAG)*100 <= 5").text, HasSubstr("FROM main.\"POSTEN\" AS t2"));
}

TEST_F(CompileTest, OfOneRowAtMostThereIsNoList) {
  const char* const equal = "=(SELECT";
  const auto sql = [&](const char* where) {
    return SqlOf(std::string("SELECT ID FROM POSTEN WHERE ") + where);
  };
  EXPECT_THAT(sql("ID = 1 AND NAME IN (SELECT TOP 1 GRUPPE FROM TARIF)"), HasSubstr(equal));
  EXPECT_THAT(sql("NAME NOT IN (SELECT TOP 1 GRUPPE FROM TARIF)"), Not(HasSubstr(equal)));
  EXPECT_THAT(sql("NAME IN (SELECT GRUPPE FROM TARIF)"), Not(HasSubstr(equal)));
}

TEST_F(CompileTest, AMissingTableWaitsUntilItsStatementIsReached) {
  const Plan plan = CompileText("UPDATE POSTEN SET NAME = 'x' UPDATE FEHLT SET A = 1");
  ASSERT_EQ(plan.steps.size(), 2u);
  EXPECT_TRUE(std::holds_alternative<DeferredStep>(plan.steps[1].action));
  EXPECT_FALSE(plan.reusable);
  EXPECT_EQ(ErrorOf("UPDATE POSTEN SET NAME = 'x' UPDATE POSTEN SET FEHLT = 1"), kUnknownColumn);
}

TEST_F(CompileTest, WhatAServerRefuses) {
  EXPECT_EQ(ErrorOf("SELECT ID FROM POSTEN WHERE ID"), kNoCondition);
  EXPECT_EQ(ErrorOf("SELECT (ID = 1) AS X FROM POSTEN"), kSyntax);
  EXPECT_EQ(ErrorOf("SELECT A.ID FROM POSTEN A,POSTEN A"), kExposedNames);
  EXPECT_EQ(ErrorOf("SELECT NAME FROM POSTEN A,POSTEN B"), kAmbiguousColumn);
  EXPECT_EQ(ErrorOf("SELECT NAME,COUNT(*) FROM POSTEN GROUP BY TAG"), kNotGrouped);
  EXPECT_EQ(ErrorOf("SELECT SUM(COUNT(*)) FROM POSTEN"), kAggregateInAggregate);
  EXPECT_EQ(ErrorOf("SELECT NAME-TAG FROM POSTEN"), kUnsupported);
  EXPECT_EQ(ErrorOf("SELECT NAME*N'2' FROM POSTEN"), kOperandType);
  EXPECT_EQ(ErrorOf("SELECT NAME*'2' FROM POSTEN"), kIncompatibleTypes);
}

}  // namespace
}  // namespace tarvoni::tsql

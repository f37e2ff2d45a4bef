#include "src/schema/schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "platform/sqlite/public/sqlite_database.h"
#include "tests/schema/statement_blocks.h"
#include "tests/support/sql.h"

namespace tarvoni {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class SchemaTest : public ::testing::Test {
 protected:
  void SetUp() override { connection_->Execute(SchemaSql()); }

  Recordset Open(const std::string& text) { return connection_->Open(Sql(text)); }

  // The given columns of all rows, a row a text.
  std::vector<std::string> Rows(const std::string& text, const std::vector<std::string>& columns) {
    std::vector<std::string> rows;
    for (Recordset result = Open(text); !result.EndOfFile(); result.MoveNext()) {
      std::string row;
      for (const std::string& column : columns) {
        row += (row.empty() ? "" : " | ") + ToDisplayText(result.Fields()[column].Value());
      }
      rows.push_back(row);
    }
    return rows;
  }

  FieldType TypeOf(const std::string& table, const std::string& column) {
    return Open("SELECT " + column + " FROM " + table).Columns()[0].type;
  }

  // The number of the error that the text ends in, 0 for none.
  int ErrorOf(const std::string& text) {
    try {
      connection_->Open(Sql(text));
    } catch (const DatabaseError& error) {
      return error.Number();
    }
    return 0;
  }

  std::shared_ptr<Connection> connection_ = sqlite::OpenDatabase(":memory:", {.create = true});
};

// The words of a statement behind its comment.
std::vector<std::string> Words(const std::string& statement) {
  std::vector<std::string> words;
  std::istringstream lines(statement);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("--")) continue;
    std::istringstream text(line);
    for (std::string word; text >> word;) words.push_back(word);
  }
  return words;
}

TEST(SchemaText, IsAListOfTablesEachBeforeItsIndexes) {
  std::set<std::string> tables;
  for (const SqlText& made : SchemaStatements()) {
    const std::string statement(made.Text());
    const std::vector<std::string> words = Words(statement);
    ASSERT_GE(words.size(), 6U) << statement;
    ASSERT_EQ(words[0], "CREATE") << statement;
    if (words[1] == "TABLE") {
      EXPECT_TRUE(tables.insert(words[2]).second) << statement;
      EXPECT_THAT(statement, HasSubstr("PRIMARY KEY")) << statement;
      EXPECT_TRUE(statement.starts_with("-- ")) << "what is it for? " << statement;
    } else {
      EXPECT_EQ(words[1], "INDEX") << statement;
      EXPECT_TRUE(tables.contains(words[4])) << statement;
    }
  }
}

// What a server is given has no place for them.
TEST_F(SchemaTest, AFileTakesItsOwnIndexesBesides) {
  for (const SqlText& statement : FileIndexes()) {
    connection_->Execute(statement);
    EXPECT_THAT(std::string(SchemaSql().Text()),
                ::testing::Not(HasSubstr(Words(std::string(statement.Text()))[2])));
  }
}

TEST_F(SchemaTest, MadeStatementByStatementIsTheSame) {
  const auto other = sqlite::OpenDatabase(":memory:", {.create = true});
  for (const SqlText& statement : SchemaStatements()) {
    other->Execute(statement);
    const std::vector<std::string> words = Words(std::string(statement.Text()));
    if (words[1] != "TABLE") continue;
    const std::string all = "SELECT TOP 0 * FROM " + words[2];
    EXPECT_EQ(other->Open(Sql(all)).Columns().size(), Open(all).Columns().size()) << words[2];
  }
}

TEST_F(SchemaTest, TheEmptyCostTypeHasTheKeyZero) {
  connection_->Execute(
      "SET IDENTITY_INSERT KOSTENART ON\nINSERT INTO KOSTENART (ID) VALUES (0)\n"
      "SET IDENTITY_INSERT KOSTENART OFF\nINSERT INTO KOSTENART (NUMBER) VALUES (400)");
  EXPECT_THAT(Rows("SELECT ID,NUMBER FROM KOSTENART ORDER BY ID", {"ID", "NUMBER"}),
              ElementsAre("0 | NULL", "1 | 400"));
}

TEST_F(SchemaTest, TheKeyOfAMachineIsTheCallers) {
  connection_->Execute("INSERT INTO MASCHINENBUCH (NUMMER) VALUES (17)");
  EXPECT_EQ(ErrorOf("INSERT INTO MASCHINENBUCH (NUMMER) VALUES (17)"), 2627);
}

TEST_F(SchemaTest, ColumnsHaveTheTypesThatScreensAskFor) {
  EXPECT_EQ(TypeOf("ARBEITSAUFTRAG", "KOSTEN"), FieldType::kCurrency);
  EXPECT_EQ(TypeOf("ARBEITSAUFTRAG", "ASTUNG"), FieldType::kNumeric);
  EXPECT_EQ(TypeOf("ARBEITSAUFTRAG", "EURO"), FieldType::kBoolean);
  EXPECT_EQ(TypeOf("ARBEITSAUFTRAG", "DATUM_NR"), FieldType::kDbTimeStamp);
  EXPECT_EQ(TypeOf("MASCHINENBUCH", "ANSCHAFF_JAHR"), FieldType::kSmallInt);
  EXPECT_EQ(TypeOf("STUNDENBUCH", "TAG"), FieldType::kUnsignedTinyInt);
  EXPECT_EQ(TypeOf("OPTIONEN", "DOUBLE_VALUE"), FieldType::kDouble);
  EXPECT_EQ(TypeOf("KOSTENART", "NUMBER"), FieldType::kInteger);
  EXPECT_EQ(TypeOf("HH_KAPITEL", "NUMBER"), FieldType::kVarWChar);
  EXPECT_EQ(Open("SELECT FWJ FROM ARBEITSAUFTRAG_KOPF").Columns()[0].size, 4);
  EXPECT_EQ(Open("SELECT N_FREI1 FROM ARBEITSAUFTRAG_PLANN").Columns()[0].size, 20);
}

TEST_F(SchemaTest, PositionsOfPlansHaveEveryColumnThatIsCopiedFromThem) {
  const Recordset positions = Open("SELECT TOP 0 * FROM ARBEITSAUFTRAG");
  const Recordset plans = Open("SELECT TOP 0 * FROM ARBEITSAUFTRAG_PLANN");
  for (int i = 0; i < plans.Fields().Count(); ++i) {
    const Field column = plans.Fields()[i];
    if (column.Name() == "AA_PLANN_ID") continue;
    EXPECT_EQ(positions.Fields()[column.Name()].Type(), column.Type()) << column.Name();
  }
}

// A subquery means the outer table's column by these names: a column of its own would silently take their place.
TEST_F(SchemaTest, NoTableTakesANameThatItsSubqueriesMeanOutside) {
  const std::pair<const char*, const char*> taboos[] = {
      {"HH_KAPITEL", "KAPITEL_ID"},
      {"HH_TITEL", "TITEL_ID"},
      {"ZUHLUNGSART", "ZAHLUNGSART"},
      {"ZUHLUNGSGRUND", "ZAHLUNGSGRUND"},
      {"PERSONAL", "ZAHLUNGSEMF"},
      {"MWST", "ID_MWST"},
      {"KOSTENSTELLE", "KOSTENSTELLE_ID"},
      {"OBJEKT", "OBJEKT_ID"},
      {"LEISTUNGSART", "LEISTUNGSART_ID"},
      {"VERFAHREN", "VERFAHREN_ID"},
      {"KOSTENART", "KOSTENART_ID"},
      {"ARBEITSAUFTRAG_KOPF", "ARBEITSAUFTRAG_KOPF_ID"},
      {"PRODUKT", "ARBEITSAUFTRAG_KOPF_ID"},
      {"WARENEINHEIT", "EINH_ID"},
      {"WARENEINHEIT", "ID"},
      {"LAGER_POS", "EINHEIT_ID"},
      {"ARA_KOPF", "NUMBER"},
      {"ARBEITSAUFTRAG", "NUMBER"},
  };
  for (const auto& [table, column] : taboos) {
    EXPECT_EQ(ErrorOf(std::string("SELECT ") + column + " FROM " + table), 207) << table << "." << column;
  }
}

class StatementTest : public SchemaTest {
 protected:
  void Run(const std::string& file) {
    for (const StatementBlock& block : ReadStatementFile(Folder() / file)) Run(block);
  }

  void Run(const StatementBlock& block) {
    try {
      connection_->Open(Sql(block.text));
    } catch (const DatabaseError& error) {
      ADD_FAILURE_AT(block.file.c_str(), block.line)
          << "\"" << block.title << "\", line " << error.Line() << ", column " << error.Column() << ": error "
          << error.Number() << ": " << error.what();
    }
  }

  static std::filesystem::path Folder() { return STATEMENTS_FOLDER; }

  static std::string Text(const std::string& file, const std::string& title) {
    for (const StatementBlock& block : ReadStatementFile(Folder() / file)) {
      if (block.title == title) return block.text;
    }
    throw std::runtime_error(file + " has no block \"" + title + "\"");
  }
};

TEST_F(StatementTest, EveryStatementRuns) {
  const std::vector<StatementBlock> blocks = ReadStatementFolder(Folder());
  EXPECT_GT(blocks.size(), 500U);
  for (const StatementBlock& block : blocks) Run(block);
}

// A new enterprise begins without rows: no statement may rely on finding one.
TEST_F(StatementTest, EveryStatementRunsOnAnEmptyDatabase) {
  for (const StatementBlock& block : ReadStatementFolder(Folder())) {
    if (block.file != "00_rows.sql") Run(block);
  }
}

TEST_F(StatementTest, HoursAreRoundedBeforeTheRateIsApplied) {
  Run("00_rows.sql");
  EXPECT_THAT(Rows(Text("21_hours.sql", "the hours of a wage order with rate and value"),
                   {"STUNDEN", "SATZ", "WERT", "MODIFY"}),
              ElementsAre("1.005 | 14.85 | 14.9985 | 0"));
  EXPECT_THAT(
      Rows(Text("21_hours.sql", "the hours of a wage order in a closed month"), {"SATZ", "WERT", "MODIFY"}),
      ElementsAre("2.13 | 17.04 | 1"));
}

TEST_F(StatementTest, TheJournalTakesPersonalRatesTariffsAndTheLowerStage) {
  Run("00_rows.sql");
  const std::string lines = Text("40_journal.sql", "the lines of a gross wage journal with rate and amount");
  EXPECT_THAT(
      Rows(lines, {"STUNDENBUCHTAG", "SATZ", "BETRAG"}),
      ElementsAre("15 | 14.85 | 111.375", "16 | 21.46 | 42.92", "17 | 17.17 | 137.36", "18 | 2.13 | 2.6625"));
}

TEST_F(StatementTest, LogsArePricedExactly) {
  Run("00_rows.sql");
  EXPECT_THAT(Rows(Text("31_est_piecework.sql", "the logs of a wage order with tariff and wage"),
                   {"BLNR", "FM", "TAZ", "AZ", "MZ"}),
              ElementsAre("1 | 0.33 | 12.4 | 4.7058 | 1.14576", "2 | 0.448 | 15 | 10.6785 | 3.5595",
                          "3 | NULL | NULL | 0 | 0"));
}

TEST_F(StatementTest, FlagsOfTheWorkTypePickCostAndRevenueTypes) {
  Run("00_rows.sql");
  EXPECT_THAT(
      Rows(Text("61_allocation.sql", "the cost types of a work type with costs only"), {"NUMBER", "NAME"}),
      ElementsAre("400 | Löhne"));
  const std::string all = Text("61_allocation.sql", "the cost types of a work type with costs and revenues");
  EXPECT_THAT(Rows(all, {"NUMBER"}), ElementsAre("400", "800"));
  connection_->Execute("UPDATE LEISTUNGSART SET KOSTEN = 0 WHERE ID = 2");
  EXPECT_THAT(Rows(all, {"NUMBER"}), ElementsAre("800"));
  connection_->Execute("UPDATE LEISTUNGSART SET ERLOSE = NULL WHERE ID = 2");
  EXPECT_THAT(Rows(all, {"NUMBER"}), ElementsAre());
}

TEST_F(StatementTest, WithdrawalsLowerTheStock) {
  Run("00_rows.sql");
  const std::string goods =
      Text("71_stores_positions.sql", "the goods of a stores document with what is left of them");
  EXPECT_THAT(Rows(goods, {"EINHEIT", "MENGE", "REST"}), ElementsAre("Stk | 200 | 200"));
  connection_->Execute(Sql(Text("71_stores_positions.sql", "a withdrawal")));
  EXPECT_THAT(Rows(goods, {"MENGE", "REST"}), ElementsAre("200 | 160"));
}

}  // namespace
}  // namespace tarvoni

#include "platform/sqlite/executor.h"

#include "src/context/values/clock.h"
#include "tests/database/database_testing.h"

// Plans made by hand: what the executor makes of them whatever the front end says.
namespace tarvoni::sqlite {
namespace {

using tsql::Type;

class ExecutorTest : public ::testing::Test {
 protected:
  ExecutorTest() {
    File().Execute(
        "CREATE TABLE ORT (ID INTEGER PRIMARY KEY, N INT NOT NULL CHECK (N < 100), T NVARCHAR(9) UNIQUE);"
        "CREATE TABLE LAGE (ID INTEGER PRIMARY KEY, ORT INT REFERENCES ORT (ID));"
        "INSERT INTO ORT VALUES (1, 1, 'eins')");
  }
  ~ExecutorTest() override { Clock::Reset(); }

  Database& Shared() { return SharedOf(connection_); }
  Handle& File() { return Shared().File(); }
  std::int64_t Ask(const std::string& sql) { return File().QueryInteger(sql.c_str()); }

  // Runs steps that stand one by one in the lines of `text`.
  BatchResult Run(std::vector<tsql::Step> steps, std::string text = "") {
    if (text.empty()) {
      for (std::size_t i = 0; i < steps.size(); ++i) text += "zeile\n";
    }
    for (std::size_t i = 0; i < steps.size(); ++i) steps[i].at = {static_cast<int>(i) + 1, 1};
    tsql::Plan plan;
    plan.steps = std::move(steps);
    return Run(Prepare(std::move(plan), text), text);
  }
  std::shared_ptr<PreparedPlan> Prepare(tsql::Plan plan, const std::string& text) {
    return std::make_shared<PreparedPlan>(File(), Shared().Identities(), std::move(plan), tsql::Lex(text));
  }
  BatchResult Run(const std::shared_ptr<PreparedPlan>& plan, const std::string& text) {
    auto result = Executor(Shared(), session_, text, Wanted::kFirstRows).RunPlan(*plan);
    Shared().Commit();
    return result;
  }

  std::shared_ptr<Connection> connection_ = OpenDatabase(":memory:");
  Session session_;
};

tsql::Step Write(std::string sql, std::string table = "ORT", std::vector<tsql::Parameter> parameters = {}) {
  return {{}, tsql::WriteStep{{std::move(sql), std::move(parameters)}, std::move(table)}};
}
tsql::Step Query(std::string sql, Type type = Type::Int(), std::vector<tsql::Parameter> parameters = {}) {
  return {{}, tsql::QueryStep{{std::move(sql), std::move(parameters)}, {{"A", type}}}};
}
tsql::Step If(std::string sql, int otherwise) {
  return {{}, tsql::ConditionStep{{std::move(sql), {}}, otherwise}};
}
tsql::Step Jump(int target) {
  return {{}, tsql::JumpStep{target}};
}
tsql::Step Raise(int number) {
  return {{}, tsql::RaiseStep{number, "text"}};
}

tsql::CreateTableStep CreateStep(std::string name, std::vector<std::string> sql, bool identity = false) {
  tsql::CreateTableStep step;
  step.table.name = name;
  step.table.columns = {{"ID", Type::Int(), false, identity, 10, 5, false}};
  step.stored_name = step.table.name.starts_with('#') ? "temp.t7_" + name.substr(1) : name;
  step.temporary = name.starts_with('#');
  step.sql = std::move(sql);
  return step;
}
tsql::Step CreateTemporary() {
  return {{}, CreateStep("#auswahl", {"CREATE TABLE temp.\"t7_auswahl\" (\"ID\" INT)"})};
}

std::string Text(const BatchResult& result) {
  std::string text;
  if (!result.rows) return "-";
  for (const Value& cell : result.rows->cells) text += (text.empty() ? "" : ",") + ToDisplayText(cell);
  return text;
}

TEST_F(ExecutorTest, GoesOnAfterABrokenRuleAndStopsAfterAFailedConversion) {
  const struct {
    const char* sql;
    int number;
    bool goes_on;
  } failures[] = {
      {"INSERT INTO ORT VALUES (1, 1, 'x')", 2627, true},
      {"INSERT INTO ORT VALUES (9, 1, 'eins')", 2627, true},
      {"INSERT INTO ORT VALUES (9, NULL, 'x')", 515, true},
      {"INSERT INTO ORT VALUES (9, 100, 'x')", 547, true},
      {"INSERT INTO LAGE VALUES (9, 77)", 547, true},
      {"UPDATE ORT SET N = ts_int_div(1, 0)", 8134, true},
      {"UPDATE ORT SET N = (SELECT SUM(V) FROM (SELECT 9223372036854775807 AS V UNION ALL SELECT 1))", 8115,
       true},
      {"UPDATE ORT SET N = ts_raise(512)", 512, true},
      {"UPDATE ORT SET T = ts_text_store('zehn Zeichen', 9, 0)", 8152, true},
      {"UPDATE ORT SET N = ts_int_from_text('x', 4)", 245, false},
      {"UPDATE ORT SET N = ts_date_from_text('x')", 241, false},
      {"UPDATE FEHLT SET N = 1", 208, false},
  };
  for (const auto& failure : failures) {
    SCOPED_TRACE(failure.sql);
    const auto result =
        Run({Write("UPDATE ORT SET N = 5"), Write(failure.sql), Write("UPDATE ORT SET N = 6"), Raise(544)});
    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->Number(), failure.number);
    EXPECT_EQ(result.error->Line(), 2);
    EXPECT_EQ(Ask("SELECT N FROM ORT"), failure.goes_on ? 6 : 5);
    EXPECT_EQ(Ask("SELECT COUNT(*) FROM ORT"), 1);
  }
}

TEST_F(ExecutorTest, AFailedStatementChangesNoRow) {
  File().Execute("INSERT INTO ORT VALUES (2, 2, 'zwei'), (3, 3, 'drei'); INSERT INTO LAGE VALUES (1, 3)");
  const char* failures[] = {
      "INSERT INTO ORT SELECT ID + 5, N, T || 'x' FROM ORT UNION ALL SELECT 2, 9, 'y'",
      "INSERT INTO ORT SELECT ID + 5, CASE ID WHEN 3 THEN NULL ELSE N END, T || 'x' FROM ORT",
      "UPDATE ORT SET N = N * 40",
      "DELETE FROM ORT",
      "UPDATE ORT SET T = 'gleich'",
      "UPDATE ORT SET N = N + CASE ID WHEN 3 THEN ts_int_from_text('x', 4) ELSE 1 END",
      "UPDATE ORT SET N = N + CASE ID WHEN 3 THEN ts_int_div(1, 0) ELSE 1 END",
      "INSERT INTO ORT SELECT ID + 5, ts_int_from_text(CASE ID WHEN 3 THEN 'x' ELSE '1' END, 4), NULL FROM "
      "ORT",
  };
  for (const char* failure : failures) {
    SCOPED_TRACE(failure);
    EXPECT_TRUE(Run({Write("UPDATE ORT SET N = 7 WHERE ID = 2"), Write(failure)}).error);
    EXPECT_EQ(
        Ask("SELECT COUNT(*) * 10000 + SUM(ID) * 100 + SUM(N) FROM ORT WHERE T IN ('eins','zwei','drei')"),
        30611);
    EXPECT_EQ(Ask("SELECT COUNT(*) FROM ORT"), 3);
  }
}

TEST_F(ExecutorTest, RunsTheBranchOfACondition) {
  const auto run = [&](const std::string& condition) {
    return Text(Run({If(condition, 3), Query("SELECT 1"), Jump(4), Query("SELECT 2"), Query("SELECT 3")}));
  };
  EXPECT_EQ(run("SELECT 1"), "1");
  EXPECT_EQ(run("SELECT 0"), "2");
  EXPECT_EQ(run("SELECT NULL"), "2");
  EXPECT_EQ(run("SELECT 1 WHERE 0"), "2");
  EXPECT_EQ(run("SELECT ts_int_div(1, 0)"), "2");
}

TEST_F(ExecutorTest, FillsParametersFromLiteralsAndTheClock) {
  Clock::Set({2024, 2, 29, 45'296'789});
  const tsql::Parameter now{tsql::Parameter::Source::kNow, -1, Type::DateTime()};
  const std::string text = "x 7 'sieben'";
  tsql::Plan plan;
  plan.steps = {Write("UPDATE ORT SET N = ?1, T = ?2", "ORT",
                      {{tsql::Parameter::Source::kLiteral, 0, Type::Int()},
                       {tsql::Parameter::Source::kLiteral, 1, Type::VarChar(9)}}),
                Query("SELECT ?1 || '|' || ?2 || '|' || N || T FROM ORT", Type::VarChar(99), {now, now})};
  const auto prepared = Prepare(std::move(plan), text);
  EXPECT_EQ(Text(Run(prepared, text)), "2024-02-29 12:34:56.787|2024-02-29 12:34:56.787|7sieben");
  EXPECT_EQ(Text(Run(prepared, "x 8 'acht'")), "2024-02-29 12:34:56.787|2024-02-29 12:34:56.787|8acht");
}

TEST_F(ExecutorTest, TemporaryTablesEndWithTheirBatchAndAreMadeOnce) {
  tsql::Plan plan;
  plan.steps = {CreateTemporary(), Write("INSERT INTO temp.t7_auswahl VALUES (4)", "#auswahl"),
                Query("SELECT COUNT(*) FROM temp.t7_auswahl")};
  auto prepared = Prepare(std::move(plan), "a");
  const auto version = [&] { return Ask("PRAGMA temp.schema_version"); };
  EXPECT_EQ(Text(Run(prepared, "a")), "1");
  const auto made = version();
  EXPECT_EQ(Text(Run(prepared, "a")), "1");
  EXPECT_EQ(version(), made);
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM temp.t7_auswahl"), 0);
  prepared.reset();
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM temp.sqlite_schema"), 0);
}

TEST_F(ExecutorTest, CreatesATableWithItsIndexesOrNotAtAll) {
  const auto broken =
      CreateStep("NEU", {"CREATE TABLE NEU (ID INT)", "CREATE INDEX NEU_X ON NEU (FEHLT)"}, true);
  EXPECT_TRUE(Run({{{}, broken}}).error);
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM sqlite_schema WHERE name LIKE 'NEU%'"), 0);

  const auto sound = CreateStep("NEU", {"CREATE TABLE NEU (ID INT)", "CREATE INDEX NEU_X ON NEU (ID)"}, true);
  EXPECT_FALSE(Run({{{}, sound}}).error);
  EXPECT_EQ(Run({{{}, sound}}).error->Number(), 2714);
  EXPECT_EQ(Shared().Identities().Current("neu"), 10);
  EXPECT_FALSE(Run({{{}, tsql::DropTableStep{"neu", "neu", false}}}).error);
  EXPECT_EQ(Shared().Identities().Current("neu"), std::nullopt);
  EXPECT_EQ(Run({{{}, tsql::DropTableStep{"NEU", "NEU", false}}}).error->Number(), 3701);
  EXPECT_EQ(Run({{{}, tsql::DropTableStep{"ORT", "ORT", false}}}).error->Number(), 3726);
  File().Execute("INSERT INTO ORT VALUES (2, 1, 'zwei')");
  EXPECT_EQ(Run({{{}, tsql::CreateIndexStep{"CREATE UNIQUE INDEX ORT_N ON ORT (N)"}}}).error->Number(), 1505);
}

TEST_F(ExecutorTest, SwitchesIdentityInsertOfOneTable) {
  for (const std::string name : {"EINS", "ZWEI"}) {
    Run({{{}, CreateStep(name, {"CREATE TABLE " + name + " (ID INTEGER PRIMARY KEY)"}, true)}});
  }
  const auto set = [](std::string table, bool on) {
    return tsql::Step{{}, tsql::SetIdentityInsert{table, {}, on}};
  };
  EXPECT_EQ(Run({set("ORT", true)}).error->Number(), 8106);
  EXPECT_FALSE(Run({set("eins", true), set("EINS", true), set("ZWEI", false)}).error);
  EXPECT_EQ(session_.identity_insert, "EINS");
  EXPECT_EQ(Run({set("ZWEI", true)}).error->Number(), 8107);
  EXPECT_FALSE(Run({set("eins", false), set("ZWEI", true)}).error);
  EXPECT_EQ(session_.identity_insert, "ZWEI");
}

}  // namespace
}  // namespace tarvoni::sqlite

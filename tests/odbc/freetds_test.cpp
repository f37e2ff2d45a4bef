#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/odbc/public/odbc_database.h"
#include "platform/odbc/session.h"
#include "tests/odbc/tds_server.h"
#include "tests/support/database_testing.h"
#include "tests/support/sql.h"

// The backend on FreeTDS against a server that speaks the protocol and knows no SQL: each test lays down its answers.
namespace tarvoni::odbc {
namespace {

using dbtest::ErrorIn;
using dbtest::ErrorNumber;
using dbtest::ExpectField;
using dbtest::Rows;
using std::chrono::seconds;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using Type = TdsAnswer::Type;

class FreeTdsTest : public ::testing::Test {
 protected:
  std::string Text(const TdsServer& server) const {
    return "odbc:Driver=" FREETDS_ODBC_DRIVER ";Server=127.0.0.1;Port=" + std::to_string(server.Port()) +
           ";UID=sa;PWD=geheim;ApplicationLock=no";
  }
  // Connects; from here on every batch gets `answer`.
  std::shared_ptr<Connection> Connect(const TdsAnswer& answer, const OdbcOptions& options = {}) {
    auto connection = OpenOdbc(Text(server_), options);
    answer_ = answer.Bytes();
    return connection;
  }

  std::string answer_ = TdsAnswer().Done().Bytes();
  TdsServer server_{[this](const std::string&) { return answer_; }};
};

TEST_F(FreeTdsTest, EveryTypeComesAsWhatItIs) {
  TdsAnswer answer;
  answer.Columns({{"B", Type::kBit},
                  {"TI", Type::kTinyInt},
                  {"SI", Type::kSmallInt},
                  {"I", Type::kInt},
                  {"BI", Type::kBigInt},
                  {"R", Type::kReal},
                  {"F", Type::kFloat},
                  {"M", Type::kMoney},
                  {"D", Type::kDecimal, 18, 4},
                  {"DT", Type::kDateTime},
                  {"V", Type::kVarChar, 30},
                  {"N", Type::kNVarChar, 20},
                  {"GRÖßE", Type::kNVarCharMax}});
  answer.Row().Whole(1).Whole(255).Whole(-3).Whole(-70000).Whole(std::int64_t{1} << 40).Float(0.5).Float(0.1);
  answer.Whole(12345678901234567).Whole(-50).DateTime(45349, 300 * 3661 + 1);
  answer.Text("ÄÖÜß€").Text("ÄÖÜß€\U0001F332").Text("");
  answer.Row();
  for (int i = 0; i < 13; ++i) answer.Null();
  answer.Done(2);
  const auto connection = Connect(answer);

  Recordset rows = connection->Open("SELECT");
  ExpectField(rows, "B", FieldType::kBoolean, 0, true);
  ExpectField(rows, "TI", FieldType::kUnsignedTinyInt, 0, std::int64_t{255});
  ExpectField(rows, "SI", FieldType::kSmallInt, 0, std::int64_t{-3});
  ExpectField(rows, "I", FieldType::kInteger, 0, std::int64_t{-70000});
  ExpectField(rows, "BI", FieldType::kBigInt, 0, std::int64_t{1} << 40);
  ExpectField(rows, "R", FieldType::kSingle, 0, 0.5);
  ExpectField(rows, "F", FieldType::kDouble, 0, 0.1);
  ExpectField(rows, "M", FieldType::kCurrency, 0, Decimal(12345678901234567, 4));
  ExpectField(rows, "D", FieldType::kNumeric, 0, Decimal(-50, 4));
  ExpectField(rows, "DT", FieldType::kDbTimeStamp, 0, DateTime{2024, 2, 29, 3661 * 1000 + 3});
  ExpectField(rows, "V", FieldType::kVarChar, 30, "ÄÖÜß€");
  ExpectField(rows, "N", FieldType::kVarWChar, 20, "ÄÖÜß€\U0001F332");
  ExpectField(rows, "GRÖßE", FieldType::kVarWChar, 0, "");
  rows.MoveNext();
  for (int i = 0; i < rows.Fields().Count(); ++i) EXPECT_EQ(rows.Fields()[i].Value(), Value(Null{})) << i;
}

TEST_F(FreeTdsTest, SettlesTheSessionAndSendsTextsAsTheyAre) {
  const auto connection = Connect(TdsAnswer().Done());
  EXPECT_EQ(connection->Execute("UPDATE A SET N = 'ÄÖÜß€\U0001F332'"), -1);
  EXPECT_THAT(server_.Batches(),
              ElementsAre(std::string(kSessionBatch), "UPDATE A SET N = 'ÄÖÜß€\U0001F332'"));
}

TEST_F(FreeTdsTest, LongTextsComeInPiecesAndWhole) {
  std::string text = "x";  // so that pieces end in the middle of pairs
  while (text.size() < 200'000) text += "Fichte €\U0001F332" + std::to_string(text.size());
  TdsAnswer answer;
  answer.Columns({{"TX", Type::kNVarCharMax}, {"ID", Type::kInt}});
  answer.Row().Text(text).Whole(1).Row().Text("kurz").Whole(2).Done(2);
  const auto connection = Connect(answer);
  EXPECT_EQ(Rows(*connection, "SELECT"), text + ",1;kurz,2");
}

TEST_F(FreeTdsTest, GivesTheFirstResultSetAndTheLastCount) {
  TdsAnswer answer;
  answer.Done(0).Done(3);
  answer.Columns({{"A", Type::kInt}}).Row().Whole(1).Done(1);
  answer.Done(7).Columns({{"B", Type::kInt}}).Row().Whole(2).Done(1).Done();
  const auto connection = Connect(answer);
  EXPECT_EQ(Rows(*connection, "x"), "1");
  EXPECT_EQ(connection->Execute("x"), 7);
  EXPECT_EQ(server_.Cancellations(), 0);
  answer_ = TdsAnswer().Done(0).Bytes();
  EXPECT_EQ(connection->Execute("x"), 0);
  EXPECT_FALSE(connection->Open("x").IsOpen());
}

TEST_F(FreeTdsTest, AnErrorSurfacesWhereverItStandsInTheBatch) {
  TdsAnswer later;
  later.Done(3).Error(2627, 14, "Violation of 'PK_ÄÖ€'.", 2).Error(3621, 0, "Terminated.", 2).Done(-1, true);
  later.Error(547, 16, "The second error.", 3).Done(-1, true).Done(5);
  const auto connection = Connect(later);
  const auto error = ErrorIn([&] { connection->Execute("UPDATE …"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 2627);
  EXPECT_STREQ(error->what(), "Violation of 'PK_ÄÖ€'.");
  EXPECT_EQ(error->Line(), 2);
  EXPECT_EQ(error->Statement(), "UPDATE …");

  TdsAnswer between_rows;
  between_rows.Columns({{"A", Type::kInt}})
      .Row()
      .Whole(1)
      .Error(8134, 16, "Divide by zero.", 1)
      .Done(1, true)
      .Done(9);
  answer_ = between_rows.Bytes();
  EXPECT_EQ(ErrorNumber([&] { connection->Open("SELECT"); }), 8134);

  TdsAnswer behind_rows;
  behind_rows.Columns({{"A", Type::kInt}})
      .Row()
      .Whole(1)
      .Done(1)
      .Error(245, 16, "Conversion failed.", 4)
      .Done(-1, true);
  answer_ = behind_rows.Bytes();
  EXPECT_EQ(ErrorNumber([&] { connection->Open("SELECT"); }), 245);
  EXPECT_EQ(server_.Cancellations(), 0);
}

TEST_F(FreeTdsTest, TheBatchGoesOnBehindAFailedFirstWrite) {
  TdsAnswer answer;
  answer.Columns({{"", Type::kInt}}).Row().Whole(0).Done(1);
  answer.Error(2627, 14, "Violation.", 1).Done(-1, true).Done(4).Done(6);
  const auto connection = Connect(answer);
  constexpr std::string_view kText = "INSERT INTO A VALUES (1) UPDATE B SET C = 1";
  const auto error = ErrorIn([&] { connection->Execute(Sql(kText)); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 2627);
  EXPECT_EQ(error->Statement(), kText);
  EXPECT_EQ(server_.Cancellations(), 0);

  TdsAnswer sound;
  sound.Columns({{"", Type::kInt}}).Row().Whole(0).Done(1).Done(4);
  sound.Columns({{"ID", Type::kInt}}).Row().Whole(9).Done(1);
  answer_ = sound.Bytes();
  EXPECT_EQ(Rows(*connection, kText), "9");
  EXPECT_EQ(connection->Execute(Sql(kText)), 4);
}

TEST_F(FreeTdsTest, WarningsAreNoErrors) {
  TdsAnswer answer;
  answer.Error(8153, 10, "Null value is eliminated.", 1).Columns({{"A", Type::kInt}}).Row().Whole(1);
  answer.Error(5703, 10, "Changed language.", 1).Done(1).Error(0, 0, "PRINT", 1).Done(2);
  const auto connection = Connect(answer);
  EXPECT_EQ(Rows(*connection, "SELECT"), "1");
  EXPECT_EQ(connection->Execute("SELECT"), 2);
}

TEST_F(FreeTdsTest, ABatchWithTemporaryTablesIsSentInItsOwnScope) {
  const auto connection =
      Connect(TdsAnswer().Error(2714, 16, "There is already an object.", 1).Done(-1, true));
  constexpr std::string_view kText = "CREATE TABLE #a (N nvarchar(5)) SELECT N FROM #a WHERE N = 'ä'";
  const auto error = ErrorIn([&] { connection->Open(Sql(kText)); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Statement(), kText);
  EXPECT_EQ(server_.Batches().back(),
            "EXEC sp_executesql N'CREATE TABLE #a (N nvarchar(5)) SELECT N FROM #a WHERE N = ''ä'''");
}

TEST_F(FreeTdsTest, ALostConnectionIsSaidClearlyAndNothingIsRepeated) {
  const auto connection = Connect(TdsAnswer().Done());
  answer_ = TdsServer::kHangUp;
  std::vector<int> heard;
  connection->SetTraceHook([&](const TraceEvent& event) { heard.push_back(event.error_number); });
  const auto error = ErrorIn([&] { connection->Execute("UPDATE A SET B = 1"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorConnection);
  EXPECT_THAT(error->what(), AllOf(HasSubstr("abgebrochen"), HasSubstr("wird nicht wiederholt")));
  EXPECT_THAT(heard, ElementsAre(kErrorConnection));

  answer_ = TdsAnswer().Done(1).Bytes();
  EXPECT_EQ(ErrorNumber([&] { connection->Execute("UPDATE A SET B = 2"); }), kErrorConnection);
  EXPECT_THAT(server_.Batches(), ElementsAre(std::string(kSessionBatch), "UPDATE A SET B = 1"));
}

TEST_F(FreeTdsTest, AConnectionLostWithinAnAnswerIsNoResult) {
  TdsAnswer answer;
  answer.Columns({{"A", Type::kInt}}).Row().Whole(1).Row().Whole(2).Done(2).Done(7);
  const std::string whole = answer.Bytes();
  for (const std::size_t cut : {std::size_t{1}, std::size_t{14}, std::size_t{30}}) {
    answer_ = TdsAnswer().Done().Bytes();
    const auto connection = Connect(TdsAnswer().Done());
    answer_ = whole.substr(0, whole.size() - cut) + TdsServer::kHangUp;
    EXPECT_EQ(ErrorNumber([&] { connection->Open("SELECT"); }), kErrorConnection) << cut;
  }
}

TEST_F(FreeTdsTest, AStatementThatTakesTooLongIsEndedAndTheConnectionLives) {
  const auto connection = Connect(TdsAnswer().Done(), {.query_timeout = seconds(1)});
  answer_ = TdsServer::kSilence;
  const auto error = ErrorIn([&] { connection->Execute("UPDATE A SET B = 1"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorBusy);
  EXPECT_THAT(error->what(),
              AllOf(HasSubstr("innerhalb von 1 Sekunden"), HasSubstr("Die Verbindung besteht weiter.")));
  EXPECT_EQ(server_.Cancellations(), 1);
  answer_ = TdsAnswer().Done(5).Bytes();
  EXPECT_EQ(connection->Execute("UPDATE A SET B = 2"), 5);
}

// The driver would wait as long again for the word that the cancellation was heard.
TEST_F(FreeTdsTest, AServerThatHasGoneIsWaitedForOnce) {
  const auto connection = Connect(TdsAnswer().Done(), {.query_timeout = seconds(3)});
  answer_ = TdsServer::kGone;
  const auto started = std::chrono::steady_clock::now();
  const auto error = ErrorIn([&] { connection->Execute("UPDATE A SET B = 1"); });
  EXPECT_LT(std::chrono::steady_clock::now() - started, seconds(5));
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorConnection);
  EXPECT_THAT(error->what(),
              AllOf(HasSubstr("innerhalb von 3 Sekunden"), HasSubstr("Verbindung zu ihm ist beendet")));
  EXPECT_EQ(ErrorNumber([&] { connection->Execute("UPDATE A SET B = 2"); }), kErrorConnection);
  EXPECT_EQ(server_.Batches().size(), 2);
}

TEST_F(FreeTdsTest, TheTablesAreAskedOfTheServersOwnList) {
  TdsAnswer answer;
  answer.Columns({{"TABLE_QUALIFIER", Type::kNVarChar, 9},
                  {"TABLE_OWNER", Type::kNVarChar, 9},
                  {"TABLE_NAME", Type::kNVarChar, 20},
                  {"TABLE_TYPE", Type::kVarChar, 9},
                  {"REMARKS", Type::kVarChar, 9}});
  for (const char* name : {"ARA_KOPF", "Größen"})
    answer.Row().Text("lohn").Text("dbo").Text(name).Text("TABLE").Null();
  const auto connection = Connect(answer.Done(2));
  EXPECT_THAT(TableNames(*connection), ElementsAre("ARA_KOPF", "Größen"));
  EXPECT_THAT(server_.Batches().back(), HasSubstr("sp_tables"));
}

TEST_F(FreeTdsTest, ARefusedLoginIsSaidWithoutThePassword) {
  const TdsServer refusing([](const std::string&) { return std::string(); }, TdsServer::Login::kRefuse);
  const auto error = ErrorIn([&] { OpenOdbc(Text(refusing)); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), kErrorConnection);
  EXPECT_THAT(error->what(), AllOf(HasSubstr("lehnt die Anmeldung ab"),
                                   HasSubstr("Login failed for user 'sa'."), Not(HasSubstr("geheim"))));
}

TEST_F(FreeTdsTest, AServerThatIsGoneOrSilentEndsInAnErrorInTime) {
  std::string gone;
  {
    const TdsServer server([](const std::string&) { return std::string(); });
    gone = Text(server);
  }
  EXPECT_EQ(ErrorNumber([&] { OpenOdbc(gone); }), kErrorConnection);
  const TdsServer silent([](const std::string&) { return std::string(); }, TdsServer::Login::kIgnore);
  const auto started = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorNumber([&] { OpenOdbc(Text(silent), {.login_timeout = seconds(1)}); }), kErrorConnection);
  EXPECT_LT(std::chrono::steady_clock::now() - started, seconds(5));
}

TEST_F(FreeTdsTest, TracesAndErrorsShowNoPassword) {
  const auto connection = Connect(TdsAnswer().Error(50000, 16, "in 'Server=x;PWD=geheim'", 1).Done(-1, true));
  std::string traced;
  connection->SetTraceHook([&](const TraceEvent& event) { traced = event.statement; });
  const auto error = ErrorIn([&] { connection->Execute("EXEC VERBINDE 'Server=x;Password=geheim'"); });
  ASSERT_TRUE(error);
  EXPECT_THAT(traced, AllOf(HasSubstr("VERBINDE"), Not(HasSubstr("geheim"))));
  EXPECT_THAT(error->what(), AllOf(HasSubstr("Server=x"), Not(HasSubstr("geheim"))));
  EXPECT_THAT(error->Statement(), Not(HasSubstr("geheim")));
}

TEST_F(FreeTdsTest, ItsTextOpensTheSameDatabaseAgain) {
  auto connection = Connect(TdsAnswer().Done(4));
  const std::string text = connection->ConnectionString();
  connection.reset();
  EXPECT_EQ(OpenOdbc(text)->Execute("x"), 4);
}

}  // namespace
}  // namespace tarvoni::odbc

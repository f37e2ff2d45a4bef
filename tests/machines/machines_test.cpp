#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sqlite/public/sqlite_database.h"
#include "src/machines/f_kostenart.h"
#include "src/machines/f_maschine_stamm.h"
#include "src/schema/schema.h"
#include "suite/tarvoni_suite.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A database that can be lost at any moment, and that keeps the statements sent to it.
class Wire : public Connection {
 public:
  long long Execute(const SqlText& text) override { return Send(text).Execute(text); }
  Recordset Open(const SqlText& text) override { return Send(text).Open(text); }
  const std::string& ConnectionString() const override { return db_->ConnectionString(); }
  void BeginHandler() override { db_->BeginHandler(); }
  void EndHandler() override { db_->EndHandler(); }
  void CommitHandler() override { db_->CommitHandler(); }
  void SetTraceHook(TraceHook hook) override { db_->SetTraceHook(std::move(hook)); }

  bool lost = false;
  std::vector<std::string> sent;

 private:
  Connection& Send(const SqlText& text) {
    sent.emplace_back(text.Text());
    if (lost) throw DatabaseError(kErrorConnection, "Die Verbindung ist abgebrochen.");
    return *db_;
  }

  std::shared_ptr<Connection> db_ = sqlite::OpenDatabase(":memory:", {.create = true});
};

class Machines : public testing::Test {
 protected:
  Machines() {
    wire->Execute(SchemaSql());
    wire->Execute(
        "INSERT INTO KOSTENART (NUMBER, NAME, TABLE_NAME) VALUES (4300, 'Treibstoffe', 'F'), (4310, 'Öle', "
        "'F')\n"
        "INSERT INTO MASCHINE_STAMM (LABEL, KOSTENART_ID) VALUES ('ANS', 1), ('EIG', 1), ('ABS', 1), ('UNT', "
        "1),"
        " ('OI', 2), ('STE', NULL)");
    wire->sent.clear();
    context.dbAdo = wire;
  }

  // Runs a Screen whose user does `script`; what was sent before it counts as the opening.
  template <typename Screen, typename... Arguments>
  void Use(std::function<void(UserActions&)> script, Arguments... arguments) {
    Screen screen;
    toolkit.script = [&](UserActions& user) {
      opening = std::exchange(wire->sent, {});
      script(user);
    };
    screen.Run(context, arguments...);
  }

  static TextBox& Box(UserActions& user, const char* name) {
    return dynamic_cast<TextBox&>(*user.Screen().Find(name));
  }
  static void Click(UserActions& user, const char* name) { user.Click(*user.Screen().Find(name)); }

  std::shared_ptr<Wire> wire = std::make_shared<Wire>();
  std::vector<std::string> opening;
  TvnVar_Dll context;
  TarvoniSuite suite;
  test::QuietToolkit toolkit;
  Environment environment{
      .toolkit = &toolkit, .suite = &suite, .connect = [this](const std::string&) { return wire; }};
  EnvironmentScope scope{environment};
};

TEST_F(Machines, MasterSendsWhatItsGroupsNeedAndNothingElse) {
  Use<F_MaschineStamm>([&](UserActions& user) {
    user.Focus(Box(user, "txtSteuerN"));
    EXPECT_THAT(wire->sent, ElementsAre("SELECT ID,NAME FROM KOSTENART WHERE NUMBER = '4300'"));
    wire->sent.clear();
    user.Type("4310");
    EXPECT_THAT(wire->sent, IsEmpty()) << "only leaving asks";
    user.Tab();
    EXPECT_THAT(wire->sent, ElementsAre("SELECT ID,NAME FROM KOSTENART WHERE NUMBER = '4310'"));
    wire->sent.clear();
    Click(user, "cmdSpeichern");
  });
  ASSERT_EQ(opening.size(), 22U);
  EXPECT_EQ(opening[0], "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'ANS'");
  EXPECT_EQ(opening[12], "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'VK'");
  EXPECT_EQ(opening[13], "INSERT INTO MASCHINE_STAMM (LABEL) VALUES ('VK')");
  EXPECT_THAT(wire->sent, ElementsAre("SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'ANS'",
                                      "UPDATE MASCHINE_STAMM SET KOSTENART_ID = 1 WHERE LABEL = 'ANS'",
                                      "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'EIG'",
                                      "UPDATE MASCHINE_STAMM SET KOSTENART_ID = 1 WHERE LABEL = 'EIG'",
                                      "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'ABS'",
                                      "UPDATE MASCHINE_STAMM SET KOSTENART_ID = 1 WHERE LABEL = 'ABS'",
                                      "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'UNT'",
                                      "UPDATE MASCHINE_STAMM SET KOSTENART_ID = 1 WHERE LABEL = 'UNT'",
                                      "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'VK'",
                                      "UPDATE MASCHINE_STAMM SET KOSTENART_ID = NULL WHERE LABEL = 'VK'",
                                      "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'OI'",
                                      "UPDATE MASCHINE_STAMM SET KOSTENART_ID = 2 WHERE LABEL = 'OI'",
                                      "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'STE'",
                                      "UPDATE MASCHINE_STAMM SET KOSTENART_ID = 2 WHERE LABEL = 'STE'"));
}

TEST_F(Machines, MasterSendsNoTextThatIsNoLiteral) {
  Use<F_MaschineStamm>([&](UserActions& user) {
    user.Focus(Box(user, "txtOIN"));
    wire->sent.clear();
    user.Type("1' OR '1'='1");
    user.Tab();
    EXPECT_THAT(wire->sent, IsEmpty());
    EXPECT_EQ(toolkit.prompts.size(), 1U);
    EXPECT_TRUE(Box(user, "txtOIN").HasFocus());
  });
}

TEST_F(Machines, LostConnectionIsToldAndTheEntryStays) {
  Use<F_MaschineStamm>([&](UserActions& user) {
    user.Focus(Box(user, "txtOIN"));
    user.Type("4300");
    wire->lost = true;
    user.Tab();
    user.Lookup();
    Click(user, "cmdSpeichern");
    EXPECT_THAT(toolkit.prompts,
                ElementsAre("Die Verbindung ist abgebrochen.", "Die Verbindung ist abgebrochen.",
                            "Die Verbindung ist abgebrochen."));
    EXPECT_EQ(Box(user, "txtOIN").Text(), "4300");
    EXPECT_TRUE(Box(user, "txtOIN").HasFocus());
    wire->lost = false;
    toolkit.prompts.clear();
    Click(user, "cmdSpeichern");
    EXPECT_THAT(toolkit.prompts, IsEmpty()) << "it goes on when the database is back";
  });
  const Recordset saved = wire->Open("SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'OI'");
  EXPECT_EQ(ToDisplayText(saved.Fields()[0].Value()), "1");
}

TEST_F(Machines, ListKeepsItsColumnsOverARefresh) {
  const char* const list =
      "SELECT MASCHINE_STAMM.ID, KOSTENART.NUMBER ,KOSTENART.NAME\nFROM MASCHINE_STAMM\n"
      "LEFT JOIN KOSTENART ON MASCHINE_STAMM.KOSTENART_ID = KOSTENART.ID\nWHERE LABEL = 'OI'";
  toolkit.pick = [](const PickRequest& request) {
    EXPECT_EQ(request.caption, "KOSTENART");
    EXPECT_EQ(request.hidden_columns, 1);
    return PickResult{.row = 0, .extra = false};
  };
  Use<F_Kostenart>(
      [&](UserActions& user) {
        Click(user, "btnNeu");
        GridColumns& columns = dynamic_cast<DataGrid&>(*user.Screen().Find("DataGrid1")).Columns();
        EXPECT_FALSE(columns[0].Visible());
        EXPECT_EQ(columns[1].Width(), 900);
        EXPECT_EQ(columns[2].Width(), 4400);
      },
      std::string("OI"));
  EXPECT_THAT(opening, ElementsAre(list));
  EXPECT_THAT(wire->sent,
              ElementsAre("SELECT ID, NUMBER , NAME, TABLE_NAME FROM KOSTENART WHERE ID <> 0",
                          "SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'OI' AND KOSTENART_ID = 1",
                          "INSERT INTO MASCHINE_STAMM (LABEL, KOSTENART_ID) VALUES ('OI',1)", list));
}

}  // namespace
}  // namespace tarvoni

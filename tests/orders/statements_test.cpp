#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "host/open_database.h"
#include "host/script/script_hooks.h"
#include "host/script/script_stage.h"
#include "platform/script/public/script_player.h"
#include "suite/tarvoni_suite.h"

namespace tarvoni {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

using Statements = std::vector<std::string>;

// Plays lines behind the fixture of the work orders and keeps what went to the database from the line
// "sql SELECT 'HERE'" on.
class WorkOrderStatements : public testing::Test {
 protected:
  Statements Play(const std::string& lines) {
    const auto stage = host::MakeHeadlessStage();
    TarvoniSuite suite;
    Environment environment{
        .toolkit = &stage->ItsToolkit(), .suite = &suite, .connect = [this](const std::string& database) {
          auto connection = host::OpenDatabase(database, host::OpenMode::kCreate);
          connection->SetTraceHook([this](const TraceEvent& event) { Hear(event.statement); });
          return connection;
        }};
    ScriptPlayer player(environment, stage->ItsDriver(), host::MakeScriptHooks());
    stage->SetPartner(&player);
    try {
      player.Play(Script::Parse(SCRIPTS "statements.tvs", "fixture work_order.tvi\n" + lines));
    } catch (const ScriptFailure& failure) {
      ADD_FAILURE() << failure.Text();
      sent_.clear();
    }
    return sent_;
  }

 private:
  void Hear(std::string_view statement) {
    if (statement == "SELECT 'HERE'")
      sent_.clear();
    else
      sent_.emplace_back(statement);
  }

  Statements sent_;
};

Statements Writes(const Statements& sent) {
  Statements writes;
  std::ranges::copy_if(sent, std::back_inserter(writes), [](const std::string& statement) {
    return !statement.starts_with("SELECT") && !statement.starts_with("SET NOCOUNT");
  });
  return writes;
}

// "UPDATE TABLE SET COLUMN = VALUE WHERE ID = 1" for each "COLUMN = VALUE".
Statements Updates(const std::string& table, const std::string& id, const Statements& columns) {
  Statements updates;
  for (const std::string& column : columns) {
    updates.push_back("UPDATE " + table);
    updates.back().append(" SET ").append(column).append(" WHERE ID = ").append(id);
  }
  return updates;
}

Statements operator+(Statements first, const Statements& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

constexpr const char* kEntry = R"(
fill txtLeistungsartN=2010 txtVerfahrenN=20102 txtKostenartN=4000 txtMenge=2,5 txtKostenE=1,25
leave txtMenge
)";

TEST_F(WorkOrderStatements, APositionIsSavedColumnByColumnAndItsHeadBehindIt) {
  const Statements sent = Play(std::string("call Arbeitsauftrag idPersonal_dll=901 ID=901") + kEntry + R"(
select txtValuta EUR
tab SSTab1 1
type txtTFrei2 frei
sql SELECT 'HERE'
click btnSpeichern
sql SELECT 'END'
click btnOk
)");
  const Statements until_end(sent.begin(), std::ranges::find(sent, "SELECT 'END'"));
  const Statements insert = {"INSERT INTO ARBEITSAUFTRAG (ORDERS,ARBEITSAUFTRAG_KOPF_ID) VALUES (1,901)"};
  const Statements position = Updates("ARBEITSAUFTRAG", "1",
                                      {"DATUM_NR = '20240328'",
                                       "LEISTUNGSART_ID = 901",
                                       "VERFAHREN_ID = 902",
                                       "KOSTENART_ID = 901",
                                       "KOSTENSTELLE_ID = NULL",
                                       "OBJEKT_ID = NULL",
                                       "SONDERMERKMAL_ID = 901",
                                       "HSGR = NULL",
                                       "HOLZART_ID = NULL",
                                       "WO_ID = NULL",
                                       "FLAECHE = 0.0000",
                                       "MENGE = 2.50",
                                       "GESAMT = 3.13",
                                       "ERLOS = 0.00",
                                       "STUNDEN = NULL",
                                       "MAS = NULL",
                                       "EINH_ID = 901",
                                       "KOSTEN = 1.25",
                                       "ERLOS = 0.00",
                                       "EURO = 1",
                                       "T_FREI1 = NULL",
                                       "T_FREI2 = 'frei'",
                                       "T_FREI3 = NULL",
                                       "T_FREI4 = NULL",
                                       "T_FREI5 = NULL",
                                       "N_FREI1 = NULL",
                                       "N_FREI2 = NULL",
                                       "N_FREI3 = NULL",
                                       "N_FREI4 = NULL",
                                       "N_FREI5 = NULL",
                                       "ASTUNG = 0",
                                       "LEISTUNG = NULL",
                                       "PLANUNG_ID = NULL",
                                       "ZAUNSCHUTZ = 0"});
  EXPECT_THAT(position, SizeIs(34));
  const Statements head =
      Updates("ARBEITSAUFTRAG_KOPF", "901",
              {"DATUM = '20240115'", "FWJ = '2024'", "FORSTAMT = 941", "PRODUKT_ID = 901",
               "BESCHREIBUNG = 'Kulturen'", "ABGENSCHLOSEN = 0", "ID_SONDERMERKMAL = 901"});
  EXPECT_EQ(Writes(until_end), insert + position + head);
}

TEST_F(WorkOrderStatements, APlanWritesItsOwnTablesAndItsTextOnItsHead) {
  const Statements sent = Play(std::string(R"(
call Arbeitsauftrag idPersonal_dll=901 Plan_dll=true
input P1
fill txtProduktN=20 txtSM=00 txtKostenstelleN=10 txtSondermerkmal(0)=00)") +
                               kEntry + R"(
type txtPlanung_Lang im Herbst
sql SELECT 'HERE'
click btnSpeichern
sql SELECT 'END'
click btnOk
)");
  const Statements writes = Writes({sent.begin(), std::ranges::find(sent, "SELECT 'END'")});
  ASSERT_THAT(writes, SizeIs(1 + 34 + 5));
  EXPECT_EQ(writes[0], "INSERT INTO ARBEITSAUFTRAG_PLANN (AA_PLANN_ID) VALUES ('1')");
  EXPECT_EQ(writes[5], "UPDATE ARBEITSAUFTRAG_PLANN SET KOSTENSTELLE_ID = 901 WHERE ID = 1");
  EXPECT_EQ(writes[33], "UPDATE ARBEITSAUFTRAG_KOPF_PLANN SET PLANUNG_LANG = 'im Herbst' WHERE ID = 1");
  EXPECT_EQ(writes[34], "UPDATE ARBEITSAUFTRAG_PLANN SET ZAUNSCHUTZ = 0 WHERE ID = 1");
  const Statements head(writes.begin() + 35, writes.end());
  EXPECT_EQ(head, Updates("ARBEITSAUFTRAG_KOPF_PLANN", "1",
                          {"DATUM = NULL", "FWJ = '2024'", "FORSTAMT = 941", "PRODUKT_ID = 901",
                           "BESCHREIBUNG = NULL"}));
}

TEST_F(WorkOrderStatements, AnEmptyOrderThatIsGivenUpSavesItsHeadAlone) {
  const Statements sent = Play(R"(
call Arbeitsauftrag idPersonal_dll=901 ID=901
type txtFWJ ""
select txtForstamt "FA Süd"
sql SELECT 'HERE'
click btnAbbrechen
)");
  const Statements writes = Writes(sent);
  ASSERT_THAT(writes, SizeIs(7 + 1));
  EXPECT_EQ(writes[1], "UPDATE ARBEITSAUFTRAG_KOPF SET FWJ = NULL WHERE ID = 901");
  EXPECT_EQ(writes[2], "UPDATE ARBEITSAUFTRAG_KOPF SET FORSTAMT = 942 WHERE ID = 901");
  EXPECT_THAT(writes[7],
              StartsWith("INSERT INTO MODELS (MODEL,STANDARD,NAME,RELATION) VALUES ('400,400,850,"));
}

// Reading a closed order writes the flag; so do closing, reopening and putting the check back.
TEST_F(WorkOrderStatements, TheFlagIsWrittenAtEachClick) {
  const Statements sent = Play(R"(
sql UPDATE ARBEITSAUFTRAG_KOPF SET ABGENSCHLOSEN = 1
sql INSERT INTO ARBEITSAUFTRAG (ORDERS,ARBEITSAUFTRAG_KOPF_ID) VALUES (1,901)
sql SELECT 'HERE'
call Arbeitsauftrag idPersonal_dll=901 ID=901
click chkAbgesch
expect message 4443
answer no
click chkAbgesch
expect message 4443
answer yes
expect btnBearbeiten enabled
click btnOk
)");
  Statements writes = Writes(sent);
  writes.pop_back();  // the widths
  EXPECT_EQ(writes, Updates("ARBEITSAUFTRAG_KOPF", "901",
                            {"ABGENSCHLOSEN = 1", "ABGENSCHLOSEN = 1", "ABGENSCHLOSEN = 0"}));
}

TEST_F(WorkOrderStatements, TimberIsTakenByListAndGivenBackByPosition) {
  const Statements sent = Play(R"(
option LISTE_KUBATUR_MENGE number 1
sql INSERT INTO ARBEITSAUFTRAG (ORDERS,ARBEITSAUFTRAG_KOPF_ID,LEISTUNGSART_ID,FLAECHE) VALUES (1,901,903,1.5)
insert LISTENKOPF
| LISTE | GESPERRT
| L1    | 0
| L2    | 0
insert LOGS
| LISTE | AA_ID | KUBATUR | MANDANTEN_ID
| L1    |       | 1.1234  | 901
| L2    | 1     | 2       | 901
call Arbeitsauftrag idPersonal_dll=901 ID=901
sql SELECT 'HERE'
click cmdHolz
select listeAll L1
click cmdAdd
select listeSel L2
click cmdDel
click cmdOK
sql SELECT 'END'
click btnOk
)");
  EXPECT_THAT(
      Writes({sent.begin(), std::ranges::find(sent, "SELECT 'END'")}),
      ElementsAre(
          "UPDATE LOGS SET AA_ID = 1,ARBEITSAUFTRAG_KOPF_ID = 901\n"
          "WHERE LISTE IN (SELECT LISTE FROM LISTENKOPF WHERE ISNULL(GESPERRT, 0) = 0 AND LISTE IN ('L1'))",
          "UPDATE LISTENKOPF SET ID_ARBEITSAUFTRAG_KOPF = 901\n"
          "WHERE ISNULL(GESPERRT, 0) = 0 AND LISTE IN ('L1')",
          "UPDATE LOGS SET AA_ID = Null\n"
          "WHERE LISTE IN (SELECT LISTE FROM LISTENKOPF WHERE ISNULL(GESPERRT, 0) = 0 AND LISTE IN ('L2'))\n"
          "  AND AA_ID = 1",
          "UPDATE ARBEITSAUFTRAG SET FLAECHE = 1.5000,MENGE = 1.1234 WHERE ID = 1"));
}

// Cost centre, work type, plans, method, cost type and the button for timber.
TEST_F(WorkOrderStatements, SixStatementsAreBehindAShownRow) {
  const Statements sent = Play(R"(
insert ARBEITSAUFTRAG
| ORDERS | ARBEITSAUFTRAG_KOPF_ID | KOSTENSTELLE_ID | LEISTUNGSART_ID | VERFAHREN_ID | KOSTENART_ID
| 1      | 901                    | 901             | 902             | 903          | 901
| 2      | 901                    | 901             | 901             | 901          | 901
call Arbeitsauftrag idPersonal_dll=901 ID=901
sql SELECT 'HERE'
row DataGrid1 ORDERS=2
sql SELECT 'END'
expect txtVerfahren = Winkelpflanz
expect txtKostenart = Löhne
click btnOk
)");
  EXPECT_THAT(Statements(sent.begin(), std::ranges::find(sent, "SELECT 'END'")), SizeIs(6));
}

// Names are cut to their first characters, a description is not.
TEST_F(WorkOrderStatements, TextsMayBeLong) {
  const std::string text(10'000, 'x');
  const Statements sent =
      Play("sql SELECT 'HERE'\ncall PA_Gruppe ID_Mandant=901\ninput " + text +
           "\nclick btnAbbrechen\ncall Arbeitsauftrag idPersonal_dll=901 Plan_dll=true\ninput " + text +
           "\nclick btnAbbrechen\ncall Arbeitsauftrag idPersonal_dll=901 ID=901\n" +
           "click btnBeschreibung\ntext " + text + kEntry + "click btnSpeichern\nclick btnOk\n");
  EXPECT_THAT(sent, Contains(HasSubstr("VALUES ('2024','" + text.substr(0, 20) + "',901)")));
  EXPECT_THAT(sent, Contains("INSERT INTO ARBEITSAUFTRAG_KOPF_PLANN (NAME, PERSONAL_ID) VALUES ('" +
                             text.substr(0, 14) + "', 901)"));
  EXPECT_THAT(sent, Contains("UPDATE ARBEITSAUFTRAG_KOPF SET BESCHREIBUNG = '" + text + "' WHERE ID = 901"));
}

}  // namespace
}  // namespace tarvoni

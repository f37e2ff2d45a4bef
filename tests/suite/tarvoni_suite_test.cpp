#include "suite/tarvoni_suite.h"

#include "tests/suite/suite_testing.h"

namespace tarvoni {
namespace {

// The services as they work together, reached through the environment.
class WholeSuite : public test::SuiteTest {
 protected:
  WholeSuite() {
    environment.suite = &whole;
    db->Execute(
        "INSERT INTO PERSONAL (NUMMER, MANDANTEN, KOSTENSTELLE) VALUES (1, 1, 'KST')\n"
        "INSERT INTO KOSTENSTELLE (NUMBER, NAME, TABLE_NAME) VALUES"
        " (101, 'Revier Nord', 'KST'), (102, 'Revier Süd', 'KST')");
  }
  TarvoniSuite whole;
};

TEST_F(WholeSuite, KeepsOneInstanceOfEachService) {
  EXPECT_EQ(&whole.Values(), &whole.Values());
  EXPECT_EQ(&whole.Lookup(), &whole.Lookup());
  EXPECT_EQ(&whole.Messages(), &whole.Messages());
}

TEST_F(WholeSuite, ListOfTheCatalogueFillsACodeField) {
  toolkit.pick = [](const PickRequest&) { return PickResult{.row = 1, .extra = false}; };
  const SqlText offered = whole.NamedSql().GetSql(context, "KOSTENSTELLE_GRID", {Given("1")});
  EXPECT_EQ(whole.Lookup().Pick(context, offered, "Kostenstelle", "101", ""), "102");
}

TEST_F(WholeSuite, DeletingAStoresDocumentAsksInSentences) {
  db->Execute("INSERT INTO LAGER_POS (LAGER_ID) VALUES (1)");
  toolkit.answer = kAnswerYes;
  EXPECT_EQ(whole.Deletes().ConfirmDelete("SELECT ID FROM LAGER_POS WHERE LAGER_ID = 1", 1713, 1181, context),
            "1");
  EXPECT_EQ(toolkit.prompts.at(0),
            "Zu diesem Lagerbeleg gibt es Positionen. Sollen auch diese Positionen gelöscht werden?");
}

}  // namespace
}  // namespace tarvoni

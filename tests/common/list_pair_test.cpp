#include "src/common/list_pair.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/data/database_error.h"
#include "tests/support/fake_connection.h"
#include "tests/support/fake_suite.h"

namespace tarvoni {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PairForm : Form {
  PairForm() : Form("PairForm") { pair.Connect({cmdAdd, cmdDel, &cmdAddAll, &cmdDelAll}); }
  layout::Node BuildLayout() override { return {}; }

  ListBox listeAll{*this, "listeAll"};
  ListBox listeSel{*this, "listeSel"};
  Button cmdAdd{*this, "cmdAdd"};
  Button cmdDel{*this, "cmdDel"};
  Button cmdAddAll{*this, "cmdAddAll"};
  Button cmdDelAll{*this, "cmdDelAll"};
  ListPair pair{listeAll, listeSel};
};

class ListPairTest : public testing::Test {
 protected:
  ListPairTest() {
    for (const char* text : {"A", "B", "C"}) form.listeAll.AddItem(text);
  }
  PairForm form;
};

TEST_F(ListPairTest, AChosenEntryGoesToTheEndOfTheOtherListWithItsNumber) {
  form.cmdAdd.Click();
  EXPECT_THAT(EntryTexts(form.listeSel), IsEmpty());
  form.listeAll.SetItemData(1, 7);
  form.listeAll.SetListIndex(1);
  form.cmdAdd.Click();
  form.cmdAdd.Click();  // nothing is chosen any more
  form.listeAll.SetListIndex(0);
  form.cmdAdd.Click();
  EXPECT_THAT(EntryTexts(form.listeSel), ElementsAre("B", "A"));
  EXPECT_EQ(form.listeSel.ItemData(0), 7);
  form.listeSel.SetListIndex(0);
  form.cmdDel.Click();
  EXPECT_THAT(EntryTexts(form.listeAll), ElementsAre("C", "B"));
}

TEST_F(ListPairTest, AllGoFromTheLastToTheFirstEachAsIfItWereChosen) {
  std::string told;
  form.pair.Selecting = [&] { told += form.listeAll.Text() + std::to_string(form.listeSel.ListCount()); };
  form.pair.Released = [&] { told += std::to_string(form.listeSel.ListCount()); };
  form.cmdAddAll.Click();
  EXPECT_THAT(EntryTexts(form.listeSel), ElementsAre("C", "B", "A"));
  form.cmdDelAll.Click();
  EXPECT_THAT(EntryTexts(form.listeAll), ElementsAre("A", "B", "C"));
  EXPECT_EQ(told, "C0B1A2210");
}

TEST_F(ListPairTest, AQuoteInAnEntryIsAnErrorOnlyWhereItGoesIntoAStatement) {
  EXPECT_EQ(InList(form.listeAll).Text(), "'A','B','C'");
  EXPECT_TRUE(InList(form.listeSel).Empty());
  EXPECT_EQ(QuotedEntries(form.listeSel), "");
  form.listeSel.AddItem("O'Neill");
  form.listeSel.AddItem("B");
  EXPECT_EQ(QuotedEntries(form.listeSel), "'O'Neill','B'");
  EXPECT_THROW(InList(form.listeSel), DatabaseError);
}

TEST_F(ListPairTest, RowsAreAddedToWhatStandsThere) {
  test::FakeSuite suite;
  Environment environment{.suite = &suite};
  const EnvironmentScope scope(environment);
  test::FakeConnection db;
  db.Answer("SELECT LISTE FROM LISTENKOPF", test::Rows({test::Chars("LISTE")}, {std::string("D"), Null{}}));
  AddRows(db, form.listeAll, "SELECT LISTE FROM LISTENKOPF");
  EXPECT_THAT(EntryTexts(form.listeAll), ElementsAre("A", "B", "C", "D", ""));
}

}  // namespace
}  // namespace tarvoni

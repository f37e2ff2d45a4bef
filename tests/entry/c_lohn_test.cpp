#include "src/entry/c_lohn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "tests/entry/fake_screens.h"

namespace tarvoni {
namespace {

using ::testing::ElementsAre;
using F = FakeScreens;

// A c_Lohn on the fakes; the journal begins empty and no slot holds an instance.
class Lohn : public ::testing::Test {
 protected:
  Lohn() {
    F::F_ARA::Reset();
    F::F_Arbeitsauftrag::Reset();
    F::F_Belege_New::Reset();
    F::F_Bruttolohn::Reset();
    F::F_Lager::Reset();
    F::F_MaschineStamm::Reset();
    F::F_Maschinenbuch::Reset();
    F::F_NewRechnung::Reset();
    F::F_PA_Gruppe::Reset();
    Journal().clear();
    ForgetFailure();
    context_.strWorkDirectory = "dir";
  }
  ~Lohn() override { lohn_->Release(); }

  _c_Lohn* lohn_ = new c_Lohn<F>;
  TvnVar_Dll context_;
};

TEST_F(Lohn, EachMethodPassesItsArgumentsToItsScreenAndClearsTheSlot) {
  EXPECT_EQ(lohn_->ARA(context_, "17", 9), kResultOk);
  EXPECT_EQ(lohn_->Maschinenbuch(7, true, context_), kResultOk);
  EXPECT_EQ(lohn_->MaschineStamm(context_), kResultOk);
  EXPECT_EQ(lohn_->PA_Gruppe(5, 6, context_), kResultOk);
  EXPECT_EQ(lohn_->BruttoLohn(context_, 4), kResultOk);
  EXPECT_EQ(lohn_->PA_Gruppe_Delete(3, context_), kResultOk);
  EXPECT_THAT(Journal(), ElementsAre("F_ARA#1 Run {dir} '17' 9b", "F_ARA#1 gone",                     //
                                     "F_Maschinenbuch#1 Run 7 true {dir}", "F_Maschinenbuch#1 gone",  //
                                     "F_MaschineStamm#1 Run {dir}", "F_MaschineStamm#1 gone",         //
                                     "F_PA_Gruppe#1 Run 5 6 {dir}", "F_PA_Gruppe#1 gone",             //
                                     "F_Bruttolohn#1 Run {dir} 4", "F_Bruttolohn#1 gone",             //
                                     "F_PA_Gruppe#2 Delete 3 {dir}", "F_PA_Gruppe#2 gone"));
}

TEST_F(Lohn, ByReferenceArgumentsReachTheHostOnlyWhereTold) {
  std::string selection = "A", formula = "B", name = "C";
  lohn_->Lager(context_, "1", 2, selection, formula);
  lohn_->NewRechnung(context_, name, 8, "alt");
  EXPECT_EQ(selection, "A!");
  EXPECT_EQ(formula, "B!");
  EXPECT_EQ(name, "C!");

  std::int32_t client = 8;
  std::string person = "1";
  lohn_->PA_Gruppe(0, client, context_);
  lohn_->NewRechnung(context_, name, client, person);
  lohn_->ARA(context_, person, 1);
  EXPECT_EQ(client, 8);
  EXPECT_EQ(person, "1");
}

TEST_F(Lohn, LagerAndArbeitsauftragAreUnloadedBeforeTheirSlotIsCleared) {
  std::string selection, formula;
  lohn_->Lager(context_, "1", 2, selection, formula);
  lohn_->Arbeitsauftrag(context_, "1", 7, true);
  EXPECT_THAT(Journal(), ElementsAre("F_Lager#1 Run {dir} '1' 2b '' ''", "F_Lager#1 Unload", "F_Lager#1 gone",
                                     "F_Arbeitsauftrag#1 Run {dir} '1' 7 true", "F_Arbeitsauftrag#1 Unload",
                                     "F_Arbeitsauftrag#1 gone"));
}

TEST_F(Lohn, UnloadAlwaysHasATarget) {
  F::F_Lager::clears_itself = true;
  std::string selection, formula;
  lohn_->Lager(context_, "1", 2, selection, formula);
  EXPECT_THAT(Journal(), ElementsAre("F_Lager#1 Run {dir} '1' 2b '' ''", "F_Lager#2 Unload", "F_Lager#2 gone",
                                     "F_Lager#1 gone"));
}

TEST_F(Lohn, BelegeUnloadsTheStoresScreenAndLeavesItInItsSlot) {
  lohn_->Belege(context_, "1", 2);
  EXPECT_THAT(Journal(),
              ElementsAre("F_Belege_New#1 Run {dir} '1' 2b", "F_Lager#1 Unload", "F_Belege_New#1 gone"));
  EXPECT_FALSE(Slot<F::F_Belege_New>::Holds());
  ASSERT_TRUE(Slot<F::F_Lager>::Holds());

  Journal().clear();
  std::string selection, formula;
  lohn_->Lager(context_, "1", 2, selection, formula);
  EXPECT_THAT(Journal(),
              ElementsAre("F_Lager#1 Run {dir} '1' 2b '' ''", "F_Lager#1 Unload", "F_Lager#1 gone"));
}

TEST_F(Lohn, AFailureKeepsTheInstanceForTheNextCallAndSkipsTheRest) {
  F::F_Arbeitsauftrag::fails = true;
  EXPECT_EQ(lohn_->Arbeitsauftrag(context_, "x", 7, false), kResultFail);
  EXPECT_EQ(LastFailure().text, "Es geht nicht.");
  EXPECT_EQ(LastFailure().screen, "F_Arbeitsauftrag");
  EXPECT_EQ(LastFailure().interface, "_c_Lohn");
  EXPECT_TRUE(Slot<F::F_Arbeitsauftrag>::Holds());

  F::F_Arbeitsauftrag::fails = false;
  EXPECT_EQ(lohn_->Arbeitsauftrag(context_, "1", 7, false), kResultOk);
  EXPECT_EQ(LastFailure().text, "");
  EXPECT_THAT(Journal(), ElementsAre("F_Arbeitsauftrag#1 Run {dir} 'x' 7 false",
                                     "F_Arbeitsauftrag#1 Run {dir} '1' 7 false", "F_Arbeitsauftrag#1 Unload",
                                     "F_Arbeitsauftrag#1 gone"));
}

TEST_F(Lohn, AFailureOfACallInsideIsForgottenWhenTheOuterOneSucceeds) {
  F::F_Maschinenbuch::fails = true;
  EXPECT_EQ(
      RunCall("F_ARA", "_c_Lohn", [&] { EXPECT_EQ(lohn_->Maschinenbuch(1, true, context_), kResultFail); }),
      kResultOk);
  EXPECT_EQ(LastFailure().text, "");
}

TEST_F(Lohn, TheWritesOfACallAreCommittedWhenItEnds) {
  const auto connection = std::make_shared<FakeConnection>();
  context_.dbAdo = connection;
  lohn_->MaschineStamm(context_);
  EXPECT_THAT(Journal(),
              ElementsAre("begin", "F_MaschineStamm#1 Run {dir}", "F_MaschineStamm#1 gone", "commit", "end"));

  Journal().clear();
  F::F_MaschineStamm::fails = true;
  lohn_->MaschineStamm(context_);
  EXPECT_THAT(Journal(), ElementsAre("begin", "F_MaschineStamm#2 Run {dir}", "commit", "end"));

  F::F_MaschineStamm::fails = false;
  connection->commit_fails = true;
  EXPECT_EQ(lohn_->MaschineStamm(context_), kResultFail);
  EXPECT_EQ(LastFailure().text, "Die Platte ist voll.");
}

TEST_F(Lohn, EachThreadHasItsOwnSlotsAndFailure) {
  F::F_ARA::fails = true;
  lohn_->ARA(context_, "1", 0);
  std::thread([this] {
    EXPECT_FALSE(Slot<F::F_ARA>::Holds());
    EXPECT_EQ(LastFailure().text, "");
    F::F_ARA::fails = false;
    EXPECT_EQ(lohn_->ARA(context_, "2", 0), kResultOk);
  }).join();
  EXPECT_TRUE(Slot<F::F_ARA>::Holds());
  EXPECT_EQ(LastFailure().text, "Es geht nicht.");
}

TEST_F(Lohn, WhoStartsAfreshClearsEverySlot) {
  F::F_ARA::fails = true;
  lohn_->ARA(context_, "1", 0);
  lohn_->Belege(context_, "1", 0);
  ClearSlots();
  EXPECT_FALSE(Slot<F::F_ARA>::Holds());
  EXPECT_FALSE(Slot<F::F_Lager>::Holds());
}

}  // namespace
}  // namespace tarvoni

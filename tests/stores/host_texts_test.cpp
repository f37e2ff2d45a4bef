#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/sqlite/public/sqlite_database.h"
#include "src/common/slot.h"
#include "src/context/services/environment.h"
#include "src/entry/c_lohn.h"
#include "src/entry/screens.h"
#include "src/schema/schema.h"
#include "suite/tarvoni_suite.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using std::string_literals::operator""s;

constexpr std::size_t kMuch = 10'000;

// A host that calls on a client with one stores document of one position, with texts that no script can hold.
class HostTexts : public ::testing::Test {
 protected:
  HostTexts() {
    db_->Execute(SchemaSql());
    db_->Execute(R"(
INSERT INTO OPTIONEN (PROPERTY_ID, TEXT_VALUE) VALUES ('STANDARD_FWJ', '2024')
SET IDENTITY_INSERT PERSONAL ON
INSERT INTO PERSONAL (ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, MANDANTEN) VALUES (7, 5000, 'Stift', 1)
SET IDENTITY_INSERT PERSONAL OFF
INSERT INTO T_KATEGORIE (NUMMER, LONG) VALUES (1, 'Holz')
INSERT INTO LAGER (NUMMER, PERSONAL_ID) VALUES ('L-1', 7)
INSERT INTO LAGER_POS (LAGER_ID, MENGE) VALUES (1, 5))");
    context_.dbAdo = db_;
  }
  ~HostTexts() override {
    lohn_->Release();
    ClearSlots();
  }

  Result Lager(const std::string& client, std::string& selection, std::string& formula) {
    shown_ = false;
    toolkit_.script = [this](UserActions& user) {
      shown_ = true;
      user.Close();
    };
    return lohn_->Lager(context_, client, 0, selection, formula);
  }

  Result NewRechnung(std::string& name, const std::string& old_name, const char* press) {
    shown_ = false;
    toolkit_.script = [this, press](UserActions& user) {
      shown_ = true;
      user.Click(*user.Screen().Find(press));
      if (!toolkit_.prompts.empty()) user.Close();
    };
    return lohn_->NewRechnung(context_, name, 7, old_name);
  }

  std::shared_ptr<Connection> db_ = sqlite::OpenDatabase(":memory:", {.create = true});
  TvnVar_Dll context_;
  test::QuietToolkit toolkit_;
  TarvoniSuite suite_;
  Environment environment_{
      .toolkit = &toolkit_, .suite = &suite_, .connect = [this](const std::string&) { return db_; }};
  EnvironmentScope scope_{environment_};
  _c_Lohn* lohn_ = new c_Lohn<Screens>;
  bool shown_ = false;
};

TEST_F(HostTexts, WhatNamesNoClientFailsTheCallBeforeAScreenIsShown) {
  const std::vector<std::string> texts = {"",
                                          " ",
                                          "F_POS",
                                          "f_pos ",
                                          "F_POSF_POS7",
                                          "F_POS7; DROP TABLE LAGER",
                                          "7' OR '1'='1",
                                          "7\0"s,
                                          "F_POS\0"s,
                                          "F_POS7\0008"s,
                                          "\xff\xfe",
                                          "2147483648",
                                          "F_POS-2147483649",
                                          std::string(kMuch, '7'),
                                          std::string(kMuch, 'x'),
                                          "F_POS" + std::string(kMuch, '9')};
  for (const std::string& text : texts) {
    std::string selection = "bitte", formula;
    EXPECT_TRUE(Failed(Lager(text, selection, formula))) << text;
    EXPECT_THAT(LastFailure().text, Not(IsEmpty())) << text;
    EXPECT_EQ(LastFailure().screen, "F_Lager") << text;
    EXPECT_FALSE(shown_) << text;
    EXPECT_EQ(selection, "bitte") << text;
  }
  // The instance stays in its slot, and the next call goes on with it.
  std::string selection, formula;
  EXPECT_EQ(Lager("f_Pos7", selection, formula), kResultOk);
  EXPECT_TRUE(shown_);
  EXPECT_THAT(toolkit_.prompts, IsEmpty());
}

TEST_F(HostTexts, WhatIsHandedThroughComesBackAsItWas) {
  const std::string much = std::string(kMuch, '\'') + "\0; DROP TABLE LAGER --\xff"s;
  std::string selection = much, formula = much;
  EXPECT_EQ(Lager("F_POS7", selection, formula), kResultOk);
  EXPECT_EQ(selection, much);
  EXPECT_EQ(formula, much);
}

TEST_F(HostTexts, APositionTakesThePlaceOfWhateverTheSelectionHeld) {
  std::string selection = "\0 "s + std::string(kMuch, '%'), formula;
  toolkit_.script = [this](UserActions& user) {
    toolkit_.script = [](UserActions& goods) { goods.Click(*goods.Screen().Find("cmdSet")); };
    user.Click(*user.Screen().Find("btnPositionen"));
  };
  EXPECT_EQ(lohn_->Lager(context_, "F_POS7", 0, selection, formula), kResultOk);
  EXPECT_EQ(selection, "F_POS1");
}

TEST_F(HostTexts, AnOldInvoiceNameOfAnyKindProposesItsPartsOrFails) {
  std::string name = "vorher";
  EXPECT_EQ(NewRechnung(name, "202350001H" + std::string(kMuch, 'x'), "cmdOK"), kResultOk);
  EXPECT_EQ(name, "202350001");
  EXPECT_EQ(NewRechnung(name, "20ä350001", "cmdOK"), kResultOk);  // letters count, not bytes
  EXPECT_EQ(name, "20ä350001");
  EXPECT_EQ(NewRechnung(name, "20235000", "cmdOK"), kResultOk);  // without a category
  EXPECT_EQ(name, "");
  EXPECT_THAT(toolkit_.prompts, ::testing::ElementsAre(HasSubstr("fehlt")));

  for (const std::string& text : {"2023\0\0\0\0001"s, "2023A' -1"s, "20235000'"s, std::string(kMuch, '\'')}) {
    name = "vorher";
    EXPECT_TRUE(Failed(NewRechnung(name, text, "cmdCancel"))) << text;
    EXPECT_FALSE(shown_) << text;
    EXPECT_EQ(name, "vorher") << text;
  }
  EXPECT_EQ(NewRechnung(name, "", "cmdCancel"), kResultOk);
  EXPECT_EQ(name, "");
}

}  // namespace
}  // namespace tarvoni

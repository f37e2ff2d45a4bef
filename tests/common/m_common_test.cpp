#include "src/common/m_common.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/values/clock.h"
#include "tests/support/fake_connection.h"
#include "tests/support/fake_suite.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni {
namespace {

using test::Chars;
using test::FakeConnection;
using test::Rows;
using test::Whole;
using testing::ElementsAre;
using testing::IsEmpty;

struct Boxes : Form {
  Boxes() : Form("Boxes") {}
  TextBox txtA{*this, "txtA"};
  TextBox txtB{*this, "txtB"};
  TextBox txtC{*this, "txtC"};
  Button btnOk{*this, "btnOk"};
  ComboBox cmb{*this, "cmb"};
  Frame frm{*this, "frm"};
};

class MCommon : public testing::Test {
 protected:
  MCommon() {
    ctx.dbAdo = db;
    form.Load();
  }

  void Code(const std::string& statement, std::vector<Value> cells) {
    db->Answer(statement, Rows({Chars("V")}, cells));
  }

  std::shared_ptr<FakeConnection> db = std::make_shared<FakeConnection>();
  test::FakeSuite suite;
  test::QuietToolkit toolkit;
  Environment environment{.toolkit = &toolkit, .suite = &suite, .connect = {}};
  EnvironmentScope scope{environment};
  TvnVar_Dll ctx;
  Boxes form;
};

TEST_F(MCommon, UnknownOptionIsCreatedOnce) {
  db->Answer("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'X'", Rows({Whole("NUMBER_VALUE")}));
  EXPECT_EQ(GetOptionNumber("X", *db), 0);
  db->Answer("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'X'",
             Rows({Whole("NUMBER_VALUE")}, {2.6}));
  EXPECT_EQ(GetOptionNumber("X", *db), 3);
  EXPECT_THAT(db->Log(), ElementsAre("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'X'",
                                     "INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('X', 0 )",
                                     "SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'X'"));
}

TEST_F(MCommon, UnknownTextOptionIsCreatedWithTwoBlanks) {
  db->Answer("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'FWJ'", Rows({Chars("TEXT_VALUE")}));
  EXPECT_EQ(GetOptionText("FWJ", *db), "");
  EXPECT_EQ(db->Log().back(), "INSERT INTO OPTIONEN (PROPERTY_ID)  VALUES ('FWJ')");
  db->Answer("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'FWJ'",
             Rows({Chars("TEXT_VALUE")}, {Null{}}));
  EXPECT_EQ(GetOptionText("FWJ", *db), "") << "NULL reads as empty";
}

TEST_F(MCommon, CodesAndNamesById) {
  Code("SELECT NUMBER FROM KOSTENART WHERE ID = 1", {std::int64_t{0}});
  Code("SELECT NUMBER FROM KOSTENART WHERE ID = 2", {std::int64_t{410}});
  Code("SELECT NUMBER FROM KOSTENART WHERE ID = 3", {});
  EXPECT_EQ(GetNumberById("KOSTENART", 1, ctx), "") << "the code 0 shows as empty";
  EXPECT_EQ(GetNumberById("KOSTENART", 2, ctx), "410");
  EXPECT_EQ(GetNumberById("KOSTENART", 3, ctx), "");
  Code("SELECT NAME FROM KOSTENART WHERE ID = 3", {});
  EXPECT_EQ(GetNameById("KOSTENART", 3, *db), "");
}

TEST_F(MCommon, PersonWhoDoesNotExistIsAnError) {
  Code("SELECT KOSTENART FROM PERSONAL  WHERE ID_PERSONAL = 9", {});
  EXPECT_THROW(GetPersonalColumn("KOSTENART", 9, *db), DatabaseError);
  EXPECT_EQ(GetIdByNumberText("KOSTENART", "1", 9, *db), 0) << "but this routine keeps errors to itself";
}

TEST_F(MCommon, IdByNumberHidesDisabledRowsOfSomeTablesOnly) {
  Code("SELECT HH_TITEL FROM PERSONAL  WHERE ID_PERSONAL = 7", {std::string("SET1")});
  Code("SELECT OBJEKT FROM PERSONAL  WHERE ID_PERSONAL = 7", {std::string("SET1")});
  Code("SELECT ZUHLUNGSART FROM PERSONAL  WHERE ID_PERSONAL = 7", {std::string("SET1")});
  Code("SELECT MWST FROM PERSONAL  WHERE ID_PERSONAL = 7", {std::string("SET1")});
  Code(
      "SELECT ID  FROM HH_TITEL WHERE (DISABLE = 0 OR DISABLE IS NULL) and NUMBER = '12' AND TABLE_NAME = "
      "'SET1' ",
      {std::int64_t{1}});
  Code("SELECT ID  FROM OBJEKT WHERE NUMBER = '12' AND TABLE_NAME = 'SET1' ", {std::int64_t{2}});
  Code(
      "SELECT ID  FROM ZUHLUNGSART WHERE (DISABLE = 0 OR DISABLE IS NULL) and NUMBER = '12' AND TABLE_NAME = "
      "'SET1' ",
      {std::int64_t{3}});
  Code("SELECT ID  FROM MWST WHERE NUMBER = 12 AND TABLE_NAME = 'SET1'  AND X = 1", {std::int64_t{4}});
  EXPECT_EQ(GetIdByNumberText("HH_TITEL", "12", 7, *db), 1);
  EXPECT_EQ(GetIdByNumberText("OBJEKT", "12", 7, *db), 2);
  EXPECT_EQ(GetIdByNumberFiltered("ZUHLUNGSART", "12", 7, *db, " AND X = 1"), 3);
  EXPECT_EQ(GetIdByNumberFiltered("MWST", "12", 7, *db, " AND X = 1"), 4);
  db->ClearLog();
  EXPECT_EQ(GetIdByNumberText("OBJEKT", "", 7, *db), 0);
  EXPECT_THAT(db->Log(), IsEmpty());
  EXPECT_EQ(GetIdByNumberText("OBJEKT", "1' OR '1'='1", 7, *db), 0);
  EXPECT_EQ(db->Log().size(), 1U) << "the client's set was read, the code never sent";
}

TEST_F(MCommon, WaldortTextJoinsItsPath) {
  const std::vector<Column> columns = {Chars("WO1"), Chars("WO2"), Chars("WO3"),     Chars("WO4"),
                                       Chars("WO5"), Chars("WO6"), Chars("LANGNAME")};
  const auto place = [&](int id, std::vector<Value> cells) {
    db->Answer(
        "SELECT WO1,WO2,WO3,WO4,WO5,WO6,LANGNAME FROM WALDORT WHERE ID_WALDORT = " + std::to_string(id),
        Rows(columns, std::move(cells)));
  };
  place(1, {std::string("R1"), std::string("12"), Null{}, std::string("a"), Null{}, Null{},
            std::string("Am Bach")});
  place(2, {Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}});
  place(3, {});
  std::int32_t id = 1;
  EXPECT_EQ(GetWaldortText(id, ctx, false), "R1/ 12/ a: Am Bach");
  EXPECT_EQ(GetWaldortText(id, ctx, true), "R1/ 12/ a");
  id = 2;
  EXPECT_EQ(GetWaldortText(id, ctx, false), "M3442");
  id = 3;
  EXPECT_EQ(GetWaldortText(id, ctx, false), "");
  EXPECT_EQ(id, 0);
}

TEST_F(MCommon, MachineCostTypesAreJoined) {
  const std::string statement =
      "SELECT KOSTENART.NUMBER\nFROM KOSTENART\n"
      "WHERE ID IN (SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = 'EIG')";
  Code(statement, {std::int64_t{410}, std::int64_t{420}});
  EXPECT_EQ(GetMachineCostTypeNumbers("EIG", *db), "410, 420");
  Code(statement, {});
  EXPECT_EQ(GetMachineCostTypeNumbers("EIG", *db), "");
}

TEST_F(MCommon, NumericKeyFilterPassesDigitsAndOneSeparator) {
  EXPECT_EQ(NumericKeyFilter('7', false, ""), '7');
  EXPECT_EQ(NumericKeyFilter(8, false, ""), 8);
  EXPECT_EQ(NumericKeyFilter(13, false, ""), 13);
  EXPECT_EQ(NumericKeyFilter(',', true, "12"), ',');
  EXPECT_EQ(NumericKeyFilter(',', true, "1,2"), 0);
  EXPECT_EQ(NumericKeyFilter(',', false, "12"), 0);
  EXPECT_EQ(NumericKeyFilter('.', true, "12"), 0);
  EXPECT_EQ(NumericKeyFilter('-', true, ""), 0);
  environment.locale = Locale::English();
  EXPECT_EQ(NumericKeyFilter('.', true, "12"), '.');
}

TEST_F(MCommon, TypedKeyFilterFollowsTheColumnAndAsksItOnce) {
  db->Answer("SELECT TOP 0 NUMBER FROM KAPITEL",
             Rows({{.name = "NUMBER", .type = FieldType::kSmallInt, .size = 0}}));
  const auto shown = toolkit.Show(form, form.txtA);
  form.txtA.SetText("3276");
  EXPECT_EQ(TypedKeyFilter('7', "KAPITEL", "NUMBER", ctx), '7');
  EXPECT_THAT(toolkit.prompts, IsEmpty());
  EXPECT_EQ(TypedKeyFilter('8', "KAPITEL", "NUMBER", ctx), 0);
  EXPECT_EQ(TypedKeyFilter('x', "KAPITEL", "NUMBER", ctx), 0);
  EXPECT_THAT(toolkit.prompts, ElementsAre("M199", "M199"));
  EXPECT_EQ(TypedKeyFilter(kKeyBackspace, "KAPITEL", "NUMBER", ctx), kKeyBackspace);
  EXPECT_EQ(TypedKeyFilter(kKeyEnter, "KAPITEL", "NUMBER", ctx), kKeyEnter);
  form.txtA.SetText("");
  EXPECT_EQ(TypedKeyFilter('-', "KAPITEL", "NUMBER", ctx), '-') << "a minus is no number yet";
  EXPECT_THAT(db->Log(), ElementsAre("SELECT TOP 0 NUMBER FROM KAPITEL"));
}

TEST_F(MCommon, TypedKeyFilterByType) {
  const auto passes = [&](FieldType type, const char* text, char key) {
    const std::string table = "T" + std::to_string(static_cast<int>(type));
    db->Answer("SELECT TOP 0 C FROM " + table, Rows({{.name = "C", .type = type, .size = 0}}));
    form.txtA.SetText(text);
    return TypedKeyFilter(key, table, "C", ctx) == key;
  };
  const auto shown = toolkit.Show(form, form.txtA);
  EXPECT_TRUE(passes(FieldType::kUnsignedTinyInt, "25", '5'));
  EXPECT_FALSE(passes(FieldType::kUnsignedTinyInt, "25", '6'));
  EXPECT_TRUE(passes(FieldType::kInteger, "214748364", '7'));
  EXPECT_FALSE(passes(FieldType::kInteger, "214748364", '8'));
  EXPECT_TRUE(passes(FieldType::kNumeric, "1,2", '5'));
  EXPECT_FALSE(passes(FieldType::kNumeric, "1,2", ','));
  EXPECT_TRUE(passes(FieldType::kVarChar, "1,2", 'x'));
}

TEST_F(MCommon, LockedBoxesAreSkippedByColour) {
  EXPECT_EQ(form.txtB.BackColor(), kWindowBackground);
  SetTextBoxLocked(true, form.txtB);
  EXPECT_TRUE(form.txtB.Locked());
  EXPECT_FALSE(form.txtB.TabStop());
  EXPECT_EQ(form.txtB.BackColor(), kButtonFace);
  SetTextBoxLocked(true, form.cmb);
  EXPECT_TRUE(form.cmb.Locked());
  EXPECT_EQ(form.cmb.BackColor(), kButtonFace);
  int order = 0;
  for (Control* control : form.Controls()) control->SetTabIndex(order++);
  const auto shown = toolkit.Show(form, form.txtA);
  FocusNextEditableTextBox(form);
  EXPECT_TRUE(form.txtC.HasFocus());
  FocusNextEditableTextBox(form);
  EXPECT_TRUE(form.txtC.HasFocus()) << "the last box keeps it";
}

TEST_F(MCommon, SafeSetFocusIgnoresWhatCannotTakeIt) {
  const auto shown = toolkit.Show(form, form.txtA);
  form.txtB.SetVisible(false);
  SafeSetFocus(form.txtB);
  form.txtC.SetEnabled(false);
  SafeSetFocus(form.txtC);
  EXPECT_TRUE(form.txtA.HasFocus());
  SafeSetFocus(form.btnOk);
  EXPECT_TRUE(form.btnOk.HasFocus());
}

TEST_F(MCommon, FindComboTextTakesTheLastMatchAndFiresTwice) {
  for (const char* text : {"EUR", "czk", "CZK"}) form.cmb.AddItem(text);
  int clicks = 0;
  form.cmb.Click = [&] { ++clicks; };
  FindComboText(form.cmb, "Czk");
  EXPECT_EQ(form.cmb.ListIndex(), 2);
  EXPECT_EQ(clicks, 2);
  FindComboText(form.cmb, "USD");
  EXPECT_EQ(form.cmb.ListIndex(), -1);
  EXPECT_EQ(form.cmb.Text(), "");
}

TEST_F(MCommon, FindComboItemDataKeepsTheChoiceForAnUnknownNumber) {
  form.cmb.AddItem("fm", 5);
  form.cmb.AddItem("rm", 6);
  FindComboItemData(form.cmb, 6);
  EXPECT_EQ(form.cmb.ListIndex(), 1);
  FindComboItemData(form.cmb, 7);
  EXPECT_EQ(form.cmb.ListIndex(), 1);
  FindComboItemData(form.cmb, 0);
  EXPECT_EQ(form.cmb.ListIndex(), -1);
}

TEST_F(MCommon, MessagesHaveTheSystemsTitleAndSentence) {
  toolkit.answer = kAnswerYes;
  EXPECT_EQ(AppMsgBox("Sicher?", 36), 6);
  EXPECT_EQ(toolkit.titles.back(), "Tarvoni");
  AppMsgBox("x", 0, "Titel");
  EXPECT_EQ(toolkit.titles.back(), "Titel");
  ReportMissingField("Kapitel", true, ctx);
  ReportMissingField("Kapitel", false, ctx);
  EXPECT_THAT(toolkit.prompts, ElementsAre("Sicher?", "x", "M1427 Kapitel M1214"));
  EXPECT_EQ(toolkit.styles.back(), 48);
}

TEST_F(MCommon, SelectActiveTextSelectsByCharacters) {
  const auto shown = toolkit.Show(form, form.txtA);
  form.txtA.SetText("Föhre");
  SelectActiveText();
  EXPECT_EQ(form.txtA.SelStart(), 0);
  EXPECT_EQ(form.txtA.SelLength(), 5);
  EXPECT_EQ(form.txtA.SelText(), "Föhre");
}

}  // namespace
}  // namespace tarvoni

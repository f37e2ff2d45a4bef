#include "suite/named_field_validator.h"

#include <gtest/gtest.h>

#include "suite/message_service.h"
#include "tests/host/demo_database.h"
#include "tests/suite/demo_context.h"
#include "tests/support/fake_suite.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni::suite {
namespace {

class Fields : public Form {
 public:
  Fields() : Form("F_Fields") {
    lblObjekt.SetCaption("&Objekt");
    lblKostenstelle.SetCaption("Kostenstelle");
  }
  Label lblObjekt{*this, "lblObjekt"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  TextBox txtObjektN{*this, "txtObjektN"};
  TextBox txtObjekt{*this, "txtObjekt"};
  ControlArray<TextBox, 2> txtKostenstelle{*this, "txtKostenstelle"};
  TextBox txtLose{*this, "txtLose"};
  TextBox code{*this, "code"};
};

class Texts : public test::FakeSuite {
 public:
  tarvoni::MessageService& Messages() override { return messages_; }

 private:
  suite::MessageService messages_;
};

class FieldCheck : public ::testing::Test {
 protected:
  bool Validate(const SqlText& sql, TextBox& code, const std::string& name_column = {},
                TextBox* name = nullptr, TextBox* id = nullptr, bool report = true) {
    return validator_.Validate(context_, report, sql, &code, id, name_column, name, "");
  }

  test::QuietToolkit toolkit_;
  Texts suite_;
  Environment environment_{.toolkit = &toolkit_, .suite = &suite_};
  EnvironmentScope scope_{environment_};
  TvnVar_Dll context_ = ContextOf(host::Demo());
  NamedFieldValidator validator_;
  Fields form_;
};

TEST_F(FieldCheck, FillsTheBoxesFromTheRow) {
  form_.txtObjektN.SetText("010");
  EXPECT_TRUE(Validate("SELECT ID,NUMBER AS NUMMER,NAME AS [LONG] FROM OBJEKT WHERE ID = 301",
                       form_.txtObjektN, "LONG", &form_.txtObjekt, &form_.txtLose));
  EXPECT_EQ(form_.txtObjektN.Text(), "10");
  EXPECT_EQ(form_.txtObjektN.Tag(), "301");
  EXPECT_EQ(form_.txtObjekt.Text(), "Forsthaus");
  EXPECT_EQ(form_.txtLose.Text(), "301");
  EXPECT_TRUE(toolkit_.prompts.empty());
}

TEST_F(FieldCheck, LeavesTheCodeOfAStatementThatGivesNone) {
  form_.code.SetText("fi");
  form_.txtLose.SetText("stays");
  EXPECT_TRUE(Validate("SELECT ID FROM HOLZART WHERE HA = 'FI'", form_.code, "", &form_.txtLose));
  EXPECT_EQ(form_.code.Text(), "fi");
  EXPECT_EQ(form_.code.Tag(), "1");
  EXPECT_EQ(form_.txtLose.Text(), "stays");
  EXPECT_TRUE(validator_.Validate(context_, true, "SELECT ID,HA FROM HOLZART WHERE ID = 1", nullptr, nullptr,
                                  "", nullptr, ""));
}

TEST_F(FieldCheck, ClearsAllAndTellsWhichFieldHasNoRow) {
  const SqlText none = "SELECT ID,NUMBER,NAME FROM OBJEKT WHERE 1 = 0";
  for (TextBox* box :
       {&form_.txtObjektN, &form_.txtObjekt, &form_.txtLose, &form_.txtKostenstelle[0], &form_.code}) {
    box->SetText("99");
    box->SetTag("7");
  }
  EXPECT_FALSE(Validate(none, form_.txtObjektN, "NAME", &form_.txtObjekt, &form_.txtLose));
  for (const TextBox* box : {&form_.txtObjektN, &form_.txtObjekt, &form_.txtLose}) {
    EXPECT_EQ(box->Text() + box->Tag(), "") << box->Name();
  }
  EXPECT_FALSE(Validate(none, form_.txtKostenstelle[0]));
  EXPECT_FALSE(Validate(none, form_.code));
  EXPECT_EQ(toolkit_.prompts, (std::vector<std::string>{"Die Angabe Objekt '99' ist nicht vorhanden.",
                                                        "Die Angabe Kostenstelle '99' ist nicht vorhanden.",
                                                        "Die Angabe '99' ist nicht vorhanden."}));
  EXPECT_EQ(toolkit_.titles.front(), "Tarvoni");
  EXPECT_EQ(toolkit_.styles.front(), 48);
}

TEST_F(FieldCheck, KeepsQuietWhileAScreenFillsItsFields) {
  form_.code.SetText("99");
  EXPECT_FALSE(Validate("SELECT ID FROM OBJEKT WHERE 1 = 0", form_.code, "", nullptr, nullptr, false));
  EXPECT_TRUE(form_.code.Empty());
  EXPECT_TRUE(toolkit_.prompts.empty());
}

TEST_F(FieldCheck, ReadsOneColumn) {
  EXPECT_EQ(validator_.ReadColumn(context_, "SELECT NUMBER,ID FROM OBJEKT WHERE ID = 301", "ID"),
            Value(std::int64_t{301}));
  EXPECT_EQ(validator_.ReadColumn(context_, "SELECT ID FROM OBJEKT WHERE 1 = 0", "ID"), Value(Null{}));
  EXPECT_THROW(validator_.ReadColumn(context_, "SELECT ID FROM OBJEKT WHERE ID = 301", "OBJEKT_ID"),
               DatabaseError);
  EXPECT_THROW(validator_.ReadColumn({}, "SELECT 1", "ID"), CallError);
}

}  // namespace
}  // namespace tarvoni::suite

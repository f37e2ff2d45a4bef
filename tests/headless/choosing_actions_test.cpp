#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/services/mnemonics.h"
#include "src/context/services/user_actions.h"
#include "tests/support/events.h"
#include "tests/support/fake_connection.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni {
namespace {

using test::FakeConnection;
using test::QuietToolkit;
using test::Replace;
using testing::ElementsAre;
using testing::IsEmpty;

// The widgets with a value of their own.
struct Choices : Form {
  Choices() : Form("F_Choices") { Load(); }
  layout::Node BuildLayout() override {
    using namespace layout;
    return Tabs(SSTab1, Page("Eins", Check(chk, "Zaunbau"), Option(optHa, "ha"), Option(optMenge, "Menge")),
                Page("Zwei", Row("", Box(txt)), Row("", Box(dtp))));
  }
  TabControl SSTab1{*this, "SSTab1"};
  CheckBox chk{*this, "chk"};
  OptionButton optHa{*this, "optHa"};
  OptionButton optMenge{*this, "optMenge"};
  TextBox txt{*this, "txt"};
  DateControl dtp{*this, "dtp"};
  ListBox list{*this, "list"};
};

TEST(Choosing, TabsChecksOptionsAndDates) {
  QuietToolkit toolkit;
  Choices form;
  const auto shown = toolkit.Show(form, form.chk);
  UserActions& user = shown->user;
  int clicks = 0;
  Replace(form.chk.Click, [&] { ++clicks; });
  user.Click(form.chk);
  form.chk.SetValue(1);
  EXPECT_TRUE(form.chk.Checked());
  EXPECT_EQ(clicks, 1) << "only a change clicks";
  user.Click(form.optMenge);
  user.Click(form.optHa);
  EXPECT_FALSE(form.optMenge.Value());
  EXPECT_FALSE(form.txt.IsVisible()) << "on the other tab";
  form.SSTab1.SetTabEnabled(1, false);
  user.ChooseTab(form.SSTab1, 1);
  EXPECT_EQ(form.SSTab1.Tab(), 0);
  form.SSTab1.SetTabEnabled(1, true);
  user.ChooseTab(form.SSTab1, 1);
  EXPECT_TRUE(form.txt.IsVisible());
  form.dtp.SetLimits({.year = 1901, .month = 1, .day = 1}, {.year = 2079, .month = 1, .day = 1});
  user.ChooseDate(form.dtp, DateTime{.year = 2100, .month = 5, .day = 1});
  EXPECT_EQ(form.dtp.Value(), (DateTime{.year = 2079, .month = 1, .day = 1}));
}

TEST(Choosing, ATabHasALetterThatTurnsToIt) {
  QuietToolkit toolkit;
  Choices form;
  const auto shown = toolkit.Show(form, form.chk);
  EXPECT_EQ(CaptionWithMnemonic(form.SSTab1.Page(0)), "&Eins");
  EXPECT_EQ(CaptionWithMnemonic(form.SSTab1.Page(1)), "Z&wei") << "Zaunbau has the Z";
  EXPECT_TRUE(shown->user.Mnemonic(U'w'));
  EXPECT_EQ(form.SSTab1.Tab(), 1);
  EXPECT_TRUE(form.SSTab1.HasFocus());
}

TEST(Choosing, CtrlWithTabOrAPageKeyTurnsToAnotherTab) {
  QuietToolkit toolkit;
  Choices form;
  const auto shown = toolkit.Show(form, form.chk);
  UserActions& user = shown->user;
  user.Key(kKeyTab, 2);
  EXPECT_EQ(form.SSTab1.Tab(), 1);
  EXPECT_TRUE(form.txt.HasFocus()) << "who was on a page goes on on the other";
  user.Key(kKeyPageDown, 2);
  EXPECT_EQ(form.SSTab1.Tab(), 0) << "round the end";
  form.SSTab1.SetTabEnabled(1, false);
  user.Key(kKeyTab, 3);
  EXPECT_EQ(form.SSTab1.Tab(), 0);
}

TEST(Choosing, ListClicksOnAChangeOnlyAndFollowsRemovedItems) {
  QuietToolkit toolkit;
  Choices form;
  for (const char* item : {"a", "b", "c"}) form.list.AddItem(item);
  int clicks = 0;
  Replace(form.list.Click, [&] { ++clicks; });
  const auto shown = toolkit.Show(form, form.list);
  UserActions& user = shown->user;
  user.SelectItem(form.list, 2);
  user.SelectItem(form.list, 2);
  EXPECT_EQ(clicks, 1);
  form.list.RemoveItem(0);
  EXPECT_EQ(form.list.Text(), "c");
  form.list.RemoveItem(1);
  EXPECT_EQ(form.list.ListIndex(), -1);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace tarvoni

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/common/box_rules.h"
#include "src/common/date_field.h"
#include "src/common/screen.h"
#include "src/common/table_code.h"
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

constexpr std::int32_t kClient = 7;

// A Screen with every kind of box that an entry is made in.
struct F_Entry : Screen {
  F_Entry() : Screen("F_Entry") {}
  layout::Node BuildLayout() override {
    using namespace layout;
    return Stack(Row(lblKapitel, "Kapitel", Box(txtKapitelN), Shown(txtKapitel)),
                 Row(lblDatum, "Datum", Box(txtDatum)), Row(lblRech, "Rechnung", Box(txtRech)),
                 Row("", Box(txtEinheit), Box(dtpHaus)),
                 Row("", Option(optMenge, "pro Menge"), Option(optHa, "pro ha")),
                 Bar(Push(btnOk, "Schließen")));
  }
  void Run(const TvnVar_Dll& tvnvar) {
    Present(tvnvar, [] {});
  }
  using Screen::Context;
  int DateYear() const override { return 2023; }

  Guard loading;
  Label lblKapitel{*this, "lblKapitel"};
  Label lblDatum{*this, "lblDatum"};
  Label lblRech{*this, "lblRech"};
  TextBox txtKapitelN{*this, "txtKapitelN"};
  TextBox txtKapitel{*this, "txtKapitel"};
  TextBox txtDatum{*this, "txtDatum"};
  TextBox txtRech{*this, "txtRech"};
  ComboBox txtEinheit{*this, "txtEinheit"};
  DateControl dtpHaus{*this, "dtpHaus"};
  OptionButton optMenge{*this, "optMenge"};
  OptionButton optHa{*this, "optHa"};
  Button btnOk{*this, "btnOk"};
};

class EntryFields : public testing::Test {
 protected:
  EntryFields() {
    ctx.dbAdo = db;
    Clock::Set({.year = 2026, .month = 11, .day = 23});
    screen.Run(ctx);
  }
  ~EntryFields() override { Clock::Reset(); }

  void Follow(CodeField& field) {
    SelectOnFocus(field.Box());
    Rules(field.Box()).Code(field);
  }
  void Follow(DateField& field) {
    SelectOnFocus(field.Box());
    Rules(field.Box()).Date(field);
  }

  std::shared_ptr<FakeConnection> db = std::make_shared<FakeConnection>();
  test::FakeSuite suite;
  test::QuietToolkit toolkit;
  Environment environment{.toolkit = &toolkit, .suite = &suite, .connect = {}};
  EnvironmentScope scope{environment};
  TvnVar_Dll ctx;
  F_Entry screen;
  TextBox& code = screen.txtKapitelN;
  TextBox& date = screen.txtDatum;
};

class TableCodes : public EntryFields {
 protected:
  TableCodes() {
    db->Answer("SELECT HH_KAPITEL FROM PERSONAL  WHERE ID_PERSONAL = 7",
               Rows({Chars("HH_KAPITEL")}, {std::string("SET1")}));
    const std::string known =
        "SELECT ID  FROM HH_KAPITEL WHERE (DISABLE = 0 OR DISABLE IS NULL) and NUMBER = '12' AND TABLE_NAME "
        "= "
        "'SET1' ";
    db->Answer(known, Rows({Whole("ID")}, {std::int64_t{31}}));
    db->Answer("SELECT NAME FROM HH_KAPITEL WHERE ID = 31",
               Rows({Chars("NAME")}, {std::string("Forstverwaltung")}));
  }

  CodeField::Rule Rule() {
    return TableCode(screen.Context(), screen.lblKapitel, "HH_KAPITEL", [] { return kClient; });
  }
  std::string Shown() const { return code.Text() + "|" + code.Tag() + "|" + screen.txtKapitel.Text(); }
};

TEST_F(TableCodes, KnownNumberShowsItsNameAndAnUnknownOneIsTold) {
  CodeField field(screen.Context(), screen.loading, code, &screen.txtKapitel, Rule());
  Follow(field);
  const auto shown = toolkit.Show(screen, code);
  shown->user.Type("12");
  shown->user.Tab();
  EXPECT_EQ(Shown(), "12|31|Forstverwaltung");
  shown->user.Focus(code);
  shown->user.Type("99");
  shown->user.Tab();
  EXPECT_THAT(toolkit.prompts, ElementsAre("M1427 Kapitel M1214"));
  EXPECT_EQ(Shown(), "||");
  EXPECT_TRUE(code.HasFocus());
  shown->user.Tab();
  EXPECT_FALSE(code.HasFocus()) << "an empty box may be left";
  const auto hold = screen.loading.Hold();
  code.SetText("99");
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(toolkit.prompts.size(), 1U) << "nothing is told while the Screen fills its fields";
}

TEST_F(TableCodes, PaymentCodesHideDisabledRowsOnlyWhenFiltered) {
  db->Answer("SELECT ZUHLUNGSART FROM PERSONAL  WHERE ID_PERSONAL = 7",
             Rows({Chars("ZUHLUNGSART")}, {std::string("SET1")}));
  const auto asked = [&](IdByNumber by) {
    db->ClearLog();
    TableCode(
        screen.Context(), screen.lblKapitel, "ZUHLUNGSART", [] { return kClient; }, by)
        .find("5");
    return db->Log().back();
  };
  EXPECT_THAT(asked(IdByNumber::kFiltered), testing::HasSubstr("DISABLE"));
  EXPECT_THAT(asked(IdByNumber::kText), testing::Not(testing::HasSubstr("DISABLE")));
}

TEST_F(TableCodes, ListOffersTheClientsCodesInUse) {
  const std::string offered =
      "SELECT NUMBER , NAME\nFROM HH_KAPITEL\nWHERE (DISABLE = 0 OR DISABLE IS NULL) and TABLE_NAME = 'SET1'";
  db->Answer(offered, Rows({Chars("NUMBER"), Chars("NAME")}, {std::string("12"), std::string("Forst")}));
  CodeField field(screen.Context(), screen.loading, code, &screen.txtKapitel, Rule());
  Follow(field);
  toolkit.pick = [](const PickRequest& request) {
    EXPECT_EQ(request.caption, "Kapitel");
    return PickResult{.row = 0, .extra = false};
  };
  field.Lookup();
  EXPECT_EQ(Shown(), "12|31|Forstverwaltung");
}

TEST_F(TableCodes, WrongCodeMayLeaveTheOldTag) {
  CodeField::Rule rule = Rule();
  rule.keeps_tag = true;
  CodeField field(screen.Context(), screen.loading, code, &screen.txtKapitel, std::move(rule));
  Follow(field);
  int changes = 0;
  field.Changed = [&] { ++changes; };
  code.SetTag("31");
  code.SetText("99");
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(Shown(), "|31|");
  EXPECT_EQ(changes, 0);
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(Shown(), "||") << "the emptied box means no code";
}

TEST_F(TableCodes, FurtherButtonMakesANewOneAndTheListOpensAgain) {
  CodeField::Rule rule = Rule();
  std::vector<std::string> starts;
  rule.option = "102";
  rule.offered = []() -> SqlText { return "SELECT NUMBER FROM NEW"; };
  rule.make_new = [&] { code.SetText("12"); };
  db->Answer("SELECT NUMBER FROM NEW", Rows({Chars("NUMBER")}, {std::string("11"), std::string("12")}));
  CodeField field(screen.Context(), screen.loading, code, &screen.txtKapitel, std::move(rule));
  Follow(field);
  toolkit.pick = [&](const PickRequest& request) {
    starts.push_back(request.start_text);
    return starts.size() == 1 ? PickResult{.row = {}, .extra = true} : PickResult{.row = 1, .extra = false};
  };
  field.Lookup();
  EXPECT_THAT(starts, ElementsAre("", "12"));
  EXPECT_EQ(Shown(), "12|31|Forstverwaltung");
}

TEST_F(EntryFields, TypedDateIsRewrittenInTheYearItShowed) {
  DateField field(screen.Context(), screen.loading, date, screen.lblDatum);
  Follow(field);
  field.Show(DateTime{.year = 2024, .month = 12, .day = 31});
  const auto shown = toolkit.Show(screen, date);
  EXPECT_EQ(date.SelLength(), 10);
  shown->user.Type("1.x3,");
  EXPECT_EQ(field.Day(), (DateTime{.year = 2024, .month = 3, .day = 1}));
  shown->user.Tab();
  EXPECT_EQ(date.Text(), "01.03.2024");
  shown->user.Focus(date);
  shown->user.Key(kKeyDelete);
  shown->user.Tab();
  EXPECT_EQ(date.Text(), "") << "no date is no mistake";
  EXPECT_THAT(toolkit.prompts, IsEmpty());
  shown->user.Focus(date);
  shown->user.Type("1.3.");
  shown->user.Tab();
  EXPECT_EQ(date.Text(), "01.03.2023") << "no day shown, so the Screen's year";
}

TEST_F(EntryFields, WrongDateIsToldKeptAndMended) {
  DateField field(screen.Context(), screen.loading, date, screen.lblDatum);
  Follow(field);
  field.Show(DateTime{.year = 2024, .month = 12, .day = 31});
  const auto shown = toolkit.Show(screen, date);
  shown->user.Type("31.4.");
  shown->user.Tab();
  EXPECT_THAT(toolkit.prompts, ElementsAre("M223"));
  EXPECT_EQ(date.Text(), "31.4.");
  EXPECT_TRUE(date.HasFocus());
  shown->user.Type("30.4.");
  shown->user.Tab();
  EXPECT_EQ(date.Text(), "30.04.2024") << "still the year shown before the mistake";
  const auto hold = screen.loading.Hold();
  date.SetText("31.4.");
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(date.Text(), "");
  EXPECT_EQ(toolkit.prompts.size(), 1U);
}

TEST_F(EntryFields, WrongDateMayGoSilently) {
  DateField field(screen.Context(), screen.loading, date, screen.lblDatum, DateField::Wrong::kClear);
  Follow(field);
  date.SetText("31.4.2024");
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(date.Text(), "");
  EXPECT_THAT(toolkit.prompts, IsEmpty());
}

TEST_F(EntryFields, CtrlOpensTheCalendarOnAnOpenBox) {
  DateField field(screen.Context(), screen.loading, date, screen.lblDatum);
  Follow(field);
  std::optional<DateTime> answer = DateTime{.year = 2024, .month = 2, .day = 29};
  int asked = 0;
  toolkit.pick_date = [&](const std::optional<DateTime>&) {
    ++asked;
    return answer;
  };
  const auto shown = toolkit.Show(screen, date);
  shown->user.Lookup();
  EXPECT_EQ(date.Text(), "29.02.2024");
  answer.reset();
  shown->user.Lookup();
  EXPECT_EQ(date.Text(), "29.02.2024") << "cancelled";
  SetTextBoxLocked(true, date);
  shown->user.Lookup();
  EXPECT_EQ(asked, 2);
}

TEST_F(EntryFields, CombosAndDatesSelectMoveOnAndLockAsBoxesDo) {
  int entered = 0;
  ConnectBoxes(screen, [&] { ++entered; });
  screen.txtEinheit.SetEditable(true);
  screen.txtEinheit.AddItem("fm");
  screen.txtEinheit.SetListIndex(0);
  const auto shown = toolkit.Show(screen, screen.txtEinheit);
  EXPECT_EQ(screen.txtEinheit.SelLength(), 2);
  shown->user.Key(kKeyEnter);
  shown->user.Focus(screen.dtpHaus);
  shown->user.Key(kKeyEnter);
  EXPECT_EQ(entered, 2);
  SetTextBoxLocked(true, screen.dtpHaus);
  shown->user.ChooseDate(screen.dtpHaus, Clock::Today());
  EXPECT_EQ(screen.dtpHaus.Value(), std::nullopt);
  EXPECT_FALSE(screen.dtpHaus.TabStop());
  EXPECT_EQ(screen.dtpHaus.BackColor(), kButtonFace);
  screen.txtKapitel.SetText("Forst");
  shown->user.Focus(screen.txtKapitel);
  EXPECT_EQ(screen.txtKapitel.SelLength(), 0) << "what is locked is not selected to be typed over";
}

TEST_F(EntryFields, OptionButtonsHaveAPlaceInALayout) {
  screen.optMenge.SetValue(true);
  const auto shown = toolkit.Show(screen, screen.optHa);
  shown->user.Click(screen.optHa);
  EXPECT_FALSE(screen.optMenge.Value());
  EXPECT_EQ(screen.optHa.Caption(), "pro ha");
}

}  // namespace
}  // namespace tarvoni

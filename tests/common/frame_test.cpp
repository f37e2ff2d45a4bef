#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/common/box_rules.h"
#include "src/common/code_field.h"
#include "src/common/column_writer.h"
#include "src/common/month_fields.h"
#include "src/common/screen.h"
#include "src/common/view_switch.h"
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

constexpr char kList[] = "SELECT ID,NAME,WERT FROM POSITION";

// A small Screen of the usual kind.
class F_Probe : public Screen {
 public:
  F_Probe() : Screen("F_Probe") {
    list.Connect([this] { txtName.SetText(list.Row().Text("NAME")); },
                 [] {
                   return std::vector<ShownColumn>{{.data_field = "NAME", .caption = "Name"},
                                                   AmountColumn("WERT", "Wert", 0)};
                 });
    CloseBy(btnOk);
  }

  void Run(const TvnVar_Dll& tvnvar) {
    Present(tvnvar, [this] {
      list.Load(kList);
      states.Set(true);
    });
  }

  DataControl Data1{*this, "Data1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  TextBox txtName{*this, "txtName"};
  ControlArray<TextBox, 2> txtKonto{*this, "txtKonto"};
  ControlArray<TextBox, 3> txtMonat{*this, "txtMonat", 1};
  TextBox txtTag{*this, "txtTag"};
  TextBox txtMenge{*this, "txtMenge"};
  Label lblKonto{*this, "lblKonto"};
  Button btnNeu{*this, "btnNeu"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnOk{*this, "btnOk"};
  Timer Timer1{*this, "Timer1"};
  Guard loading;
  ViewSwitch states{{&btnNeu, &btnOk, &DataGrid1}, {&btnSpeichern}};
  RowList list{*this, loading, {.data = Data1, .grid = DataGrid1, .layout_key = "F_PROBE"}};
  using Screen::Context;
};

class Frame : public testing::Test {
 protected:
  Frame() {
    db->Answer(kList,
               Rows({Whole("ID"), Chars("NAME"), {.name = "WERT", .type = FieldType::kDouble, .size = 0}},
                    {std::int64_t{1}, std::string("eins"), 1.5, std::int64_t{2}, std::string("zwei"), Null{},
                     std::int64_t{3}, std::string("drei"), -2.0}));
    ctx.dbAdo = db;
    ctx.strConString = "list";
  }

  std::shared_ptr<FakeConnection> db = std::make_shared<FakeConnection>();
  test::FakeSuite suite;
  test::QuietToolkit toolkit;
  Environment environment{
      .toolkit = &toolkit, .suite = &suite, .connect = [this](const std::string&) { return db; }};
  EnvironmentScope scope{environment};
  TvnVar_Dll ctx;
  F_Probe screen;
};

TEST_F(Frame, RunFillsTheListQuietlyAndLoadsTheLayout) {
  screen.Run(ctx);
  EXPECT_EQ(screen.txtName.Text(), "") << "the guard keeps the row event quiet during the refresh";
  EXPECT_THAT(suite.layouts, ElementsAre("load F_PROBE"));
  EXPECT_EQ(suite.bound, &screen);
  EXPECT_FALSE(screen.DataGrid1.Columns()["ID"].Visible());
  EXPECT_EQ(screen.DataGrid1.Columns()["name"].Caption(), "Name");
  EXPECT_EQ(screen.DataGrid1.CellText(0, 2), "1,50");
  EXPECT_EQ(screen.DataGrid1.CellText(1, 2), "");
  screen.Data1.Recordset().MoveNext();
  EXPECT_EQ(screen.txtName.Text(), "zwei");
}

TEST_F(Frame, RowEventStepsBackOntoTheList) {
  screen.Run(ctx);
  EXPECT_FALSE(screen.list.Find(99)) << "behind the last row, where the row event takes the last";
  EXPECT_EQ(screen.txtName.Text(), "drei");
  screen.Data1.Recordset().Move(-9);
  EXPECT_EQ(screen.txtName.Text(), "eins");
  EXPECT_TRUE(screen.list.Find(2));
}

TEST_F(Frame, WidthsSurviveARefreshAndSortingReachesTheGrid) {
  screen.Run(ctx);
  screen.DataGrid1.Columns()["NAME"].SetWidth(4400);
  screen.list.Refresh();
  EXPECT_EQ(screen.DataGrid1.Columns()["NAME"].Width(), 4400);
  screen.Data1.Recordset().Sort("NAME");
  EXPECT_EQ(screen.DataGrid1.CellText(0, 1), "drei");
  EXPECT_EQ(screen.DataGrid1.Row(), 0);
}

TEST_F(Frame, FailedRefreshKeepsTheRowsAndReleasesTheGuard) {
  screen.Run(ctx);
  db->Refuse(kList);
  EXPECT_THROW(screen.list.Refresh(), DatabaseError);
  EXPECT_EQ(screen.DataGrid1.RowCount(), 3);
  EXPECT_FALSE(screen.loading);
}

TEST_F(Frame, NeighbourOfADeletedRow) {
  screen.Run(ctx);
  EXPECT_EQ(screen.list.Neighbour(), 2);
  screen.list.Find(3);
  EXPECT_EQ(screen.list.Neighbour(), 2) << "the last row gives way to the one before";
  EXPECT_EQ(screen.Data1.Recordset().AbsolutePosition(), 3) << "looking moves nothing";
  db->Answer(kList, Rows({Whole("ID"), Chars("NAME"), Chars("WERT")},
                         {std::int64_t{1}, std::string("eins"), Null{}}));
  screen.list.Refresh();
  EXPECT_EQ(screen.list.Neighbour(), 0);
}

TEST_F(Frame, UnloadingIsRefusedWhileEditing) {
  screen.Run(ctx);
  screen.states.Set(false);
  EXPECT_TRUE(screen.btnSpeichern.Enabled());
  EXPECT_FALSE(screen.DataGrid1.Enabled());
  EXPECT_FALSE(screen.Unload());
  EXPECT_TRUE(screen.IsLoaded());
  screen.states.Set(true);
  EXPECT_TRUE(screen.Unload());
}

TEST_F(Frame, ColumnWriterWritesOneColumnAtATime) {
  const ColumnWriter row(ctx, "LAGER", 7);
  row.Number("KAPITEL_ID", "0");
  row.Number("RECHBERTRAG", "0,00", ColumnWriter::Zero::kIsValue);
  row.Number("RECHBERTRAG", "12,50");
  row.Number("TITEL_ID", 0);
  row.Text("HULNR", "");
  row.Text("HULNR", "A 1");
  row.Date("TAGANORD", DateTime{.year = 2024, .month = 3, .day = 5});
  row.Flag("RECHEURO", true);
  ColumnWriter(ctx, "MASCHINENBUCH", 4, "NUMMER").Text("BEZEICHNUNG", "Harvester");
  EXPECT_THAT(db->Log(), ElementsAre("UPDATE LAGER SET KAPITEL_ID = NULL WHERE ID = 7",
                                     "UPDATE LAGER SET RECHBERTRAG = 0.00 WHERE ID = 7",
                                     "UPDATE LAGER SET RECHBERTRAG = 12.50 WHERE ID = 7",
                                     "UPDATE LAGER SET TITEL_ID = NULL WHERE ID = 7",
                                     "UPDATE LAGER SET HULNR = NULL WHERE ID = 7",
                                     "UPDATE LAGER SET HULNR = 'A 1' WHERE ID = 7",
                                     "UPDATE LAGER SET TAGANORD = '20240305' WHERE ID = 7",
                                     "UPDATE LAGER SET RECHEURO = 1 WHERE ID = 7",
                                     "UPDATE MASCHINENBUCH SET BEZEICHNUNG = 'Harvester' WHERE NUMMER = 4"));
  db->ClearLog();
  EXPECT_THROW(row.Text("HULNR", "O'Brien"), DatabaseError);
  EXPECT_THAT(db->Log(), IsEmpty());
}

TEST_F(Frame, MonthFieldsShowTheMonthOrNothing) {
  const MonthFields month(screen.Context(), screen.txtMonat[1], &screen.txtMonat[2], &screen.txtMonat[3]);
  screen.txtMonat[1].SetText("3");
  month.LeaveMonth();
  EXPECT_EQ(screen.txtMonat[1].Text(), "03");
  EXPECT_EQ(screen.txtMonat[2].Text(), "März");
  EXPECT_EQ(month.Key(), 0) << "no year yet";
  month.Set(2024, 2);
  EXPECT_EQ(month.Key(), 202402);
  for (const char* wrong : {"13", "0", "x", "1,5", ""}) {
    screen.txtMonat[1].SetText(wrong);
    month.LeaveMonth();
    EXPECT_EQ(screen.txtMonat[1].Text() + screen.txtMonat[2].Text(), "") << wrong;
  }
}

TEST_F(Frame, DayMustLieInItsMonth) {
  const MonthFields month(screen.Context(), screen.txtMonat[1], &screen.txtMonat[2], &screen.txtMonat[3]);
  const auto leave = [&](const char* day) {
    screen.txtTag.SetText(day);
    LeaveDay(screen.txtTag, month);
    return screen.txtTag.Text();
  };
  EXPECT_EQ(leave("31"), "31") << "the month is not known";
  EXPECT_EQ(leave("32"), "");
  month.Set(2024, 2);
  EXPECT_EQ(leave("29"), "29");
  EXPECT_EQ(leave("1"), "01");
  month.Set(2023, 2);
  EXPECT_EQ(leave("29"), "");
  EXPECT_EQ(AddMonths({.year = 2023, .month = 12, .day = 1}, 1),
            (DateTime{.year = 2024, .month = 1, .day = 1}));
}

class CodeFieldTest : public Frame {
 protected:
  CodeFieldTest() {
    screen.Run(ctx);
    screen.lblKonto.SetCaption("Konto");
    field.Changed = [this] { ++changes; };
    Rules(screen.txtKonto[0]).Code(field);
    db->Answer("KONTO_VALID:5\t1",
               Rows({Whole("ID"), Chars("NAME")}, {std::int64_t{51}, std::string("Wegebau")}));
    db->Answer("KONTO_VALID:5\t9", Rows({Whole("ID"), Chars("NAME")}));
    shown = toolkit.Show(screen, screen.txtKonto[0]);
  }

  std::unique_ptr<test::QuietToolkit::Shown> shown;
  int changes = 0;
  CodeField field{screen.Context(), screen.loading, screen.txtKonto[0], &screen.txtKonto[1],
                  NamedCode(screen.Context(), screen.txtKonto[0], screen.lblKonto, "KONTO", "NAME",
                            [] { return NamedValues{Given(5)}; })};
};

TEST_F(CodeFieldTest, ValidCodeSetsTagAndCompanion) {
  screen.txtKonto[0].SetText("1");
  EXPECT_TRUE(field.Check());
  EXPECT_EQ(screen.txtKonto[0].Tag(), "51");
  EXPECT_EQ(screen.txtKonto[1].Text(), "Wegebau");
  EXPECT_TRUE(field.Check());
  EXPECT_EQ(changes, 1) << "the same id is no change";
}

TEST_F(CodeFieldTest, WrongCodeClearsEverythingAndWarnsUnlessLoading) {
  screen.txtKonto[0].SetText("1");
  field.Check();
  screen.txtKonto[0].SetText("9");
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(screen.txtKonto[0].Text() + screen.txtKonto[0].Tag() + screen.txtKonto[1].Text(), "");
  EXPECT_THAT(toolkit.prompts, ElementsAre("Code fehlt"));
  EXPECT_EQ(changes, 2);
  const auto hold = screen.loading.Hold();
  screen.txtKonto[0].SetText("9");
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(toolkit.prompts.size(), 1U);
}

TEST_F(CodeFieldTest, EmptyBoxClearsWithoutAStatement) {
  screen.txtKonto[0].SetText("1");
  field.Check();
  db->ClearLog();
  screen.txtKonto[0].SetText("");
  EXPECT_FALSE(field.Check());
  EXPECT_EQ(screen.txtKonto[0].Tag() + screen.txtKonto[1].Text(), "");
  EXPECT_THAT(db->Log(), IsEmpty());
  EXPECT_THAT(toolkit.prompts, IsEmpty());
}

TEST_F(CodeFieldTest, CtrlOpensTheListOnlyOnAnOpenBox) {
  db->Answer("KONTO_GRID:5", Rows({Chars("NUMMER")}));
  db->ClearLog();
  SetTextBoxLocked(true, screen.txtKonto[0]);
  screen.txtKonto[0].KeyDown(kKeyCtrl, 2);
  EXPECT_THAT(db->Log(), IsEmpty());
  SetTextBoxLocked(false, screen.txtKonto[0]);
  screen.txtKonto[0].KeyDown(kKeyCtrl, 2);
  EXPECT_THAT(db->Log(), ElementsAre("KONTO_GRID:5"));
}

TEST_F(Frame, ListenersTakeTheirTurns) {
  std::string order;
  Event<> event;
  event.Add(Turn::kOwn, [&] { order += "own "; });
  event.Add(Turn::kCheck, [&] { order += "check "; });
  event.Add(Turn::kFilter, [&] { order += "filter "; });
  event.Add(Turn::kCheck, [&] { order += "second "; });
  event.Add(Turn::kFormat, [&] { order += "format "; });
  event();
  EXPECT_EQ(order, "filter format check second own ");
  EXPECT_DEATH((event = [] {}), "listener already");
}

TEST_F(Frame, EnterRulesRunBehindTheFilter) {
  screen.Run(ctx);
  int moves = 0;
  OnEnter(screen.txtMenge, [&] { ++moves; });
  screen.txtMenge.KeyPress.Add(Turn::kFilter, [](int& key) { key = key == 'x' ? 0 : key; });
  int enter = kKeyEnter, letter = 'x';
  screen.txtMenge.KeyPress(enter);
  screen.txtMenge.KeyPress(letter);
  EXPECT_EQ(moves, 1);
  EXPECT_EQ(enter, 0);
  EXPECT_EQ(letter, 0);
}

TEST_F(Frame, DeferredCallRunsOnceAfterTheEvent) {
  screen.Run(ctx);
  int calls = 0;
  DeferredCall later(screen.Timer1, [&] { ++calls; });
  const auto shown = toolkit.Show(screen, screen.txtName);
  UserActions& user = shown->user;
  later.Request();
  EXPECT_EQ(calls, 0);
  user.RunTimers();
  user.RunTimers();
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace tarvoni

#include "platform/qt/form_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QDeadlineTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <algorithm>

#include "platform/script/public/script.h"
#include "src/context/values/call_error.h"
#include "tests/qt/stage.h"

namespace tarvoni::qt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST(FormWindow, ShowsTheScreenAndFollowsItsFocus) {
  Stage stage;
  stage.Show(stage.form.txtLohnart, [&](FormWindow& window) {
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.isModal());
    EXPECT_EQ(FromQt(window.windowTitle()), "Arbeitsaufträge");
    EXPECT_EQ(window.focusWidget(), &stage.WidgetOf(stage.form.txtLohnart));
    stage.form.txtMenge.SetFocus();
    EXPECT_EQ(window.focusWidget(), &stage.WidgetOf(stage.form.txtMenge));
    stage.form.SetCaption("Anders");
    EXPECT_EQ(FromQt(window.windowTitle()), "Anders");
  });
  EXPECT_EQ(stage.toolkit.TopWindow(), nullptr);
  EXPECT_EQ(stage.form.Observer(), nullptr);
}

TEST(FormWindow, CtrlAloneOpensTheLookupAndCtrlCCopies) {
  Stage stage;
  auto& box = stage.form.txtKostenstelle[0];
  box.SetText("4711");
  stage.Show(box, [&](FormWindow&) {
    stage.Send(QEvent::KeyPress, Qt::Key_Control);
    EXPECT_THAT(stage.form.log, IsEmpty()) << "not before the release";
    stage.Send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_THAT(stage.form.log, ElementsAre("lookup txtKostenstelle(0)"));
    box.SelectAll();
    stage.form.log.clear();
    QGuiApplication::clipboard()->setText("alt");
    stage.Send(QEvent::KeyPress, Qt::Key_Control);
    stage.Press(Qt::Key_C, Qt::ControlModifier);
    stage.Send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(FromQt(QGuiApplication::clipboard()->text()), "4711");
    stage.Send(QEvent::KeyPress, Qt::Key_Control);
    stage.driver.Click(stage.form.lblLohnart);
    stage.Send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_THAT(stage.form.log, Not(Contains("lookup txtKostenstelle(0)")));
  });
}

TEST(FormWindow, KeypadTypesTheLocalesSeparatorAndEnter) {
  Stage stage;
  auto& box = stage.form.txtMenge;
  stage.Show(box, [&](FormWindow&) {
    stage.Press(Qt::Key_5, Qt::KeypadModifier, "5");
    stage.Press(Qt::Key_Period, Qt::KeypadModifier, ".");
    stage.Press(Qt::Key_7, Qt::KeypadModifier, "7");
    EXPECT_EQ(box.Text(), "5,7");
    stage.environment.locale = Locale::English();
    box.SelectAll();
    stage.Press(Qt::Key_Comma, Qt::KeypadModifier, ",");
    EXPECT_EQ(box.Text(), ".");
    stage.Press(Qt::Key_Period, {}, ".");
    EXPECT_EQ(box.Text(), "..") << "the other point stays a point";
    stage.Press(Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@");
    EXPECT_EQ(box.Text(), "..@") << "AltGr types";
    stage.form.log.clear();
    stage.Press(Qt::Key_Enter, Qt::KeypadModifier, "\r");
    stage.Press(Qt::Key_Return, {}, "\r");
    EXPECT_THAT(stage.form.log, ElementsAre("press txtMenge 13", "press txtMenge 13"));
  });
}

TEST(FormWindow, EnterGoesToTheControlAndToNoDefaultButton) {
  Stage stage;
  test::Replace(stage.form.txtMenge.KeyPress, [&](int& key) {
    if (key == kKeyEnter) stage.form.PostTab();
  });
  stage.Show(stage.form.txtMenge, [&](FormWindow& window) {
    stage.Press(Qt::Key_Return, {}, "\r");
    EXPECT_TRUE(stage.form.cboEinheit.HasFocus());
    EXPECT_THAT(stage.form.log, ElementsAre("validate txtMenge", "lost txtMenge", "got cboEinheit"));
    EXPECT_EQ(window.focusWidget(), &stage.WidgetOf(stage.form.cboEinheit));
    stage.driver.Focus(stage.form.btnSpeichern);
    stage.form.log.clear();
    stage.Press(Qt::Key_Enter, {}, "\r");
    EXPECT_THAT(stage.form.log, ElementsAre("click btnSpeichern"));
    stage.driver.Focus(stage.form.txtText);
    stage.Press(Qt::Key_Return, {}, "\r");
    EXPECT_EQ(stage.form.txtText.Text(), "\n");
  });
}

TEST(FormWindow, TabGoesRoundInTheOrderOfTheDescription) {
  Stage stage;
  stage.form.frmArt.SetEnabled(false);
  stage.form.lstAuswahl.SetVisible(false);
  std::vector<std::string> round;
  stage.Show(stage.form.dtpDatum, [&](FormWindow&) {
    for (int i = 0; i < 4; ++i) {
      stage.Press(Qt::Key_Tab, {}, "\t");
      round.push_back(stage.form.ActiveControl()->FullName());
    }
    stage.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    round.push_back(stage.form.ActiveControl()->FullName());
  });
  EXPECT_THAT(round, ElementsAre("txtText", "tabSeiten", "txtSteuer", "txtSteuerBetrag", "txtSteuer"));
}

TEST(FormWindow, EscapeAndTheCloseButtonAskTheScreen) {
  Stage stage;
  stage.form.veto = true;
  stage.Show(stage.form.txtMenge, [&](FormWindow& window) {
    stage.Press(Qt::Key_Escape);
    window.close();
    window.reject();
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(stage.form.log, ElementsAre("press txtMenge 27", "unload", "unload", "unload"));
    stage.form.veto = false;
    window.close();
    EXPECT_FALSE(stage.form.IsLoaded());
  });
  EXPECT_FALSE(stage.form.IsShown());
}

TEST(FormWindow, FieldThatKeepsTheFocusTellsItOnce) {
  Stage stage;
  test::Replace(stage.form.txtLohnart.Validate, [&](bool& cancel) {
    stage.toolkit.MessageBox("falsch", kBoxWarning, "");
    cancel = true;
  });
  stage.Show(stage.form.txtLohnart, [&](FormWindow& window) {
    stage.driver.Click(stage.form.txtMenge);
    EXPECT_TRUE(stage.form.txtLohnart.HasFocus());
    EXPECT_EQ(window.focusWidget(), &stage.WidgetOf(stage.form.txtLohnart));
    EXPECT_THAT(stage.toolkit.prompts, ElementsAre("falsch"));
    stage.driver.Click(stage.form.chkFertig);
    EXPECT_FALSE(stage.form.chkFertig.Checked());
    EXPECT_FALSE(dynamic_cast<QAbstractButton&>(stage.WidgetOf(stage.form.chkFertig)).isChecked());
    stage.driver.ChooseTab(stage.form.tabSeiten, 1);
    EXPECT_EQ(stage.form.tabSeiten.Tab(), 0);
    stage.driver.ClickRow(stage.form.DataGrid1, 2);
    EXPECT_EQ(stage.form.DataGrid1.Row(), 0);
    EXPECT_EQ(stage.toolkit.prompts.size(), 4U);
    stage.form.btnNeu.SetCausesValidation(false);
    stage.driver.Click(stage.form.btnNeu);
    EXPECT_THAT(stage.form.log, Contains("click btnNeu")) << "reachable all the same";
  });
}

TEST(FormWindow, WhatStandsInADisabledFrameIsDisabled) {
  Stage stage;
  stage.Show(stage.form.txtLohnart, [&](FormWindow& window) {
    QWidget& box = stage.WidgetOf(stage.form.txtLohnart);
    stage.form.frmKopf.SetEnabled(false);
    EXPECT_TRUE(dynamic_cast<QLineEdit&>(box).isReadOnly());
    EXPECT_TRUE(dynamic_cast<QPlainTextEdit&>(stage.WidgetOf(stage.form.txtText)).isReadOnly())
        << "in a frame within the frame";
    EXPECT_FALSE(stage.WidgetOf(stage.form.cboEinheit).isEnabled());
    stage.driver.Click(stage.form.cboEinheit);
    EXPECT_FALSE(stage.form.cboEinheit.HasFocus());
    EXPECT_EQ(stage.form.ActiveControl(), &stage.form.optZeit) << "off the control that closed";
    EXPECT_EQ(window.focusWidget(), &stage.WidgetOf(stage.form.optZeit));
    stage.form.frmKopf.SetEnabled(true);
    EXPECT_FALSE(dynamic_cast<QLineEdit&>(box).isReadOnly());
    stage.form.txtMenge.SetEnabled(false);
    EXPECT_TRUE(dynamic_cast<QLineEdit&>(stage.WidgetOf(stage.form.txtMenge)).isReadOnly());
    stage.form.btnNeu.SetEnabled(false);
    stage.form.log.clear();
    stage.driver.Click(stage.form.btnNeu);
    EXPECT_THAT(stage.form.log, IsEmpty());
  });
}

TEST(FormWindow, MnemonicsPressButtonsAndLeadToFields) {
  Stage stage;
  stage.Show(stage.form.txtMenge, [&](FormWindow&) {
    stage.Press(Qt::Key_S, Qt::AltModifier, "s");
    EXPECT_THAT(stage.form.log, Contains("click btnSpeichern"));
    stage.Press(Qt::Key_K, Qt::AltModifier, "k");
    EXPECT_TRUE(stage.form.txtKostenstelle[0].HasFocus());
    stage.Press(Qt::Key_C, Qt::AltModifier, "c");
    EXPECT_FALSE(stage.form.IsLoaded());
  });
}

TEST(FormWindow, KeysOfTheWindowSystemComeOnce) {
  Stage stage;
  stage.Show(stage.form.txtMenge, [&](FormWindow& window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
      QTest::keyClick(window.windowHandle(), key, modifiers);
    };
    press(Qt::Key_7);
    EXPECT_EQ(stage.form.txtMenge.Text(), "7");
    press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(std::ranges::count(stage.form.log, "click btnNeu"), 1);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(stage.form.txtZinsBetrag.HasFocus()) << "the mnemonic gave the focus to the button";
    stage.driver.ClickRow(stage.form.DataGrid1, 1);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_THAT(FromQt(QGuiApplication::clipboard()->text()), testing::HasSubstr("Fichte"))
        << "the table's own";
    press(Qt::Key_Down);
    EXPECT_EQ(stage.form.DataGrid1.Row(), 2);
    press(Qt::Key_Up);
    EXPECT_EQ(stage.form.DataGrid1.Row(), 1) << "one row a key";
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(stage.form.DataGrid1.Row(), 2);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(stage.form.DataGrid1.Row(), 0);
    stage.form.veto = true;
    stage.form.log.clear();
    press(Qt::Key_Escape);
    EXPECT_THAT(stage.form.log, ElementsAre("press DataGrid1 27", "unload"));
  });
}

TEST(FormWindow, KeysOfCommandsReachTheirButtons) {
  Stage stage;
  auto& save = stage.form.btnSpeichern;
  save.SetDoes(Command::kSave);
  stage.form.btnNeu.SetDoes(Command::kNew);
  stage.Show(stage.form.txtMenge, [&](FormWindow& window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
      stage.form.log.clear();
      QTest::keyClick(window.windowHandle(), key, modifiers);
    };
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(stage.form.log, Contains("click btnSpeichern"));
    stage.driver.Focus(stage.form.DataGrid1);
    press(Qt::Key_Insert);
    EXPECT_THAT(stage.form.log, Contains("click btnNeu"));
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(stage.form.tabSeiten.Tab(), 1);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(stage.form.tabSeiten.Tab(), 0);
    EXPECT_EQ(FromQt(stage.WidgetOf(save).toolTip()), "Speichern (Strg+S)");
    stage.form.veto = true;
    window.close();
    EXPECT_EQ(FromQt(window.findChild<QLabel*>("status")->text()), "Bitte speichern oder abbrechen.");
    stage.form.SetSubject("Auftrag 1");
    EXPECT_EQ(FromQt(window.windowTitle()), "Arbeitsaufträge – Auftrag 1");
  });
}

TEST(FormWindow, ListsSortMarkAndSearch) {
  Stage stage;
  auto& grid = stage.form.DataGrid1;
  grid.SetStruck("NAME", "Buche");
  stage.Show(grid, [&](FormWindow& window) {
    const auto& table = dynamic_cast<QTableView&>(stage.WidgetOf(grid));
    const auto shown = [&](int row) { return table.model()->index(row, 1); };
    const auto told = [&](const char* name) {
      return FromQt(table.parentWidget()->findChild<QLabel*>(name)->text());
    };
    EXPECT_TRUE(shown(0).data(Qt::FontRole).value<QFont>().strikeOut());
    stage.driver.ClickHead(grid, 1);
    EXPECT_EQ(grid.Row(), 1) << "the row is the same, in its new place";
    EXPECT_EQ(told("count"), "Zeile 2 von 3");
    stage.form.Data1.Refresh();
    grid.Columns()["WERT"].SetAlignment(Alignment::kRight);  // a Screen sets its columns again
    EXPECT_EQ(FromQt(shown(0).data().toString()), "Ahorn") << "the order lasts";
    EXPECT_EQ(table.horizontalHeader()->sortIndicatorSection(), 1);
    EXPECT_FALSE(shown(0).data(Qt::FontRole).value<QFont>().strikeOut());
    grid.SetStruck("", "");
    stage.driver.ClickRow(grid, 1);
    stage.Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told("sum").empty(); }));
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(told("sum"), "Summe 21,75 (2 Zahlen)");
    grid.SetStruck("NAME", "Buche");
    stage.Press(Qt::Key_Up, Qt::ShiftModifier);
    stage.Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return told("sum").empty(); })) << "what was cancelled does not count";
    QTest::keyPress(window.windowHandle(), Qt::Key_Control, Qt::ControlModifier);
    grid.Data()->Recordset().MoveFirst();
    EXPECT_EQ(table.selectionModel()->selectedIndexes().size(), 1)
        << "a save with Ctrl moves, it does not mark";
    QTest::keyRelease(window.windowHandle(), Qt::Key_Control);
    stage.Press(Qt::Key_F, Qt::ControlModifier);
    auto& search = *table.parentWidget()->findChild<QLineEdit*>("search");
    QTest::keyClicks(&search, "aho");
    EXPECT_EQ(told("count"), "1 von 3 Zeilen");
    EXPECT_EQ(grid.Row(), 0) << "the Screen goes to a row that is seen";
    EXPECT_EQ(window.focusWidget(), &search);
    QTest::keyClicks(&search, "x");
    EXPECT_EQ(told("count"), "0 von 3 Zeilen");
    EXPECT_FALSE(table.isRowHidden(0)) << "the Screen stands on it";
    QTest::keyClick(&search, Qt::Key_Backspace);
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(window.focusWidget(), &table);
    stage.Press(Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 0) << "what is hidden is no step";
    grid.Data()->Recordset().MoveLast();
    EXPECT_FALSE(table.isRowHidden(2)) << "a row made meanwhile";
    stage.Press(Qt::Key_Escape);
    EXPECT_EQ(told("count"), "Zeile 3 von 3") << "Escape ends the search first";
    EXPECT_TRUE(stage.form.IsLoaded());
    stage.Press(Qt::Key_Escape);
    EXPECT_FALSE(stage.form.IsLoaded());
  });
}

TEST(FormWindow, AListIsPrintedAndSearchedFromAnywhere) {
  Stage stage;
  auto& form = stage.form;
  const auto& printed = stage.toolkit.printed;
  stage.Show(form.txtMenge, [&](FormWindow& window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto press = [&](Qt::Key key) { QTest::keyClick(window.windowHandle(), key, Qt::ControlModifier); };
    press(Qt::Key_P);
    ASSERT_EQ(printed.size(), 1);
    EXPECT_EQ(printed[0].tables[0].rows.size(), 3) << "the first list there is";
    EXPECT_TRUE(form.txtMenge.HasFocus());
    form.tabSeiten.SetTab(1);
    stage.driver.Focus(form.FlexGrid1);
    stage.driver.Focus(form.txtMenge);
    press(Qt::Key_P);
    ASSERT_EQ(printed.size(), 2);
    EXPECT_EQ(printed[1].tables[0].rows.size(), 2) << "the one the user was in";
    press(Qt::Key_F);
    EXPECT_TRUE(dynamic_cast<QWidget&>(*stage.WidgetOf(form.FlexGrid1).parentWidget())
                    .findChild<QLineEdit*>("search")
                    ->isVisible());
    form.tabSeiten.SetTab(0);
    press(Qt::Key_P);
    ASSERT_EQ(printed.size(), 3);
    EXPECT_EQ(printed[2].tables[0].rows.size(), 3) << "that one is out of sight";
  });
}

TEST(FormWindow, AListScrollsItsPageNoFurtherThanItsRow) {
  struct Tall : Form {
    Tall() : Form("F_Tall") {}
    layout::Node BuildLayout() override {
      using namespace layout;
      return Stack(Row("A", Box(boxes[0])), Row("B", Box(boxes[1])), Row("C", Box(boxes[2])),
                   Row("D", Box(boxes[3])), Table(grid, 24), Bar(Push(close, "Schließen")));
    }
    ControlArray<TextBox, 4> boxes{*this, "boxes"};
    FlexGrid grid{*this, "grid"};
    Button close{*this, "close"};
  } form;
  form.Load();
  form.grid.SetCols(1);
  form.grid.SetRows(41);
  form.grid.SetRow(0);
  form.grid.SetFocus();
  Stage stage;
  stage.toolkit.play = [&](FormWindow& window) {
    auto& area = *window.findChild<QScrollArea*>();
    const auto& table = dynamic_cast<QTableView&>(stage.WidgetOf(form.grid));
    const auto row_end = [&] {
      const int y = table.rowViewportPosition(form.grid.Row()) + table.rowHeight(0);
      return table.viewport()->mapTo(area.viewport(), QPoint(0, y)).y();
    };
    const auto scrolled = [&] { return area.verticalScrollBar()->value(); };
    window.resize(window.width(), 240);
    QTest::qWait(10);
    ASSERT_GT(area.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(scrolled(), 0) << "the list's beginning is seen with the Screen's";
    stage.Press(Qt::Key_End);
    EXPECT_GT(scrolled(), 0);
    EXPECT_LE(row_end(), area.viewport()->height());
    stage.Press(Qt::Key_Home);
    EXPECT_EQ(scrolled(), 0) << "and comes back with its first row";
  };
  stage.toolkit.ShowModal(form);
}

TEST(FormWindow, TheBorderBetweenTwoTablesMoves) {
  struct TwoTables : Form {
    TwoTables() : Form("F_TwoTables") {}
    layout::Node BuildLayout() override {
      using namespace layout;
      return Stack(Row("Name", Box(name)), Table(upper), Row("Summe", Box(sum)), Table(lower),
                   Bar(Push(close, "Schließen")));
    }
    TextBox name{*this, "name"}, sum{*this, "sum"};
    FlexGrid upper{*this, "upper"}, lower{*this, "lower"};
    Button close{*this, "close"};
  } form;
  form.Load();
  Stage stage;
  stage.toolkit.play = [&](FormWindow& window) {
    auto* const splitter = window.findChild<QSplitter*>();
    ASSERT_NE(splitter, nullptr);
    const auto part = [&](const Control& control) {
      int i = 0;
      while (i < splitter->count() && !splitter->widget(i)->isAncestorOf(window.ViewOf(&control)->Target()))
        ++i;
      return i;
    };
    EXPECT_EQ(part(form.name), 0);
    EXPECT_EQ(part(form.upper), 0);
    EXPECT_EQ(part(form.sum), 1);
    EXPECT_EQ(part(form.lower), 1);
    EXPECT_FALSE(splitter->childrenCollapsible());
  };
  stage.toolkit.ShowModal(form);
  EXPECT_FALSE(form.IsLoaded());
}

TEST(FormWindow, NoExceptionPassesThroughQt) {
  Stage stage;
  test::Replace(stage.form.btnNeu.Click, [] { throw CallError("Fehler im Handler"); });
  const auto click = [&](Button& button) { return [&](FormWindow&) { stage.driver.Click(button); }; };
  stage.Show(stage.form.txtMenge, click(stage.form.btnNeu));
  EXPECT_THAT(stage.toolkit.prompts, ElementsAre("Fehler im Handler"));
  for (Button* button : {&stage.form.btnLoschen, &stage.form.btnBearbeiten}) {
    stage.form.Load();
    test::Replace(stage.form.btnLoschen.Click, [] { throw ScriptFailure("Ende"); });
    test::Replace(stage.form.btnBearbeiten.Click, [&] {
      test::ProbeForm inner;
      stage.toolkit.play = [&](FormWindow&) {
        test::Replace(inner.btnNeu.Click, [] { throw ScriptFailure("innen"); });
        stage.driver.Click(inner.btnNeu);
      };
      stage.toolkit.ShowModal(inner);
      ADD_FAILURE() << "the failure leaves the inner Screen";
    });
    EXPECT_THROW(stage.Show(stage.form.txtMenge, click(*button)), ScriptFailure);
    EXPECT_FALSE(stage.form.IsShown());
    EXPECT_EQ(stage.toolkit.TopForm(), nullptr);
  }
}

TEST(FormWindow, TimersRunByTheClockButNotUnderAnotherWindow) {
  Stage stage;
  int elapsed = 0;
  stage.form.Timer1.Elapsed = [&] { ++elapsed; };
  stage.form.Timer1.SetInterval(1);
  stage.form.Timer1.SetEnabled(true);
  const auto wait = [](const int& count, int wanted) {
    const QDeadlineTimer end(2000);
    while (count < wanted && !end.hasExpired())
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  };
  stage.Show(stage.form.txtMenge, [&](FormWindow& window) {
    wait(elapsed, 2);
    EXPECT_EQ(elapsed, 2);
    window.Act([&](UserActions&) {
      int later = 0;
      QTimer::singleShot(20, [&] { later = 1; });
      wait(later, 1);
    });
    EXPECT_EQ(elapsed, 2);
    stage.form.Timer1.SetEnabled(false);
    int later = 0;
    QTimer::singleShot(20, [&] { later = 1; });
    wait(later, 1);
    EXPECT_EQ(elapsed, 2);
  });
}

TEST(FormWindow, OwnerMayDieUnderneath) {
  Stage stage;
  auto owner = std::make_unique<QWidget>();
  owner->show();
  stage.toolkit.SetOwner(owner.get());
  stage.Show(stage.form.txtMenge, [&](FormWindow& window) {
    owner.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isVisible());
    stage.Press(Qt::Key_1, {}, "1");
    EXPECT_EQ(stage.form.txtMenge.Text(), "1");
  });
}

TEST(FormWindow, FieldsAreNamedByTheirRows) {
  Stage stage;
  stage.Show(stage.form.txtMenge, [&](FormWindow&) {
    const auto name = [&](const Control& control) {
      return FromQt(stage.WidgetOf(control).accessibleName());
    };
    EXPECT_EQ(name(stage.form.txtKostenstelle[0]), "Kostenstelle");
    EXPECT_EQ(name(stage.form.txtMenge), "Menge");
    EXPECT_EQ(name(stage.form.txtSteuerBetrag), "Steuer Betrag");
    auto& label = dynamic_cast<QLabel&>(stage.WidgetOf(stage.form.lblKostenstelle));
    EXPECT_EQ(label.buddy(), &stage.WidgetOf(stage.form.txtKostenstelle[0]));
  });
}

}  // namespace
}  // namespace tarvoni::qt

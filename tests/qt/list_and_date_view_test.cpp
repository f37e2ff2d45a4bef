#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "tests/qt/dark_palette.h"
#include "tests/qt/stage.h"

namespace tarvoni::qt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ListView, KeysChooseItems) {
  Stage stage;
  auto& list = stage.form.lstAuswahl;
  stage.Show(list, [&](FormWindow&) {
    auto& widget = dynamic_cast<QListWidget&>(stage.WidgetOf(list));
    stage.Press(Qt::Key_End);
    EXPECT_EQ(list.Text(), "Tanne");
    EXPECT_EQ(widget.currentRow(), 2);
    stage.Press(Qt::Key_F, {}, "f");
    EXPECT_EQ(list.Text(), "Fichte");
    list.RemoveItem(0);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(widget.count(), 2);
    EXPECT_EQ(widget.currentRow(), 0);
  });
}

// A combo box is drawn as a button.
TEST(ComboView, AClosedChoiceStaysReadableInTheDark) {
  const QPalette light = QApplication::palette();
  Stage stage;
  stage.Show(stage.form.cboEinheit, [&](FormWindow&) {
    QApplication::setPalette(test::DarkPalette());
    QCoreApplication::processEvents();
    const QPalette& shown = stage.WidgetOf(stage.form.cboEinheit).palette();
    EXPECT_GT(shown.color(QPalette::Disabled, QPalette::ButtonText).lightness() -
                  shown.color(QPalette::Disabled, QPalette::Button).lightness(),
              90);
  });
  QApplication::setPalette(light);
}

TEST(ListView, MarksSeveralItems) {
  Stage stage;
  auto& list = stage.form.lstAuswahl;
  stage.Show(list, [&](FormWindow&) {
    auto& widget = dynamic_cast<QListWidget&>(stage.WidgetOf(list));
    const auto click = [&](int row, Qt::KeyboardModifiers modifiers) {
      QTest::mouseClick(widget.viewport(), Qt::LeftButton, modifiers,
                        widget.visualItemRect(widget.item(row)).center());
    };
    const auto expect_marked = [&](const std::vector<int>& items) {
      EXPECT_EQ(list.MarkedItems(), items);
      for (int i = 0; i < widget.count(); ++i)
        EXPECT_EQ(widget.item(i)->isSelected(), std::ranges::count(items, i) == 1) << i;
    };
    click(2, {});
    stage.Press(Qt::Key_Up, Qt::ShiftModifier);
    expect_marked({1, 2});
    stage.Press(Qt::Key_Home, Qt::ShiftModifier);
    expect_marked({0, 1, 2});
    click(1, Qt::ControlModifier);
    expect_marked({0, 2});
    EXPECT_EQ(widget.currentRow(), 1);
    click(0, Qt::ShiftModifier);
    expect_marked({0, 1});
    stage.Press(Qt::Key_A, Qt::ControlModifier);
    expect_marked({0, 1, 2});
    stage.Press(Qt::Key_Up);
    expect_marked({1});
    list.RemoveItem(1);
    QCoreApplication::sendPostedEvents();
    expect_marked({});
  });
}

TEST(ListView, LockedComboTakesNoItem) {
  Stage stage;
  auto& combo = stage.form.cboEinheit;
  stage.Show(combo, [&](FormWindow&) {
    auto& widget = dynamic_cast<QComboBox&>(stage.WidgetOf(combo));
    EXPECT_EQ(widget.currentIndex(), -1) << "nothing is chosen by itself";
    stage.Press(Qt::Key_Down);
    EXPECT_EQ(FromQt(widget.currentText()), "fm");
    stage.Press(Qt::Key_Down, Qt::AltModifier);
    widget.hidePopup();
    EXPECT_EQ(FromQt(widget.currentText()), "fm") << "looking into the list chooses nothing";
    combo.SetLocked(true);
    stage.Press(Qt::Key_Down);
    stage.driver.SelectItem(combo, 2);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(widget.currentIndex(), 0) << "the widget follows";
  });
}

TEST(ListView, EditableComboTakesTypedText) {
  Stage stage;
  auto& combo = stage.form.cboEinheit;
  combo.SetEditable(true);
  stage.Show(combo, [&](FormWindow&) {
    auto& edit = *dynamic_cast<QComboBox&>(stage.WidgetOf(combo)).lineEdit();
    stage.driver.Type(combo, "kg x");
    EXPECT_EQ(combo.Text(), "kg x");
    EXPECT_EQ(edit.text(), "kg x");
    stage.Press(Qt::Key_Backspace);
    EXPECT_EQ(combo.Text(), "kg ");
    stage.form.log.clear();
    stage.driver.SelectItem(combo, 1);
    EXPECT_EQ(edit.text(), "rm");
    EXPECT_THAT(stage.form.log, ElementsAre("click cboEinheit"));
  });
}

TEST(DateView, TypedDateCountsWhenTheFieldIsLeft) {
  Stage stage;
  auto& date = stage.form.dtpDatum;
  date.SetLimits({2000, 1, 1}, {2079, 1, 1});
  stage.Show(date, [&](FormWindow& window) {
    auto& edit = dynamic_cast<QLineEdit&>(stage.WidgetOf(date));
    for (const QChar digit : QString("31.12.24")) stage.Press(0, {}, digit);
    stage.form.Timer1.Elapsed = [&] { stage.form.log.emplace_back("timer"); };
    stage.form.Timer1.SetInterval(1);
    stage.form.Timer1.SetEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.form.log.empty(); }));
    stage.form.Timer1.SetEnabled(false);
    EXPECT_THAT(stage.form.log, Contains("timer"));
    stage.form.log.clear();
    EXPECT_FALSE(date.Value());
    stage.Press(Qt::Key_Tab);
    EXPECT_EQ(date.Value(), DateTime(2024, 12, 31));
    EXPECT_EQ(edit.text(), "31.12.2024");
    EXPECT_THAT(stage.form.log,
                ElementsAre("change dtpDatum", "validate dtpDatum", "lost dtpDatum", "got txtText"));
    stage.Press(Qt::Key_Backtab);
    EXPECT_EQ(edit.selectedText(), "31.12.2024") << "what is typed replaces it";
    stage.Press(Qt::Key_Up);
    EXPECT_EQ(edit.text(), "01.01.2025");
    edit.selectAll();
    stage.driver.Type(date, "30.2.2025x");
    stage.Press(Qt::Key_Return);
    EXPECT_EQ(edit.text(), "30.2.2025x") << "there to be corrected";
    EXPECT_TRUE(date.HasFocus());
    edit.setText("1.1.1900");
    stage.Press(Qt::Key_Tab);
    EXPECT_TRUE(date.HasFocus());
    EXPECT_EQ(FromQt(window.findChild<QLabel*>("status")->text()),
              "„1.1.1900“ ist kein Tag zwischen 01.01.2000 und 01.01.2079.");
    stage.Press(Qt::Key_Escape);
    EXPECT_EQ(edit.text(), "01.01.2025") << "as it was";
  });
}

TEST(DateView, ReadsWhatAClerkTypesAndTakesNothingWhileLocked) {
  Stage stage;
  auto& date = stage.form.dtpDatum;
  date.SetValue(DateTime{2024, 12, 31});
  stage.Show(date, [&](FormWindow&) {
    auto& edit = dynamic_cast<QLineEdit&>(stage.WidgetOf(date));
    const auto typed = [&](const char* text) {
      edit.selectAll();
      stage.driver.Type(date, text);
      stage.Press(Qt::Key_Return);
      return FromQt(edit.text());
    };
    EXPECT_EQ(typed("1,3,"), "01.03.2024") << "in the year shown";
    EXPECT_EQ(typed("020325"), "02.03.2025");
    date.SetLocked(true);
    date.SetBackColor(kButtonFace);
    EXPECT_TRUE(edit.isReadOnly());
    EXPECT_EQ(edit.palette().color(QPalette::Base), edit.palette().color(QPalette::Window));
    stage.Press(Qt::Key_Up);
    EXPECT_EQ(typed("030326"), "02.03.2025");
    date.SetLocked(false);
    EXPECT_EQ(typed("030326"), "03.03.2026");
    edit.clear();
    QTimer::singleShot(100, [] { QApplication::activeModalWidget()->close(); });
    stage.Press(Qt::Key_F4);
    EXPECT_EQ(edit.text(), "") << "an emptied box stays empty where no day is chosen";
  });
}

TEST(GridView, RefillKeepsTheWidthThatTheUserDrew) {
  Stage stage;
  auto& flex = stage.form.FlexGrid1;
  stage.Show(stage.form.txtName, [&](FormWindow&) {
    auto& table = dynamic_cast<QTableView&>(stage.WidgetOf(flex));
    table.horizontalHeader()->resizeSection(0, 200);
    flex.SetCols(2);
    flex.SetRows(1);
    flex.SetTextMatrix(0, 0, "Lohnart");
    flex.AddItem({"411", "80"});
    EXPECT_EQ(table.columnWidth(0), 200);
    EXPECT_EQ(table.model()->rowCount(), 1);
    flex.SetCols(3);
    EXPECT_EQ(table.model()->columnCount(), 3);
    EXPECT_EQ(table.columnWidth(0), 200) << "a column more";
  });
}

TEST(TabView, DisabledPageCannotBeChosen) {
  Stage stage;
  auto& tabs = stage.form.tabSeiten;
  stage.Show(tabs, [&](FormWindow&) {
    const auto& bar = dynamic_cast<QTabBar&>(stage.WidgetOf(tabs));
    tabs.SetTabEnabled(1, false);
    EXPECT_FALSE(bar.isTabEnabled(1));
    stage.driver.ChooseTab(tabs, 1);
    stage.Press(Qt::Key_Right);
    EXPECT_THAT(stage.form.log, IsEmpty());
    tabs.SetTabEnabled(1, true);
    tabs.SetTabCaption(1, "Stunden");
    stage.Press(Qt::Key_Right);
    EXPECT_EQ(bar.currentIndex(), 1);
    EXPECT_EQ(bar.tabText(1), "St&unden");
    tabs.SetTabEnabled(1, false);
    EXPECT_EQ(bar.currentIndex(), 1) << "the Screen says which page is open";
    const auto seen = [&] {
      QCoreApplication::processEvents();
      return stage.WidgetOf(tabs).grab().toImage();
    };
    const QImage focused = seen();
    stage.driver.Focus(stage.form.txtName);
    EXPECT_NE(seen(), focused) << "where the focus is";
    EXPECT_FALSE(stage.WidgetOf(stage.form.FlexGrid1).isEnabled());
  });
}

}  // namespace
}  // namespace tarvoni::qt

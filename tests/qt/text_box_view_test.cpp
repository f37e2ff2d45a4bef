#include "platform/qt/text_box_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "tests/qt/dark_palette.h"
#include "tests/qt/stage.h"

namespace tarvoni::qt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

// Typed text of a box that admits digits and makes letters great.
void AdmitDigits(TextBox& box) {
  test::Replace(box.KeyPress, [](int& key) {
    if (key >= 'a' && key <= 'z') key += 'A' - 'a';
    if (key == '.' || key == ' ') key = 0;
  });
}

TEST(TextBoxView, TypedAndPastedTextPassesTheFilter) {
  Stage stage;
  auto& box = stage.form.txtName;
  AdmitDigits(box);
  stage.Show(box, [&](FormWindow&) {
    auto& edit = dynamic_cast<QLineEdit&>(stage.WidgetOf(box));
    stage.driver.Type(box, "a.b 1ß");
    EXPECT_EQ(FromQt(edit.text()), "AB1ß");
    stage.driver.Paste(box, "x.y");
    EXPECT_EQ(FromQt(edit.text()), "AB1ß") << "all of it or nothing";
    stage.driver.Paste(box, "9\r\n");
    EXPECT_EQ(box.Text(), "AB1ß9") << "a cell's line break is no Enter key";
    EXPECT_THAT(stage.form.log, Not(Contains("press txtName 13")));
    QInputMethodEvent committed;
    committed.setCommitString("é.");
    QApplication::sendEvent(&edit, &committed);
    EXPECT_EQ(FromQt(edit.text()), "AB1ß9é");
    QMimeData dragged;
    dragged.setText("z");
    QDragEnterEvent enter(QPoint(4, 4), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &enter);
    QDropEvent drop(QPointF(4, 4), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &drop);
    EXPECT_EQ(FromQt(edit.text()), "ZAB1ß9é") << "where it was dropped";
  });
}

TEST(TextBoxView, TheKeyThatOpensAnEditorArrivesInIt) {
  Stage stage;
  auto& box = stage.form.txtName;
  box.SetText("Alt. ");
  test::Replace(box.KeyPress, [&](int& key) {
    key = 0;
    box.SetText(stage.toolkit.EditText({.caption = "Text", .text = box.Text()}).value_or("nichts"));
  });
  stage.Show(box, [&](FormWindow&) {
    QTimer::singleShot(0, [] {
      auto* const dialog = QApplication::activeModalWidget();
      QTest::keyClicks(dialog->findChild<QPlainTextEdit*>("text"), "achs");
      dialog->findChild<QPushButton*>("ok")->click();
    });
    stage.Press(Qt::Key_D, Qt::ShiftModifier, "D");
    EXPECT_EQ(box.Text(), "Alt. Dachs");
  });
}

TEST(TextBoxView, EditorsOwnCommandsReachTheScreen) {
  Stage stage;
  auto& box = stage.form.txtName;
  stage.Show(box, [&](FormWindow&) {
    auto& edit = dynamic_cast<QLineEdit&>(stage.WidgetOf(box));
    stage.driver.Type(box, "zwei Worte");
    stage.Press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "zwei ");
    stage.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "zwei Worte");
    stage.Press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(box.SelText(), "zwei Worte");
    stage.form.log.clear();
    stage.Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "");
    EXPECT_EQ(FromQt(QGuiApplication::clipboard()->text()), "zwei Worte");
    EXPECT_THAT(stage.form.log, ElementsAre("change txtName"));
    test::Replace(stage.form.txtName.Change, [&] { box.SetText("fest"); });
    stage.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(FromQt(edit.text()), "fest") << "the Screen has the last word";
  });
}

TEST(TextBoxView, FocusByMouseLeavesTheTextSelected) {
  Stage stage;
  auto& box = stage.form.txtName;
  box.SetText("Windwurf");
  test::Replace(box.GotFocus, [&] { box.SelectAll(); });
  stage.Show(stage.form.txtMenge, [&](FormWindow&) {
    auto& edit = dynamic_cast<QLineEdit&>(stage.WidgetOf(box));
    stage.driver.Click(box);
    EXPECT_EQ(FromQt(edit.selectedText()), "Windwurf");
    stage.driver.Click(box);
    EXPECT_EQ(box.SelLength(), 0) << "the next click places the caret";
    stage.driver.Key(box, kKeyEnd, 0);
    EXPECT_EQ(box.SelStart(), 8);
    stage.driver.Type(box, "!");
    EXPECT_EQ(box.Text(), "Windwurf!");
  });
}

TEST(TextBoxView, LockedBoxesLookLockedAndTakeNothing) {
  Stage stage;
  auto& box = stage.form.txtKostenstelle[0];
  stage.Show(box, [&](FormWindow&) {
    auto& edit = dynamic_cast<QLineEdit&>(stage.WidgetOf(box));
    const QColor open = edit.palette().color(QPalette::Base);
    ASSERT_EQ(edit.actions().size(), 1);
    EXPECT_TRUE(edit.actions()[0]->isVisible());
    edit.actions()[0]->trigger();
    EXPECT_THAT(stage.form.log, ElementsAre("lookup txtKostenstelle(0)"));
    box.SetText("4711");
    box.SetLocked(true);
    EXPECT_FALSE(edit.actions()[0]->isVisible());
    EXPECT_NE(edit.palette().color(QPalette::Base), open);
    stage.driver.Paste(box, "1");
    stage.Press(Qt::Key_Backspace);
    stage.Press(Qt::Key_Backspace, Qt::ControlModifier);
    stage.Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(FromQt(edit.text()), "4711");
    box.SetLocked(false);
    EXPECT_EQ(edit.palette().color(QPalette::Base), open);
    box.SetBackColor(0x0000FF);
    EXPECT_EQ(edit.palette().color(QPalette::Base), QColor(255, 0, 0));
  });
}

TEST(TextBoxView, ClosedTextsCanBeReadAndCopied) {
  Stage stage;
  auto& text = stage.form.txtText;
  text.SetText("Windwurf\nnach Sturm\nim Süden\nund mehr\nund noch mehr");
  stage.form.frmKopf.SetEnabled(false);
  stage.Show(stage.form.DataGrid1, [&](FormWindow& window) {
    auto& edit = dynamic_cast<QPlainTextEdit&>(stage.WidgetOf(text));
    EXPECT_TRUE(edit.isEnabled());
    EXPECT_TRUE(edit.isReadOnly());
    QTest::mouseDClick(edit.viewport(), Qt::LeftButton, {}, QPoint(12, 10));
    EXPECT_EQ(text.SelText(), "Windwurf");
    EXPECT_TRUE(stage.form.DataGrid1.HasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(FromQt(QGuiApplication::clipboard()->text()), "Windwurf");
    stage.driver.ClickRow(stage.form.DataGrid1, 1);
    QTest::keyClick(window.windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_THAT(FromQt(QGuiApplication::clipboard()->text()), testing::HasSubstr("Fichte"))
        << "the list again";
  });
}

TEST(TextBoxView, ALongTextShowsWhetherItHasTheFocus) {
  Stage stage;
  auto& text = stage.form.txtText;
  text.SetText("Windwurf");
  stage.Show(text, [&](FormWindow&) {
    auto& edit = dynamic_cast<QPlainTextEdit&>(stage.WidgetOf(text));
    edit.selectAll();
    const auto seen = [&] {
      QCoreApplication::processEvents();
      const QImage image = edit.grab().toImage();
      return std::pair(image.pixelColor(0, image.height() / 2), image.copy(6, 6, 40, 10));
    };
    const auto focused = seen();
    stage.driver.Focus(stage.form.txtName);
    EXPECT_NE(seen().first, focused.first) << "the frame";
    EXPECT_NE(seen().second, focused.second) << "what is marked";
  });
}

TEST(TextBoxView, RefusedKeyIsSeen) {
  Stage stage;
  auto& box = stage.form.txtName;
  AdmitDigits(box);
  stage.Show(box, [&](FormWindow& window) {
    auto& edit = dynamic_cast<QLineEdit&>(stage.WidgetOf(box));
    const QColor open = edit.palette().color(QPalette::Base);
    stage.driver.Type(box, "1.");
    EXPECT_NE(edit.palette().color(QPalette::Base), open);
    EXPECT_EQ(FromQt(window.findChild<QLabel*>("status")->text()),
              "Das Zeichen „.“ passt nicht in dieses Feld.");
    const auto is_open = [&] { return edit.palette().color(QPalette::Base) == open; };
    EXPECT_TRUE(QTest::qWaitFor(is_open));
    box.SetTakes(Entry::kWhole);
    stage.driver.Type(box, ".");
    EXPECT_FALSE(QTest::qWaitFor(is_open, 300)) << "a number waits to be corrected";
    QTest::mouseClick(&edit, Qt::LeftButton);
    EXPECT_TRUE(is_open());
    stage.driver.Type(box, "2");
    EXPECT_EQ(box.Text(), "12");
    stage.Press(Qt::Key_Tab);
    EXPECT_EQ(FromQt(window.findChild<QLabel*>("status")->text()), "") << "past with the box";
  });
}

TEST(TextBoxView, PastingIsOneStepToUndo) {
  Stage stage;
  auto& box = stage.form.txtText;
  stage.Show(box, [&](FormWindow&) {
    stage.driver.Type(box, "alt ");
    stage.form.log.clear();
    stage.driver.Paste(box, "eins\nzwei");
    EXPECT_EQ(std::ranges::count(stage.form.log, "change txtText"), 1);
    auto& edit = dynamic_cast<QPlainTextEdit&>(stage.WidgetOf(box));
    EXPECT_EQ(FromQt(edit.toPlainText()), "alt eins\nzwei");
    stage.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "alt ");
  });
}

TEST(TextBoxView, TextStandsOutInLightAndDark) {
  const QPalette light = QApplication::palette();
  for (const QPalette& palette : {light, test::DarkPalette()}) {
    Stage stage;
    stage.form.txtMenge.SetBackColor(0x80FFFF);
    stage.Show(stage.form.txtName, [&](FormWindow&) {
      QApplication::setPalette(palette);
      QCoreApplication::processEvents();
      EXPECT_EQ(stage.WidgetOf(stage.form.txtName).palette().color(QPalette::Base),
                palette.color(QPalette::Base))
          << "the open window follows";
      for (const TextBox* box : {&stage.form.txtName, &stage.form.txtKostenstelle[1], &stage.form.txtMenge}) {
        const QPalette& shown = stage.WidgetOf(*box).palette();
        for (const auto& [group, least] :
             {std::pair(QPalette::Active, 140), std::pair(QPalette::Disabled, 90)}) {
          const int text = shown.color(group, QPalette::Text).lightness();
          EXPECT_GT(std::abs(text - shown.color(group, QPalette::Base).lightness()), least)
              << box->FullName();
        }
      }
    });
  }
  QApplication::setPalette(light);
}

TEST(TextBoxView, PositionsCountCharacters) {
  Stage stage;
  auto& name = stage.form.txtName;
  auto& text = stage.form.txtText;
  text.SetText("a\r\nb🌲c");
  stage.Show(name, [&](FormWindow&) {
    stage.driver.Type(name, "🌲x");
    stage.Press(Qt::Key_Left);
    stage.driver.Type(name, "y");
    EXPECT_EQ(name.Text(), "🌲yx");
    stage.driver.Focus(text);
    auto& edit = dynamic_cast<QPlainTextEdit&>(stage.WidgetOf(text));
    stage.Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(text.SelStart(), 6);
    stage.Press(Qt::Key_Left);
    stage.driver.Type(text, "!");
    EXPECT_EQ(text.Text(), "a\r\nb🌲!c");
    EXPECT_EQ(FromQt(edit.toPlainText()), "a\nb🌲!c");
    stage.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(FromQt(edit.toPlainText()), "a\nb🌲c");
  });
}

}  // namespace
}  // namespace tarvoni::qt

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include "platform/qt/dialogs/person_picker_dialog.h"
#include "platform/qt/dialogs/pick_list_dialog.h"
#include "tests/qt_dialogs/dialog_testing.h"

namespace tarvoni::qt {
namespace {

class PickDialogTest : public testing::Test {
 protected:
  // The row that is picked by acting on the list; -1 for none.
  int Picked(const std::function<void(QDialog&)>& act) {
    WhenOpen(act);
    const PickResult result = ShowPickList(nullptr, request_, Locale::German());
    extra_ = result.extra;
    return result.row ? static_cast<int>(*result.row) : -1;
  }

  PickRequest request_ = OrdersToPick();
  bool extra_ = false;
};

QTableView& Table(QDialog& dialog) {
  return Part<QTableView>(dialog, "table");
}

TEST_F(PickDialogTest, BeginsAtTheStartText) {
  request_.start_text = "120";
  EXPECT_EQ(Picked([](QDialog& dialog) {
              EXPECT_EQ(Table(dialog).currentIndex().row(), 2);
              EXPECT_EQ(Table(dialog).model()->columnCount(), 3);
              Press(dialog, Qt::Key_Return);
            }),
            2);
}

TEST_F(PickDialogTest, AnEmptyListTellsThatThereIsNothing) {
  request_.rows = Rows({{"ID", FieldType::kInteger}, {"CODE", FieldType::kVarChar, 10}}, {});
  EXPECT_EQ(Picked([](QDialog& dialog) {
              EXPECT_EQ(Part<QLabel>(dialog, "count").text(), "Es gibt noch keine Einträge.");
              Press(dialog, Qt::Key_Escape);
            }),
            -1);
}

TEST_F(PickDialogTest, TheTypedCodeIsTaken) {
  request_.start_text = "120";
  for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
    EXPECT_EQ(Picked([enter](QDialog& dialog) {
                Type(dialog, "1");
                Press(dialog, enter);
              }),
              1);
  }
  // Also where another order of rows put it elsewhere.
  EXPECT_EQ(Picked([](QDialog& dialog) {
              QMetaObject::invokeMethod(Table(dialog).horizontalHeader(), "sectionClicked", Q_ARG(int, 2));
              Type(dialog, "1");
              Press(dialog, Qt::Key_Return);
            }),
            1);
  // What is no code takes the best fit.
  EXPECT_EQ(Picked([](QDialog& dialog) {
              Type(dialog, "we");
              Press(dialog, Qt::Key_Return);
            }),
            4);
}

TEST_F(PickDialogTest, ArrowsMoveWhileTheFilterKeepsTheFocus) {
  EXPECT_EQ(Picked([](QDialog& dialog) {
              Type(dialog, "1");
              Press(dialog, Qt::Key_Down);
              Press(dialog, Qt::Key_Down);
              Press(dialog, Qt::Key_Up);
              EXPECT_EQ(dialog.focusWidget(), &Part(dialog, "filter"));
              Press(dialog, Qt::Key_Return);
            }),
            0)
      << "the second row after filtering, not the typed code";
  EXPECT_EQ(Picked([](QDialog& dialog) {
              Press(dialog, Qt::Key_End, Qt::ControlModifier);
              Press(dialog, Qt::Key_Return);
            }),
            4);
}

TEST_F(PickDialogTest, NothingFittingTakesNothing) {
  EXPECT_EQ(Picked([](QDialog& dialog) {
              Type(dialog, "zzz");
              EXPECT_FALSE(Part(dialog, "ok").isEnabled());
              Press(dialog, Qt::Key_Return);
              EXPECT_TRUE(dialog.isVisible());
              Press(dialog, Qt::Key_Escape);
            }),
            -1);
  EXPECT_FALSE(extra_);
  request_.rows = Recordset();
  EXPECT_EQ(Picked([](QDialog& dialog) {
              Press(dialog, Qt::Key_Down);
              Press(dialog, Qt::Key_Return);
              Press(dialog, Qt::Key_Escape);
            }),
            -1);
}

TEST_F(PickDialogTest, TypingInTheTableGoesToTheFilter) {
  EXPECT_EQ(Picked([](QDialog& dialog) {
              Table(dialog).setFocus();
              Type(dialog, "2");
              EXPECT_EQ(Part<QLineEdit>(dialog, "filter").text(), "2");
              EXPECT_EQ(Part<QLabel>(dialog, "count").text(), "4 von 5 Zeilen");
              Table(dialog).setFocus();
              Press(dialog, Qt::Key_Return);
            }),
            3);
}

TEST_F(PickDialogTest, TheMouseTakesWhatItPointsAt) {
  const auto middle = [](QTableView& table, int row) {
    return table.visualRect(table.model()->index(row, 1)).center();
  };
  EXPECT_EQ(Picked([&](QDialog& dialog) {
              Type(dialog, "1");
              QTest::mouseClick(Table(dialog).viewport(), Qt::LeftButton, {}, middle(Table(dialog), 2));
              Click(dialog, "ok");
            }),
            2)
      << "the row that was clicked on, not the typed code";
  EXPECT_EQ(
      Picked([&](QDialog& dialog) { DoubleClick(*Table(dialog).viewport(), middle(Table(dialog), 3)); }), 3);
}

TEST_F(PickDialogTest, AFurtherButtonAnswersByItself) {
  request_.extra_button = "&Neu";
  EXPECT_EQ(Picked([](QDialog& dialog) { Click(dialog, "extra"); }), -1);
  EXPECT_TRUE(extra_);
}

TEST_F(PickDialogTest, CopiesFromTheFilterAndSums) {
  Picked([](QDialog& dialog) {
    auto* chosen = Table(dialog).selectionModel();
    chosen->select({Table(dialog).model()->index(0, 2), Table(dialog).model()->index(4, 2)},
                   QItemSelectionModel::ClearAndSelect);
    QCoreApplication::processEvents();
    EXPECT_EQ(Part<QLabel>(dialog, "sum").text(), "Summe 117,05 (4 Zahlen)");
    Press(dialog, Qt::Key_C, Qt::ControlModifier);
    dialog.reject();
  });
  EXPECT_EQ(QApplication::clipboard()->text(), "Menge\r\n12,55\r\n7,50\r\n\r\n-3,00\r\n100,00\r\n");
}

TEST_F(PickDialogTest, APersonIsShownInFull) {
  WhenOpen([](QDialog& dialog) {
    Type(dialog, "mueller");
    Press(dialog, Qt::Key_Down);
    QStringList shown;
    for (const QLabel* label : dialog.findChild<QWidget*>("person")->findChildren<QLabel*>()) {
      shown += label->text();
    }
    EXPECT_TRUE(shown.contains("Mueller Gatter")) << FromQt(shown.join(' '));
    Press(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(ShowPersonPicker(nullptr, request_, Locale::German()).row, 3U);
}

// The owner dies while the list is open, as when its Screen is closed from below.
TEST_F(PickDialogTest, TheOwnerMayDieUnderneath) {
  auto* owner = new QWidget;
  QTimer::singleShot(50, [owner] { delete owner; });
  EXPECT_FALSE(ShowPickList(owner, request_, Locale::German()).row);
}

}  // namespace
}  // namespace tarvoni::qt

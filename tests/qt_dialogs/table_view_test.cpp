#include "platform/qt/public/table_view.h"

#include <unistd.h>

#include <QClipboard>
#include <QHeaderView>
#include <QMouseEvent>
#include <filesystem>
#include <fstream>

#include "src/context/controls/data_control.h"
#include "src/context/services/environment.h"
#include "tests/qt_dialogs/dialog_testing.h"
#include "tests/support/fake_connection.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni::qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TableViewTest : public testing::Test {
 protected:
  TableViewTest() {
    grid_.SetCols(3);
    const char* captions[] = {"Nr.", "ID", "Stunden"};
    for (int i = 0; i < 3; ++i) grid_.Columns()[i].SetCaption(captions[i]);
    grid_.Columns()[0].SetWidth(720);
    grid_.Columns()[1].SetVisible(false);
    grid_.Columns()[2].SetAlignment(Alignment::kRight);
    for (int i = 0; i < 6; ++i) grid_.AddItem({std::to_string(i), "9", "7,50"});
    grid_.SetRow(1);
    view_ = std::make_unique<TableView>(grid_);
    view_->row_chosen = [this](int row) { rows_.push_back(row); };
    view_->row_double_clicked = [this](int row) { doubled_.push_back(row); };
    view_->head_clicked = [this](int column) { heads_.push_back(column); };
    view_->column_resized = [this](int column, int twips) { widths_.emplace_back(column, twips); };
    view_->resize(500, 300);
    view_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view_.get()));
  }

  QTableView& Table() { return *view_->Table(); }
  QPoint Middle(int row, int column = 2) {
    return Table().visualRect(Table().model()->index(row, column)).center();
  }
  void Click(int row) { QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Middle(row)); }

  Form form_{"F_TEST"};
  FlexGrid grid_{form_, "grid"};
  std::unique_ptr<TableView> view_;
  std::vector<int> rows_, doubled_, heads_;
  std::vector<std::pair<int, int>> widths_;
};

TEST_F(TableViewTest, ShowsTheGrid) {
  EXPECT_EQ(Table().model()->rowCount(), 6);
  EXPECT_EQ(Table().model()->headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "Stunden");
  EXPECT_EQ(Table().model()->index(3, 2).data().toString(), "7,50");
  EXPECT_TRUE(Table().isColumnHidden(1));
  EXPECT_EQ(Table().columnWidth(0), view_->logicalDpiX() / 2) << "720 twips are half an inch";
  EXPECT_EQ(Table().currentIndex().row(), 1);
  EXPECT_THAT(rows_, IsEmpty()) << "only the user chooses rows";
}

TEST_F(TableViewTest, TellsWhereTheUserGoes) {
  Click(3);
  Click(3);
  EXPECT_THAT(rows_, ElementsAre(3, 3)) << "each click once";
  QTest::keyClick(&Table(), Qt::Key_Down);
  EXPECT_THAT(rows_, ElementsAre(3, 3, 4));
  QTest::keyClick(&Table(), Qt::Key_Left);
  EXPECT_THAT(rows_, ElementsAre(3, 3, 4)) << "the row stayed";
  rows_.clear();
  DoubleClick(*Table().viewport(), Middle(0));
  EXPECT_THAT(rows_, ElementsAre(0));
  EXPECT_THAT(doubled_, ElementsAre(0));
}

TEST_F(TableViewTest, ADrawnSelectionGoesToItsLastRowOnly) {
  QTest::mousePress(Table().viewport(), Qt::LeftButton, {}, Middle(2));
  for (const int row : {3, 4, 5}) {
    QMouseEvent move(QEvent::MouseMove, QPointF(Middle(row)),
                     Table().viewport()->mapToGlobal(QPointF(Middle(row))), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(Table().viewport(), &move);
  }
  EXPECT_THAT(rows_, IsEmpty());
  QTest::mouseRelease(Table().viewport(), Qt::LeftButton, {}, Middle(5));
  QCoreApplication::processEvents();
  EXPECT_THAT(rows_, ElementsAre(5));
  EXPECT_EQ(view_->findChild<QLabel*>("sum")->text(), "Summe 30,00 (4 Zahlen)");
}

TEST_F(TableViewTest, FollowsTheGridWithoutTellingItBack) {
  grid_.SetRow(4);
  view_->ShowRow();
  EXPECT_EQ(Table().currentIndex().row(), 4);
  grid_.SetRows(4);  // three rows below the captions
  view_->ShowRows();
  view_->ShowRow();
  EXPECT_EQ(Table().model()->rowCount(), 3);
  EXPECT_EQ(Table().currentIndex().row(), 2);
  grid_.AddItem({"neu", "", "1"});
  view_->ShowRows();
  EXPECT_EQ(Table().model()->index(3, 0).data().toString(), "neu");
  EXPECT_EQ(view_->findChild<QLabel*>("count")->text(), "Zeile 3 von 4");
  grid_.Columns()[0].SetWidth(1440);
  grid_.Columns()[1].SetVisible(true);
  view_->ShowColumns();
  EXPECT_EQ(Table().columnWidth(0), view_->logicalDpiX());
  grid_.SetCols(1);
  view_->ShowColumns();
  view_->ShowRows();
  EXPECT_EQ(Table().model()->columnCount(), 1);
  EXPECT_THAT(rows_, IsEmpty());
  EXPECT_THAT(widths_, IsEmpty());
}

TEST_F(TableViewTest, TellsHeadsAndWidths) {
  QHeaderView* head = Table().horizontalHeader();
  const int middle = head->height() / 2;
  QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, {head->sectionViewportPosition(2) + 20, middle});
  EXPECT_THAT(heads_, ElementsAre(2));
  head->resizeSection(2, view_->logicalDpiX() * 2);
  EXPECT_THAT(widths_, ElementsAre(std::pair(2, 2880)));
}

TEST_F(TableViewTest, CutNumbersAndCaptionsTakeTheRoomThatIsFree) {
  const QHeaderView& head = *Table().horizontalHeader();
  const auto show = [this](int first, int third) {
    grid_.Columns()[0].SetWidth(first);
    grid_.Columns()[2].SetWidth(third);
    view_->ShowColumns();
    QCoreApplication::processEvents();
  };
  show(300, 450);
  EXPECT_GT(Table().columnWidth(0), head.fontMetrics().horizontalAdvance("Nr."));
  EXPECT_GT(Table().columnWidth(2), head.fontMetrics().horizontalAdvance("Stunden"));
  EXPECT_EQ(grid_.Columns()[2].Width(), 450) << "what is told stays";
  EXPECT_THAT(widths_, IsEmpty());
  grid_.SetTextMatrix(2, 0, "Kaltenwald/ Ahornboden/ Waldteil 4");
  view_->ShowRows();
  show(300, 450);
  EXPECT_GT(Table().columnWidth(0),
            head.fontMetrics().horizontalAdvance("Kaltenwald/ Ahornboden/ Waldteil 4"));
  grid_.SetTextMatrix(2, 0, "1");
  show(7200, 450);
  EXPECT_EQ(Table().columnWidth(2), view_->logicalDpiX() * 450 / 1440) << "no room";
  Table().horizontalHeader()->resizeSection(2, 35);
  show(450, 525);
  EXPECT_EQ(Table().columnWidth(2), 35) << "the user drew it";
}

TEST_F(TableViewTest, CopiesWhatIsChosen) {
  Table().selectionModel()->select({Table().model()->index(0, 0), Table().model()->index(1, 2)},
                                   QItemSelectionModel::ClearAndSelect);
  QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "Nr.\tStunden\r\n0\t7,50\r\n1\t7,50\r\n");
  QStringList menu;
  for (const QAction* action : Table().actions()) menu += action->text().remove('&');
  EXPECT_EQ(menu, QStringList({"Kopieren", "Alles markieren", "Drucken …", "Als CSV-Datei speichern …",
                               "Als Excel-Datei speichern …", "Suchen …"}));
}

TEST_F(TableViewTest, SearchHidesTheRowsThatDoNotAnswer) {
  TablePane& pane = view_->Pane();
  pane.current_hidden = [&] {
    grid_.SetRow(pane.ShownRow(-1, 1));
    view_->ShowRow();
  };
  QTest::keyClick(&Table(), Qt::Key_F, Qt::ControlModifier);
  auto& search = *view_->findChild<QLineEdit*>("search");
  ASSERT_TRUE(search.isVisible());
  const int all = Table().model()->rowCount();
  Table().selectionModel()->select({Table().model()->index(1, 0), Table().model()->index(4, 2)},
                                   QItemSelectionModel::ClearAndSelect);
  QCoreApplication::processEvents();
  const auto& sum = *view_->findChild<QLabel*>("sum");
  ASSERT_EQ(sum.text(), "Summe 30,00 (4 Zahlen)");
  QTest::keyClicks(&search, Table().model()->index(4, 0).data().toString());
  EXPECT_EQ(sum.text(), "") << "of what is seen";
  QTest::keyClick(&search, Qt::Key_X, Qt::AltModifier);
  EXPECT_FALSE(Table().isRowHidden(4)) << "a letter with Alt is no text";
  EXPECT_TRUE(Table().isRowHidden(3));
  EXPECT_EQ(pane.ShownRow(-1, 1), 4);
  EXPECT_EQ(pane.ShownRow(4, 1), 4) << "the last there is";
  EXPECT_EQ(view_->findChild<QLabel*>("count")->text(), QString("1 von %1 Zeilen").arg(all));
  Table().setFocus();
  Table().selectAll();
  QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "Nr.\tStunden\r\n4\t7,50\r\n")
      << "what is hidden is not chosen";
  QCoreApplication::processEvents();
  EXPECT_EQ(sum.text(), "");
  const auto file = std::filesystem::temp_directory_path() / ("found" + std::to_string(getpid()) + ".csv");
  WhenOpen([&](QDialog& dialog) {
    Part<QLineEdit>(dialog, "fileNameEdit").setText(ToQt(file.string()));
    Press(dialog, Qt::Key_Return);
  });
  test::QuietToolkit toolkit;
  Environment environment{.toolkit = &toolkit};
  const EnvironmentScope scope(environment);
  pane.ExportCsv();
  EXPECT_THAT(toolkit.LastTold(), testing::StartsWith("1 Zeile in"));
  std::ifstream saved(file);
  EXPECT_EQ(std::string(std::istreambuf_iterator(saved), {}), "\xEF\xBB\xBFNr.;Stunden\r\n4;7,50\r\n");
  std::filesystem::remove(file);
  QTest::keyClick(&search, Qt::Key_Escape);
  EXPECT_FALSE(search.isVisible());
  EXPECT_FALSE(Table().isRowHidden(3));
}

TEST_F(TableViewTest, ARowOfNothingIsNone) {
  grid_.SetRows(1);
  grid_.AddItem({" ", "", ""});
  view_->ShowRows();
  EXPECT_TRUE(Table().isRowHidden(0));
  const auto& count = *view_->findChild<QLabel*>("count");
  EXPECT_EQ(count.text(), "0 Zeilen");
  grid_.SetTextMatrix(1, 1, "9");
  grid_.Columns()[1].SetVisible(true);
  view_->ShowRows();
  EXPECT_EQ(count.text(), "1 Zeile");
  grid_.Columns()[1].SetVisible(false);
  view_->ShowColumns();
  QCoreApplication::processEvents();
  EXPECT_TRUE(Table().isRowHidden(0)) << "nothing stands in what is seen";
  EXPECT_EQ(count.text(), "0 Zeilen");
}

TEST(GridSourceTest, NumbersWithoutAFormatStandEvenly) {
  auto db = std::make_shared<test::FakeConnection>();
  db->Answer("HOURS", test::Rows({test::Whole("NR"),
                                  {.name = "HOURS", .type = FieldType::kNumeric, .size = 0},
                                  {.name = "RATE", .type = FieldType::kDouble, .size = 0}},
                                 {std::int64_t{1}, Decimal(80000, 4), 2.0, std::int64_t{12},
                                  Decimal(72500, 4), 0.125, std::int64_t{3}, Null{}, 1.5}));
  db->Answer("WHOLE",
             test::Rows({test::Whole("NR"), {.name = "HOURS", .type = FieldType::kNumeric, .size = 0}},
                        {std::int64_t{1}, Decimal(80000, 4)}));
  const Column no_sum{.name = "HOURS", .type = FieldType::kNumeric, .size = 0};
  db->Answer("NO KEY", test::Rows({test::Whole("ID"), test::Chars("UNIT")}, {Null{}, std::string("fm")}));
  db->Answer("NO SUM", test::Rows({test::Chars("UNIT"), no_sum}, {Null{}, Decimal()}));
  Environment environment{.connect = [&](const std::string&) { return db; }};
  const EnvironmentScope scope(environment);
  Form form("F_TEST");
  DataControl data(form, "data");
  DataGrid grid(form, "grid");
  data.SetConnectionString(db->ConnectionString());
  grid.Bind(data);
  const auto show = [&](const SqlText& statement) {
    data.SetRecordSource(statement);
    data.Refresh();
  };
  show("HOURS");
  TableView view(grid);
  grid.Columns()["RATE"].SetNumberFormat("0.0");
  const QAbstractItemModel& shown = *view.Table()->model();
  const auto cell = [&](int row, int column) { return shown.index(row, column).data().toString(); };
  EXPECT_EQ(cell(0, 1), "8,00");
  EXPECT_EQ(cell(1, 1), "7,25");
  EXPECT_EQ(cell(2, 1), "");
  EXPECT_EQ(shown.index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
            Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_EQ(cell(1, 0), "12") << "codes are no amounts";
  EXPECT_EQ(shown.index(1, 0).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
            Qt::AlignLeft | Qt::AlignVCenter);
  EXPECT_EQ(cell(0, 2), "2,0") << "the Screen's own format";
  EXPECT_EQ(grid.CellText(0, 1), "8") << "the Screen's own text stays";
  grid.Columns()["NR"].SetCaption(" ");
  EXPECT_EQ(GridSource(grid).ColumnAt(0).caption, "") << "no head is copied as none";
  show("WHOLE");
  view.ShowColumns();
  view.ShowRows();
  EXPECT_EQ(cell(0, 1), "8");
  const auto& count = *view.findChild<QLabel*>("count");
  EXPECT_EQ(count.text(), "1 Zeile");
  for (const SqlText& nothing : {SqlText("NO KEY"), SqlText("NO SUM")}) {
    show(nothing);
    view.ShowColumns();
    view.ShowRows();
    EXPECT_EQ(count.text(), "0 Zeilen") << nothing.Text();
  }
}

}  // namespace
}  // namespace tarvoni::qt

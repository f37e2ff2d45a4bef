#include "platform/qt/public/table_view.h"

#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QStyle>
#include <QVBoxLayout>
#include <cmath>

#include "platform/qt/readable_columns.h"
#include "src/context/controls/data_control.h"

namespace tarvoni::qt {
namespace {

constexpr double kTwipsPerInch = 1440;

// Sets a flag for the length of a scope.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

int PixelsOfTwips(int twips, const QWidget& widget) {
  return static_cast<int>(std::lround(twips * widget.logicalDpiX() / kTwipsPerInch));
}

int TwipsOfPixels(int pixels, const QWidget& widget) {
  return static_cast<int>(std::lround(pixels * kTwipsPerInch / widget.logicalDpiX()));
}

TableView::TableView(Grid& grid, QWidget* parent)
    : QWidget(parent),
      grid_(grid),
      source_(grid),
      pane_(new TablePane(source_, TablePane::RowMark::kTint, this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(pane_);
  setFocusProxy(Table());
  Table()->horizontalHeader()->setSortIndicatorShown(true);
  Table()->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  pane_->ServeScreen();
  Connect();
  ShowColumns();
  ShowRows();
  ShowRow();
}

void TableView::Connect() {
  Table()->viewport()->installEventFilter(this);
  connect(Table(), &QTableView::clicked, this, [this](const QModelIndex& cell) { Report(cell.row()); });
  connect(Table(), &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
    if (row_double_clicked) row_double_clicked(cell.row());
  });
  connect(Table()->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
    if (!showing_ && !pressing_) ReportIfMoved();
  });
  QHeaderView* head = Table()->horizontalHeader();
  connect(head, &QHeaderView::sectionClicked, this, [this](int column) {
    if (head_clicked) head_clicked(column);
  });
  connect(head, &QHeaderView::sectionResized, this, [this](int column, int, int pixels) {
    if (showing_ || pixels <= 0) return;
    drawn_.insert(column);
    if (column_resized) column_resized(column, TwipsOfPixels(pixels, *this));
  });
}

QSize TableView::sizeHint() const {
  constexpr int kRows = 12;
  const QTableView& table = *Table();
  const int bar = table.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &table);
  const int edge = 2 * table.frameWidth() + bar;
  const int width = table.horizontalHeader()->length() + edge;
  const int height =
      table.horizontalHeader()->height() + kRows * table.verticalHeader()->defaultSectionSize() + edge;
  const bool free_height = table.maximumHeight() == QWIDGETSIZE_MAX;
  return QWidget::sizeHint().expandedTo({width, free_height ? height : 0});
}

void TableView::Report(int row) {
  reported_row_ = row;
  if (row_chosen) row_chosen(row);
}

void TableView::ReportIfMoved() {
  const int row = pane_->CurrentRow();
  if (row >= 0 && row != reported_row_) Report(row);
}

bool TableView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    const auto& resized = static_cast<QResizeEvent&>(*event);
    if (resized.size().width() != resized.oldSize().width()) MakeReadableSoon();
  }
  const bool pressed = event->type() == QEvent::MouseButtonPress;
  if (pressed || event->type() == QEvent::MouseButtonRelease) {
    if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) pressing_ = pressed;
    // The table itself comes after this filter.
    if (!pressed)
      QMetaObject::invokeMethod(
          this, [this] { ReportIfMoved(); }, Qt::QueuedConnection);
  }
  return QWidget::eventFilter(watched, event);
}

void TableView::ShowColumns() {
  const Raised showing(showing_);
  pane_->Model().ColumnsChanged();
  for (int column = 0; column < source_.ColumnCount(); ++column)
    Table()->setColumnHidden(column, !source_.ColumnAt(column).visible);
  ShowWidths();
  ShowRow();
  columns_changed_ = true;
  MakeReadableSoon();
}

void TableView::ShowWidths() {
  for (int column = 0; column < source_.ColumnCount(); ++column) {
    const int pixels = PixelsOfTwips(grid_.Columns()[column].Width(), *this);
    if (pixels > 0 && Table()->columnWidth(column) != pixels) Table()->setColumnWidth(column, pixels);
  }
}

// Once for all that a handler changes.
void TableView::MakeReadableSoon() {
  if (std::exchange(narrow_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        const Raised showing(showing_);
        narrow_ = false;
        if (std::exchange(columns_changed_, false)) FilterRows();
        ShowWidths();
        MakeReadable(*Table(), source_, drawn_);
      },
      Qt::QueuedConnection);
}

void TableView::ShowRows() {
  const Raised showing(showing_);
  if (source_.ReadNumbers()) pane_->Model().ColumnsChanged();
  pane_->Model().RowsChanged();
  FilterRows();
  ShowOrder();
}

// Which rows are seen depends on the columns that are.
void TableView::FilterRows() {
  pane_->FilterRows();
  pane_->RevealCurrent();
  pane_->ShowCount();
}

// The arrow in the head of the column the user sorted by.
void TableView::ShowOrder() {
  const auto* const data_grid = dynamic_cast<const DataGrid*>(&grid_);
  const auto order = data_grid && data_grid->Data() ? data_grid->Data()->Order() : std::nullopt;
  const bool downward = order && order->direction == SortOrder::kDescending;
  Table()->horizontalHeader()->setSortIndicator(order ? order->column : -1,
                                                downward ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void TableView::MarkFrom(int anchor) {
  const Raised showing(showing_);
  const int row = pane_->CurrentRow(), last = source_.ColumnCount() - 1;
  if (anchor < 0 || row < 0 || last < 0) return;
  const QAbstractItemModel& model = *Table()->model();
  Table()->selectionModel()->select({model.index(anchor, 0), model.index(row, last)},
                                    QItemSelectionModel::ClearAndSelect);
  anchor_row_ = anchor;
}

void TableView::ShowRow() {
  const Raised showing(showing_);
  reported_row_ = grid_.Row();
  anchor_row_ = -1;
  if (reported_row_ == pane_->CurrentRow()) return;
  if (reported_row_ < 0) return Table()->selectionModel()->clear();
  pane_->MakeCurrent(reported_row_);
  pane_->RevealCurrent();
}

}  // namespace tarvoni::qt

#include "platform/qt/table_pane.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTimer>
#include <algorithm>

#include "platform/qt/file_export.h"
#include "platform/qt/public/text.h"
#include "platform/qt/search_text.h"
#include "platform/qt/table_text.h"
#include "src/context/services/environment.h"
#include "src/context/services/print_document.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/field_text.h"

namespace tarvoni::qt {
namespace {

constexpr int kSampledRows = 200;
constexpr std::size_t kPortraitColumns = 6;

// Marks the whole current row: lightly, or as if all of it were chosen.
class RowDelegate : public QStyledItemDelegate {
 public:
  RowDelegate(QTableView* table, TablePane::RowMark mark)
      : QStyledItemDelegate(table), table_(table), mark_(mark) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.row() != table_->currentIndex().row()) return;
    if (mark_ == TablePane::RowMark::kFull) {
      option->state |= QStyle::State_Selected | QStyle::State_Active;
      option->state &= ~QStyle::State_HasFocus;
    } else if (!(option->state & QStyle::State_Selected)) {
      QColor tint = option->palette.color(QPalette::Highlight);
      tint.setAlphaF(0.25F);
      option->backgroundBrush = tint;
    }
  }

 private:
  QTableView* table_;
  TablePane::RowMark mark_;
};

// The rows that no search hides.
class ShownRows : public TableSource {
 public:
  ShownRows(const TableSource& all, const QTableView& table) : all_(all) {
    for (int row = 0; row < all_.RowCount(); ++row) {
      if (!table.isRowHidden(row)) rows_.push_back(row);
    }
  }
  int RowCount() const override { return static_cast<int>(rows_.size()); }
  int ColumnCount() const override { return all_.ColumnCount(); }
  TableColumn ColumnAt(int column) const override { return all_.ColumnAt(column); }
  std::string TextAt(int row, int column) const override { return all_.TextAt(RowOf(row), column); }
  Value ValueAt(int row, int column) const override { return all_.ValueAt(RowOf(row), column); }
  bool IsStruck(int row) const override { return all_.IsStruck(RowOf(row)); }

 private:
  int RowOf(int shown) const { return rows_[static_cast<std::size_t>(shown)]; }

  const TableSource& all_;
  std::vector<int> rows_;
};

QTableView* MakeTable(TableModel* model, TablePane::RowMark mark, QWidget* parent) {
  auto* table = new QTableView(parent);
  table->setObjectName("table");
  table->setModel(model);
  table->setItemDelegate(new RowDelegate(table, mark));
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table->setTabKeyNavigation(false);
  table->setWordWrap(false);
  table->setCornerButtonEnabled(false);
  table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table->setContextMenuPolicy(Qt::ActionsContextMenu);
  table->verticalHeader()->hide();
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  const int height = table->fontMetrics().height();
  table->verticalHeader()->setMinimumSectionSize(height);
  table->verticalHeader()->setDefaultSectionSize(height + height / 3);
  table->horizontalHeader()->setHighlightSections(false);
  table->horizontalHeader()->setSectionsClickable(true);
  return table;
}

}  // namespace

TablePane::TablePane(const TableSource& source, RowMark mark, QWidget* parent)
    : QWidget(parent),
      source_(source),
      model_(new TableModel(source, this)),
      table_(MakeTable(model_, mark, this)),
      search_(new QLineEdit(this)),
      count_(new QLabel(this)),
      sum_(new QLabel(this)) {
  count_->setObjectName("count");
  sum_->setObjectName("sum");
  search_->setObjectName("search");
  search_->setPlaceholderText("Suchen");
  search_->setAccessibleName("In der Liste suchen");
  search_->setClearButtonEnabled(true);
  search_->hide();
  search_->installEventFilter(this);
  connect(search_, &QLineEdit::textChanged, this, [this] { Search(); });
  sum_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* line = new QHBoxLayout;
  line->addWidget(search_);
  line->addWidget(count_);
  line->addStretch();
  line->addWidget(sum_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(table_);
  layout->addLayout(line);
  setFocusProxy(table_);
  AddAction("&Kopieren", QKeySequence::Copy, &TablePane::CopySelection);
  AddAction("&Alles markieren", QKeySequence::SelectAll, &TablePane::SelectAll);
  AddAction("&Drucken …", QKeySequence::Print, &TablePane::Print);
  AddAction("Als &CSV-Datei speichern …", {}, &TablePane::ExportCsv);
  AddAction("Als &Excel-Datei speichern …", {}, &TablePane::ExportXlsx);

  // While the mouse draws a selection the sum is worked out once for many steps.
  auto* later = new QTimer(this);
  later->setSingleShot(true);
  connect(later, &QTimer::timeout, this, [this] { ShowSum(); });
  const auto soon = [later] { later->start(0); };
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, soon);
  connect(model_, &QAbstractItemModel::dataChanged, this, soon);
  connect(model_, &QAbstractItemModel::modelReset, this, soon);
  // A tint or mark of the whole row moves with the current cell.
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
    table_->viewport()->update();
    if (serves_screen_) ShowCount();
  });
  ShowCount();
}

void TablePane::AddAction(const QString& text, const QKeySequence& keys, void (TablePane::*act)()) {
  auto* action = new QAction(text, table_);
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, act);
  table_->addAction(action);
}

void TablePane::ServeScreen() {
  serves_screen_ = true;
  AddAction("&Suchen …", QKeySequence::Find, &TablePane::OpenSearch);
}

void TablePane::SetTitle(const std::string& title) {
  title_ = title;
  table_->setAccessibleName(ToQt(title));
}

bool TablePane::IsVoid() const {
  const auto empty = [this](int column) {
    return source_.TextAt(0, column).find_first_not_of(' ') == std::string::npos;
  };
  if (source_.RowCount() != 1) return false;
  return source_.LacksKey(0) || std::ranges::all_of(VisibleColumns(source_), empty);
}

void TablePane::ShowCount() {
  const QLocale german(QLocale::German);
  const int rows = IsVoid() ? 0 : source_.RowCount();
  const QString all = rows == 1 ? QString("1 Zeile") : german.toString(rows) + " Zeilen";
  if (IsSearching()) {
    count_->setText(german.toString(found_) + " von " + all);
  } else if (serves_screen_ && CurrentRow() >= 0 && rows > 1) {
    count_->setText("Zeile " + german.toString(CurrentRow() + 1) + " von " + german.toString(rows));
  } else {
    count_->setText(all);
  }
}

void TablePane::OpenSearch() {
  search_->show();
  search_->setFocus();
  search_->selectAll();
}

bool TablePane::EndSearch() {
  const bool searched = search_->isVisible();
  search_->clear();
  search_->hide();
  return searched;
}

// Nobody works on a row unseen: where the search hides the current one, another becomes it, and where nothing
// answers it stays. What is hidden counts in no sum.
void TablePane::Search() {
  FilterRows();
  if (found_ > 0 && CurrentRow() >= 0 && table_->isRowHidden(CurrentRow()) && current_hidden)
    current_hidden();
  RevealCurrent();
  ShowCount();
  ShowSum();
}

void TablePane::RevealCurrent() {
  if (CurrentRow() >= 0 && !IsVoid()) table_->setRowHidden(CurrentRow(), false);
}

void TablePane::FilterRows() {
  const SearchQuery query(FromQt(search_->text()));
  if (query.Empty() && !filtered_) return table_->setRowHidden(0, IsVoid());
  filtered_ = !query.Empty();
  const bool nothing = IsVoid();
  found_ = 0;
  const std::vector<int> columns = VisibleColumns(source_);
  for (int row = 0; row < source_.RowCount(); ++row) {
    SearchRow cells;
    for (const int column : columns) {
      if (!query.Empty()) cells.Add(source_.TextAt(row, column));
    }
    const bool answers = !nothing && (query.Empty() || query.FitOf(cells) != Fit::kNone);
    found_ += answers ? 1 : 0;
    table_->setRowHidden(row, !answers);
  }
}

int TablePane::ShownRow(int from, int steps) const {
  int found = from >= 0 && !table_->isRowHidden(from) ? from : -1;
  const int step = steps < 0 ? -1 : 1;
  for (int row = from + step; steps != 0 && row >= 0 && row < source_.RowCount(); row += step) {
    if (table_->isRowHidden(row)) continue;
    found = row;
    steps -= step;
  }
  return found;
}

// Escape gives the search up, Enter and the keys of the list go to what it found.
bool TablePane::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  // A letter with Alt is no text, also where no button has it.
  if (static_cast<QKeyEvent*>(event)->modifiers() == Qt::AltModifier) {
    event->ignore();
    return true;
  }
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool goes = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down ||
                    key == Qt::Key_Up || key == Qt::Key_Tab;
  if (!goes && key != Qt::Key_Escape) return QWidget::eventFilter(watched, event);
  if (!goes) EndSearch();
  table_->setFocus();
  if (search_left) search_left();
  return true;
}

void TablePane::MakeCurrent(int row) {
  int column = std::max(table_->currentIndex().column(), 0);
  while (column + 1 < model_->columnCount() && table_->isColumnHidden(column)) ++column;
  // Alone, also while Ctrl is held for the command that moved the row.
  table_->selectionModel()->setCurrentIndex(model_->index(row, column), QItemSelectionModel::ClearAndSelect);
}

void TablePane::FitColumns() {
  const QFontMetrics metrics = table_->fontMetrics();
  const int margin = 2 * metrics.averageCharWidth() + table_->style()->pixelMetric(QStyle::PM_HeaderMargin);
  const int widest = screen()->availableSize().width() / 3;
  const int step = std::max(source_.RowCount() / kSampledRows, 1);
  for (int column = 0; column < source_.ColumnCount(); ++column) {
    int width = table_->horizontalHeader()->sectionSizeHint(column);
    for (int row = 0; row < source_.RowCount(); row += step) {
      width = std::max(width, metrics.horizontalAdvance(ToQt(source_.TextAt(row, column))) + margin);
    }
    table_->setColumnWidth(column, std::min(width, widest));
  }
}

std::vector<CellRange> TablePane::SelectedCells() const {
  std::vector<CellRange> cells;
  for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
    bool goes_on = false;
    for (int row = range.top(); row <= range.bottom(); ++row) {
      const bool hidden = table_->isRowHidden(row);
      if (!hidden && !goes_on) cells.push_back({row, range.left(), row, range.right()});
      if (!hidden) cells.back().bottom = row;
      goes_on = !hidden;
    }
  }
  return cells;
}

void TablePane::ShowSum() {
  sum_->setText(ToQt(SumText(source_, SelectedCells(), CurrentLocale())));
}

void TablePane::Copy() const {
  std::vector<CellRange> cells = SelectedCells();
  if (cells.empty() && CurrentRow() >= 0)
    cells = {{CurrentRow(), 0, CurrentRow(), source_.ColumnCount() - 1}};
  if (!cells.empty()) QGuiApplication::clipboard()->setText(ToQt(ClipboardText(source_, cells)));
}

// What the cell is, as long as it then reads as it does on the screen.
Value TablePane::PrintedCell(int row, int column) const {
  const std::string text = source_.TextAt(row, column);
  const Value value = source_.ValueAt(row, column);
  const bool reads_so = FieldText(value, source_.ColumnAt(column).format, CurrentLocale()) == text;
  return reads_so && !std::holds_alternative<std::string>(value) ? value : Value(text);
}

void TablePane::Print() {
  PrintDocument document{.title = title_};
  PrintDocument::Table& table = document.tables.emplace_back();
  const std::vector<int> columns = VisibleColumns(source_);
  for (const int column : columns) {
    const TableColumn shown = source_.ColumnAt(column);
    table.columns.push_back({shown.caption, shown.alignment, shown.format});
  }
  for (int row = 0; row < source_.RowCount(); ++row) {
    if (table_->isRowHidden(row)) continue;
    PrintDocument::Row& printed = table.rows.emplace_back();
    printed.struck = source_.IsStruck(row);
    for (const int column : columns) printed.cells.push_back(PrintedCell(row, column));
  }
  const Form* const top = CurrentToolkit().TopForm();
  for (const Form* form : CurrentToolkit().OpenForms()) {
    if (serves_screen_ && form != top && !form->Subject().empty())
      document.facts.push_back({"Gehört zu", form->Subject()});
  }
  if (IsSearching()) document.facts.push_back({"Suche", FromQt(search_->text() + ", " + count_->text())});
  document.landscape = columns.size() > kPortraitColumns;
  CurrentToolkit().PreviewPrint(document);
}

void TablePane::ExportCsv() {
  ExportTable(this, ShownRows(source_, *table_), title_, FileKind::kCsv);
}

void TablePane::ExportXlsx() {
  ExportTable(this, ShownRows(source_, *table_), title_, FileKind::kXlsx);
}

}  // namespace tarvoni::qt

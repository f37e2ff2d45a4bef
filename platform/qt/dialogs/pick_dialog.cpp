#include "platform/qt/public/pick_dialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QScrollBar>
#include <QVBoxLayout>

#include "platform/qt/dialogs/dialog_parts.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

constexpr int kFewestLines = 8, kMostLines = 22;

QString Counted(std::size_t rows) {
  return QLocale(QLocale::German).toString(static_cast<qulonglong>(rows));
}

}  // namespace

PickDialog::PickDialog(QWidget* parent, const PickRequest& request, const Locale& locale, const Words& words)
    : QDialog(parent),
      words_(words),
      rows_(request, locale),
      filter_(new QLineEdit(this)),
      list_(new TablePane(rows_, TablePane::RowMark::kFull, this)) {
  setWindowTitle(ToQt(request.caption));
  list_->SetTitle(request.caption);
  Build(request);
  Connect();
  Begin(request.start_text);
}

void PickDialog::Build(const PickRequest& request) {
  SetUpColumns();
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(FilterLine());
  layout->addWidget(list_, 1);
  layout->addLayout(Foot(request));
  ResizeToRows();
}

QHBoxLayout* PickDialog::FilterLine() {
  filter_->setObjectName("filter");
  filter_->setPlaceholderText(words_.placeholder);
  filter_->setClearButtonEnabled(true);
  auto* label = new QLabel(words_.filter, this);
  label->setBuddy(filter_);
  auto* line = new QHBoxLayout;
  line->addWidget(label);
  line->addWidget(filter_);
  return line;
}

void PickDialog::SetUpColumns() {
  QHeaderView* columns = list_->Table()->horizontalHeader();
  columns->setSortIndicatorShown(true);
  columns->setSortIndicator(-1, Qt::AscendingOrder);
  columns->setStretchLastSection(true);
  list_->FitColumns();
}

QHBoxLayout* PickDialog::Foot(const PickRequest& request) {
  const DialogButtons buttons = MakeButtons(*this, "Ü&bernehmen");
  ok_ = buttons.ok;
  if (request.extra_button.empty()) return buttons.line;
  extra_ = new QPushButton(ToQt(request.extra_button), this);
  extra_->setObjectName("extra");
  buttons.line->insertWidget(0, extra_);
  return buttons.line;
}

// As wide as its columns and as high as its rows, within bounds.
void PickDialog::ResizeToRows() {
  const QTableView& table = *list_->Table();
  const int lines = std::clamp(list_->Model().rowCount(), kFewestLines, kMostLines);
  const int height = (lines + 1) * table.verticalHeader()->defaultSectionSize();
  const int width = table.horizontalHeader()->length() + table.verticalScrollBar()->sizeHint().width();
  const QSize around = sizeHint() - table.sizeHint();
  ResizeWithin(*this, {std::max(width, CharactersWide(*this, 60)) + CharactersWide(*this, 6),
                       height + std::max(around.height(), 0) + LinesHigh(*this, 1)});
}

void PickDialog::Connect() {
  filter_->installEventFilter(this);
  list_->Table()->installEventFilter(this);
  connect(filter_, &QLineEdit::textChanged, this, [this] { FilterRows(); });
  connect(list_->Table(), &QTableView::doubleClicked, this, [this] { accept(); });
  connect(list_->Table(), &QTableView::pressed, this, [this] { typed_ = false; });
  connect(list_->Table()->horizontalHeader(), &QHeaderView::sectionClicked, this, &PickDialog::Sort);
  if (extra_) connect(extra_, &QPushButton::clicked, this, &PickDialog::PressExtra);
}

void PickDialog::Begin(const std::string& start_text) {
  if (const auto row = rows_.StartRow(start_text)) {
    list_->MakeCurrent(static_cast<int>(*row));
  }
  ShowState();
  filter_->setFocus();
}

// Before, the list does not know how many rows it shows.
void PickDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  list_->Table()->scrollTo(list_->Table()->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void PickDialog::AddBelowList(QWidget* widget) {
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->insertWidget(column->count() - 1, widget);
  ResizeWithin(*this, {width(), height() + widget->sizeHint().height()});
}

void PickDialog::FilterRows() {
  const int best = rows_.Filter(FromQt(filter_->text()));
  list_->Model().Reset();
  if (best >= 0) list_->MakeCurrent(best);
  typed_ = true;
  ShowState();
}

void PickDialog::Sort(int column) {
  const int row = list_->CurrentRow();
  const auto kept = row < 0 ? std::nullopt : std::optional(rows_.StatementRow(row));
  rows_.SortBy(column);
  list_->Model().Reset();
  if (kept) list_->MakeCurrent(rows_.ShownRow(*kept).value_or(0));
  list_->Table()->horizontalHeader()->setSortIndicator(
      column, rows_.Descending() ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void PickDialog::ShowState() {
  const auto shown = static_cast<std::size_t>(rows_.RowCount());
  ok_->setEnabled(shown > 0);
  if (rows_.AllRows() == 0) return list_->SetCountText("Es gibt noch keine Einträge.");
  if (shown == rows_.AllRows()) return list_->ShowCount();
  list_->SetCountText(shown == 0 ? QString(words_.none)
                                 : Counted(shown) + " von " + Counted(rows_.AllRows()) + " Zeilen");
}

void PickDialog::accept() {
  const int row = list_->CurrentRow();
  std::optional<std::size_t> taken;
  if (row >= 0) taken = rows_.StatementRow(row);
  if (typed_) {
    if (const auto coded = rows_.RowOfCode(FromQt(filter_->text()))) taken = coded;
  }
  if (!taken) return;
  result_ = {.row = taken, .extra = false};
  QDialog::accept();
}

void PickDialog::PressExtra() {
  result_ = {.row = std::nullopt, .extra = true};
  QDialog::accept();
}

bool PickDialog::FilterKey(QKeyEvent& key) {
  // Where nothing is marked in the filter, copying means the list.
  if (key.matches(QKeySequence::Copy) && !filter_->hasSelectedText()) {
    list_->Copy();
    return true;
  }
  if (!MovesInList(key)) return false;
  typed_ = false;
  QCoreApplication::sendEvent(list_->Table(), &key);
  return true;
}

bool PickDialog::ListKey(QKeyEvent& key) {
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    accept();
    return true;
  }
  if (!TypesText(key)) {
    typed_ = false;
    return false;
  }
  filter_->setFocus();
  QCoreApplication::sendEvent(filter_, &key);
  return true;
}

bool PickDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto& key = *static_cast<QKeyEvent*>(event);
    if (watched == filter_ && FilterKey(key)) return true;
    if (watched == list_->Table() && focusWidget() == filter_) return false;  // sent on by the filter
    if (watched == list_->Table() && ListKey(key)) return true;
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace tarvoni::qt

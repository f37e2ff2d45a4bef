#include "platform/qt/table_model.h"

#include <QApplication>
#include <QFont>

#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

Qt::Alignment QtAlignment(Alignment alignment) {
  const Qt::Alignment across = alignment == Alignment::kRight    ? Qt::AlignRight
                               : alignment == Alignment::kCenter ? Qt::AlignHCenter
                                                                 : Qt::AlignLeft;
  return across | Qt::AlignVCenter;
}

}  // namespace

TableModel::TableModel(const TableSource& source, QObject* parent)
    : QAbstractTableModel(parent), source_(source) {
  Reset();
}

void TableModel::ReadColumns() {
  columns_.clear();
  for (int i = 0; i < source_.ColumnCount(); ++i) {
    const TableColumn column = source_.ColumnAt(i);
    columns_.push_back({ToQt(column.caption), QtAlignment(column.alignment)});
  }
}

void TableModel::Reset() {
  beginResetModel();
  ReadColumns();
  rows_ = source_.RowCount();
  endResetModel();
}

void TableModel::ColumnsChanged() {
  if (source_.ColumnCount() != columnCount()) return Reset();
  ReadColumns();
  if (!columns_.empty()) headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void TableModel::RowsChanged() {
  const int rows = source_.RowCount();
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  if (rows_ > 0 && columnCount() > 0) dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
}

int TableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  // The source may have changed before it was told.
  if (!index.isValid() || index.row() >= source_.RowCount() || index.column() >= source_.ColumnCount())
    return {};
  if (role == Qt::DisplayRole) return ToQt(source_.TextAt(index.row(), index.column()));
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(columns_[static_cast<std::size_t>(index.column())].alignment);
  }
  if (role == Qt::FontRole && source_.IsStruck(index.row())) {
    QFont struck = QApplication::font("QTableView");
    struck.setStrikeOut(true);
    return struck;
  }
  return {};
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const Column& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return column.caption;
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(column.alignment);
  return {};
}

}  // namespace tarvoni::qt

#pragma once

#include <QAbstractTableModel>

#include "platform/qt/table_source.h"

namespace tarvoni::qt {

// A table for Qt's views. It sees changes of the source when it is told of them.
class TableModel : public QAbstractTableModel {
 public:
  TableModel(const TableSource& source, QObject* parent);

  const TableSource& Source() const { return source_; }
  // Columns, or all rows at once, are others now.
  void Reset();
  // Captions and alignments changed.
  void ColumnsChanged();
  // Cells changed, rows came or went at the end.
  void RowsChanged();

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Column {
    QString caption;
    Qt::Alignment alignment;
  };
  void ReadColumns();

  const TableSource& source_;
  std::vector<Column> columns_;
  int rows_ = 0;
};

}  // namespace tarvoni::qt

#pragma once

#include "platform/qt/table_source.h"

namespace tarvoni::qt {

// A Screen's grid as a table. A data grid has values behind its cells; the texts of the other count as what they
// read as.
class GridSource : public TableSource {
 public:
  explicit GridSource(Grid& grid);

  int RowCount() const override { return grid_.RowCount(); }
  int ColumnCount() const override { return grid_.Columns().Count(); }
  TableColumn ColumnAt(int column) const override;
  std::string TextAt(int row, int column) const override { return grid_.CellText(row, column); }
  Value ValueAt(int row, int column) const override;
  bool IsStruck(int row) const override { return data_grid_ && data_grid_->IsStruck(row); }

 private:
  Grid& grid_;
  const DataGrid* data_grid_;
};

}  // namespace tarvoni::qt

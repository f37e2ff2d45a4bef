#pragma once

#include <string>
#include <vector>

#include "platform/qt/table_source.h"

namespace tarvoni::qt {

// A Screen's grid as a table. A data grid has values behind its cells: its numbers stand evenly, also where the Screen
// gave their column no format. The texts of the other grid count as what they read as.
class GridSource : public TableSource {
 public:
  explicit GridSource(Grid& grid);

  // Looks at the numbers anew after rows changed. True if columns look otherwise now.
  bool ReadNumbers();

  int RowCount() const override { return grid_.RowCount(); }
  int ColumnCount() const override { return grid_.Columns().Count(); }
  TableColumn ColumnAt(int column) const override;
  std::string TextAt(int row, int column) const override;
  Value ValueAt(int row, int column) const override;
  bool IsStruck(int row) const override { return data_grid_ && data_grid_->IsStruck(row); }
  bool LacksKey(int row) const override;

 private:
  // The format of a column that has none of its own; "" where it needs none.
  std::string EvenFormatOf(int column) const;

  Grid& grid_;
  const DataGrid* data_grid_;
  std::vector<std::string> even_formats_;  // of each column
};

}  // namespace tarvoni::qt

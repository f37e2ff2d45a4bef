#include "platform/qt/grid_source.h"

#include "platform/qt/cell_type.h"
#include "src/context/services/environment.h"

namespace tarvoni::qt {

GridSource::GridSource(Grid& grid) : grid_(grid), data_grid_(dynamic_cast<const DataGrid*>(&grid)) {}

TableColumn GridSource::ColumnAt(int column) const {
  const GridColumn& shown = grid_.Columns()[column];
  return {.caption = shown.Caption(),
          .alignment = shown.Alignment(),
          .format = shown.NumberFormat(),
          .visible = shown.Visible() && shown.Width() > 0,
          .sums = shown.Alignment() == Alignment::kRight};
}

Value GridSource::ValueAt(int row, int column) const {
  if (data_grid_) return data_grid_->CellValue(row, column);
  return TypedText(grid_.CellText(row, column), CurrentLocale());
}

}  // namespace tarvoni::qt

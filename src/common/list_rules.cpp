#include "src/common/list_rules.h"

#include <utility>

namespace tarvoni {

ShownColumn AmountColumn(ColumnKey data_field, std::string caption, int width, std::string number_format) {
  return {.data_field = std::move(data_field),
          .caption = std::move(caption),
          .number_format = std::move(number_format),
          .alignment = Alignment::kRight,
          .width = width};
}

ShownColumn QuantityColumn(ColumnKey data_field, ColumnKey unit, std::string caption, int width,
                           std::string number_format) {
  ShownColumn column =
      AmountColumn(std::move(data_field), std::move(caption), width, std::move(number_format));
  column.unit = std::move(unit);
  return column;
}

ShownColumn FigureColumn(ColumnKey data_field, std::string caption, int width, std::string number_format) {
  ShownColumn column =
      AmountColumn(std::move(data_field), std::move(caption), width, std::move(number_format));
  column.sums = false;
  return column;
}

void ShowColumns(DataGrid& grid, const std::vector<ShownColumn>& columns) {
  for (GridColumn& column : grid.Columns()) column.SetVisible(false);
  for (const ShownColumn& shown : columns) {
    GridColumn& column = shown.data_field.In(grid.Columns());
    column.SetVisible(true);
    column.SetCaption(shown.caption);
    column.SetNumberFormat(shown.number_format);
    column.SetAlignment(shown.alignment);
    column.SetSums(shown.sums);
    if (shown.unit)
      column.SetUnitColumn(static_cast<int>(&shown.unit->In(grid.Columns()) - &grid.Columns()[0]));
    if (shown.width > 0) column.SetWidth(shown.width);
  }
}

DeferredCall::DeferredCall(Timer& timer, std::function<void()> action) : timer_(timer) {
  if (timer_.Interval() == 0) timer_.SetInterval(1);
  timer_.Elapsed = [this, action = std::move(action)] {
    timer_.SetEnabled(false);
    action();
  };
}

void DeferredCall::Request() {
  timer_.SetEnabled(true);
}

}  // namespace tarvoni

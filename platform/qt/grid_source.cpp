#include "platform/qt/grid_source.h"

#include <algorithm>
#include <utility>

#include "platform/qt/cell_type.h"
#include "src/context/services/environment.h"
#include "src/context/values/field_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni::qt {

GridSource::GridSource(Grid& grid) : grid_(grid), data_grid_(dynamic_cast<const DataGrid*>(&grid)) {}

bool GridSource::ReadNumbers() {
  if (!data_grid_) return false;
  std::vector<std::string> formats(static_cast<std::size_t>(ColumnCount()));
  for (const int column : VisibleColumns(*this)) {
    if (!grid_.Columns()[column].NumberFormat().empty()) continue;
    EvenFormat needed;
    for (int row = 0; row < RowCount(); ++row) needed.Add(data_grid_->CellValue(row, column));
    formats[static_cast<std::size_t>(column)] = needed.Text();
  }
  return std::exchange(even_formats_, formats) != formats;
}

std::string GridSource::EvenFormatOf(int column) const {
  const auto place = static_cast<std::size_t>(column);
  const bool none = place >= even_formats_.size() || !grid_.Columns()[column].NumberFormat().empty();
  return none ? "" : even_formats_[place];
}

TableColumn GridSource::ColumnAt(int column) const {
  const GridColumn& shown = grid_.Columns()[column];
  const std::string even = EvenFormatOf(column);
  const Alignment alignment = even.empty() ? shown.Alignment() : Alignment::kRight;
  return {.caption = std::string(utf8::Trim(shown.Caption())),
          .alignment = alignment,
          .format = even.empty() ? shown.NumberFormat() : even,
          .visible = shown.Visible() && shown.Width() > 0,
          .sums = shown.Sums() && alignment == Alignment::kRight,
          .unit = shown.UnitColumn()};
}

std::string GridSource::TextAt(int row, int column) const {
  const std::string even = EvenFormatOf(column);
  return even.empty() ? grid_.CellText(row, column)
                      : FieldText(data_grid_->CellValue(row, column), even, CurrentLocale());
}

Value GridSource::ValueAt(int row, int column) const {
  if (data_grid_) return data_grid_->CellValue(row, column);
  return TypedText(grid_.CellText(row, column), CurrentLocale());
}

// Without an ID a row that holds nothing, or sums of nothing, stands for none.
bool GridSource::LacksKey(int row) const {
  if (!data_grid_) return false;
  if (GridColumn* const key = grid_.Columns().Find("ID"))
    return IsNull(data_grid_->CellValue(row, static_cast<int>(key - &*grid_.Columns().begin())));
  return std::ranges::all_of(VisibleColumns(*this), [&](int column) {
    const auto number = NumberIn(ValueAt(row, column));
    return number ? *number == Decimal() : TextAt(row, column).find_first_not_of(' ') == std::string::npos;
  });
}

}  // namespace tarvoni::qt

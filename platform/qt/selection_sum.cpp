#include "platform/qt/selection_sum.h"

#include <algorithm>

#include "platform/qt/cell_type.h"
#include "src/context/number_text.h"

namespace tarvoni::qt {
namespace {

// A column's numbers, from `top` to `bottom`.
void AddColumn(SelectionSum& total, const TableSource& table, int column, int top, int bottom) {
  const std::string format = table.ColumnAt(column).format;
  for (int row = top; row <= bottom; ++row) {
    const auto number = NumberIn(table.ValueAt(row, column));
    if (!number) continue;
    if (total.count++ == 0) total.format = format;
    if (total.format != format) total.format.clear();
    if (total.sum) total.sum = Add(*total.sum, *number);
  }
}

}  // namespace

std::string SelectionSum::Text(const Locale& locale) const {
  if (count < 2) return {};
  if (!sum) return "Die Summe ist zu groß.";
  const std::string shown = format.empty() ? NumberToText(*sum, locale) : FormatNumber(*sum, format, locale);
  return "Summe " + shown + " (" + std::to_string(count) + " Zahlen)";
}

SelectionSum SumOf(const TableSource& table, const std::vector<CellRange>& cells) {
  SelectionSum total{.count = 0, .sum = Decimal(), .format = {}};
  for (const CellRange& range : cells) {
    for (int column = range.left; column <= range.right; ++column) {
      if (!table.ColumnAt(column).visible) continue;
      AddColumn(total, table, column, range.top, std::min(range.bottom, table.RowCount() - 1));
    }
  }
  return total;
}

}  // namespace tarvoni::qt

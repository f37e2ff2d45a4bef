#include "platform/qt/selection_sum.h"

#include <algorithm>

#include "platform/qt/cell_type.h"
#include "src/context/values/number_text.h"

namespace tarvoni::qt {
namespace {

constexpr int kCellsLookedAt = 100;  // for the number of places

// A column's numbers, from `top` to `bottom`.
void AddColumn(SelectionSum& total, const TableSource& table, int column, int top, int bottom,
               char separator) {
  for (int row = top; row <= bottom; ++row) {
    const auto number = NumberIn(table.ValueAt(row, column));
    if (!number) continue;
    if (total.count++ < kCellsLookedAt) {
      total.places = std::max(total.places, PlacesOf(table.TextAt(row, column), separator));
    }
    if (total.sum) total.sum = Add(*total.sum, *number);
  }
}

}  // namespace

std::string SelectionSum::Text(const Locale& locale) const {
  if (count < 2) return {};
  if (!sum) return "Die Summe ist zu groß.";
  const std::size_t shown = std::max(places, PlacesOf(sum->ToShortString(), '.'));
  return "Summe " + FormatNumber(*sum, "0." + std::string(shown, '0'), locale) + " (" +
         std::to_string(count) + " Zahlen)";
}

SelectionSum SumOf(const TableSource& table, const std::vector<CellRange>& cells, const Locale& locale) {
  SelectionSum total{.count = 0, .sum = Decimal(), .places = 0};
  for (const CellRange& range : cells) {
    for (int column = range.left; column <= range.right; ++column) {
      if (!table.ColumnAt(column).visible) continue;
      const int bottom = std::min(range.bottom, table.RowCount() - 1);
      AddColumn(total, table, column, range.top, bottom, locale.decimal_separator);
    }
  }
  return total;
}

}  // namespace tarvoni::qt

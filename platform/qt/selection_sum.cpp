#include "platform/qt/selection_sum.h"

#include <algorithm>

#include "platform/qt/cell_type.h"
#include "src/context/values/number_text.h"

namespace tarvoni::qt {
namespace {

constexpr int kCellsLookedAt = 100;  // for the number of places

// A column's numbers, from `top` to `bottom`; what is struck through counts no more.
void AddColumn(SelectionSum& total, const TableSource& table, int column, int top, int bottom,
               char separator) {
  const int unit_column = table.ColumnAt(column).unit;
  for (int row = top; row <= bottom; ++row) {
    const auto number = table.IsStruck(row) ? std::nullopt : NumberIn(table.ValueAt(row, column));
    if (!number) continue;
    const std::string unit = unit_column < 0 ? "" : table.TextAt(row, unit_column);
    total.mixed = total.mixed || total.unit.value_or(unit) != unit;
    total.unit = unit;
    if (total.count++ < kCellsLookedAt) {
      total.places = std::max(total.places, PlacesOf(table.TextAt(row, column), separator));
    }
    if (total.sum) total.sum = Add(*total.sum, *number);
  }
}

}  // namespace

std::string SelectionSum::Text(const Locale& locale) const {
  if (count == 0 || mixed) return {};
  if (!sum) return "zu groß";
  const std::size_t shown = std::max(places, PlacesOf(sum->ToShortString(), '.'));
  return FormatNumber(*sum, "0." + std::string(shown, '0'), locale);
}

SelectionSum SumOf(const TableSource& table, int column, const std::vector<CellRange>& cells,
                   const Locale& locale) {
  SelectionSum total{.count = 0, .sum = Decimal(), .places = 0};
  for (const CellRange& range : cells) {
    if (column < range.left || column > range.right) continue;
    const int bottom = std::min(range.bottom, table.RowCount() - 1);
    AddColumn(total, table, column, range.top, bottom, locale.decimal_separator);
  }
  return total;
}

std::string SumText(const TableSource& table, const std::vector<CellRange>& cells, const Locale& locale) {
  std::vector<std::string> sums;
  std::string one;
  int most = 0;
  for (const int column : VisibleColumns(table)) {
    const TableColumn shown = table.ColumnAt(column);
    if (!shown.sums) continue;
    const SelectionSum sum = SumOf(table, column, cells, locale);
    const std::string text = sum.Text(locale);
    if (text.empty()) continue;
    most = std::max(most, sum.count);
    one = "Summe " + text + " (" + std::to_string(sum.count) + " Zahlen)";
    sums.push_back(shown.caption + " " + text);
  }
  if (most < 2) return {};
  if (sums.size() == 1) return one;
  std::string all = "Summen: " + sums.front();
  for (std::size_t i = 1; i < sums.size(); ++i) all += " · " + sums[i];
  return all;
}

}  // namespace tarvoni::qt

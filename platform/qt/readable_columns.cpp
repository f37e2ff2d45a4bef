#include "platform/qt/readable_columns.h"

#include <QHeaderView>
#include <QStyle>
#include <algorithm>

#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

constexpr int kSampledRows = 200;
constexpr int kLongestText = 200;  // characters

// What a column of texts shows may end in dots.
bool IsText(const TableColumn& column) {
  return column.format.empty() && column.alignment == Alignment::kLeft;
}

int NeededByCells(const QTableView& table, const TableSource& source, int column) {
  const QFontMetrics metrics = table.fontMetrics();
  const int step = std::max(source.RowCount() / kSampledRows, 1);
  int width = 0;
  for (int row = 0; row < source.RowCount(); row += step)
    width = std::max(width, metrics.horizontalAdvance(ToQt(source.TextAt(row, column)).left(kLongestText)));
  const int margin = 2 * (table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1);
  return width == 0 ? 0 : width + margin + 1;
}

// A date or a number says something else when its end is missing.
int NeededByValues(const QTableView& table, const TableSource& source, int column) {
  return IsText(source.ColumnAt(column)) ? 0 : NeededByCells(table, source, column);
}

// Without the room for the arrow of an order.
int NeededByCaption(const QTableView& table, const TableSource& source, int column) {
  const QHeaderView& head = *table.horizontalHeader();
  const int margin = 2 * head.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &head) + 2;
  return head.fontMetrics().horizontalAdvance(ToQt(source.ColumnAt(column).caption)) + margin;
}

// A table that is wider than its place by a little needs no bar to scroll sideways: its widest column of texts gives way.
void Narrow(QTableView& table, const TableSource& source, const std::set<int>& kept, int over) {
  constexpr int kLargestShare = 4;  // of the column
  int widest = -1;
  for (int column = 0; column < source.ColumnCount(); ++column) {
    const TableColumn shown = source.ColumnAt(column);
    if (kept.contains(column) || !shown.visible || !IsText(shown)) continue;
    if (widest < 0 || table.columnWidth(column) > table.columnWidth(widest)) widest = column;
  }
  if (widest >= 0 && over <= table.columnWidth(widest) / kLargestShare)
    table.setColumnWidth(widest, table.columnWidth(widest) - over);
}

}  // namespace

void MakeReadable(QTableView& table, const TableSource& source, const std::set<int>& kept) {
  int room = table.viewport()->width() - table.horizontalHeader()->length();
  if (room < 0) Narrow(table, source, kept, -room);
  for (const auto needed : {NeededByValues, NeededByCaption, NeededByCells}) {
    for (int column = 0; column < source.ColumnCount() && room > 0; ++column) {
      if (table.isColumnHidden(column) || kept.contains(column)) continue;
      const int more = needed(table, source, column) - table.columnWidth(column);
      const bool text = needed == NeededByCells;  // of which a part says something too
      const int given = text ? std::min(more, room) : more;
      if (given <= 0 || given > room) continue;
      table.setColumnWidth(column, table.columnWidth(column) + given);
      room -= given;
    }
  }
}

}  // namespace tarvoni::qt

#include "platform/qt/table_source.h"

namespace tarvoni::qt {

std::vector<int> VisibleColumns(const TableSource& table) {
  std::vector<int> columns;
  for (int column = 0; column < table.ColumnCount(); ++column) {
    if (table.ColumnAt(column).visible) columns.push_back(column);
  }
  return columns;
}

}  // namespace tarvoni::qt

#pragma once

#include <QTableView>
#include <set>

#include "platform/qt/table_source.h"

namespace tarvoni::qt {

// Widths that were told for another font may cut dates, numbers and captions. As far as the table has room to spare,
// such columns are shown as wide as they need, values before captions and those before texts. `kept` are columns that
// stay as they are.
void MakeReadable(QTableView& table, const TableSource& source, const std::set<int>& kept);

}  // namespace tarvoni::qt

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/qt/table_source.h"
#include "src/context/locale.h"

namespace tarvoni::qt {

// The exact sum of the numbers in chosen cells.
struct SelectionSum {
  int count = 0;               // of cells that hold a number
  std::optional<Decimal> sum;  // nothing if it has more than 38 digits
  std::string format;          // of all these columns, "" if they differ

  // "Summe 12,50 (3 Zahlen)"; "" for less than two numbers.
  std::string Text(const Locale& locale) const;
};

SelectionSum SumOf(const TableSource& table, const std::vector<CellRange>& cells);

}  // namespace tarvoni::qt

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/qt/table_source.h"
#include "src/context/values/locale.h"

namespace tarvoni::qt {

// The exact sum of the numbers in chosen cells of a column.
struct SelectionSum {
  int count = 0;                         // of cells that hold a number
  std::optional<Decimal> sum;            // nothing if it has more than 38 digits
  std::size_t places = 0;                // the most that one of the first cells shows
  std::optional<std::string> unit = {};  // of the numbers; "" where they need none
  bool mixed = false;                    // the units differ

  // With as many places as the cells show, or more if it has more; "" without a number or with numbers of several
  // units.
  std::string Text(const Locale& locale) const;
};

SelectionSum SumOf(const TableSource& table, int column, const std::vector<CellRange>& cells,
                   const Locale& locale);

// The sums of the chosen cells, each column by itself: "Summe 12,50 (3 Zahlen)" for one, "Summen: Stunden 47,25 · Betrag
// 656,44" for several. Codes, days, texts and rows struck through have none; "" where no column has two numbers.
std::string SumText(const TableSource& table, const std::vector<CellRange>& cells, const Locale& locale);

}  // namespace tarvoni::qt

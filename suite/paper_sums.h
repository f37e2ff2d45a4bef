#pragma once

#include <map>
#include <string>
#include <utility>

#include "src/context/services/environment.h"
#include "src/context/services/print_document.h"
#include "src/context/values/number_text.h"

namespace tarvoni::suite {

// Sums of columns of a printed table, exact to the last place.
class PaperSums {
 public:
  // What is no number adds nothing.
  void Add(std::size_t column, const Value& value) {
    const auto number = NumberOf(value, CurrentLocale());
    Decimal& sum = sums_[column];
    if (number) sum = tarvoni::Add(sum, *number).value();
  }

  // The row that shows them, with a text in its first cell.
  PrintDocument::Row AsRow(std::string text, PrintDocument::RowKind kind) const {
    PrintDocument::Row row{.cells = {std::move(text)}, .kind = kind};
    for (const auto& [column, sum] : sums_) {
      if (row.cells.size() <= column) row.cells.resize(column + 1);
      row.cells[column] = sum;
    }
    return row;
  }

 private:
  std::map<std::size_t, Decimal> sums_;
};

}  // namespace tarvoni::suite

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "src/context/controls/form.h"
#include "src/context/data/column_key.h"

// What Screens do with their lists.
namespace tarvoni {

// One shown column of a grid.
struct ShownColumn {
  ColumnKey data_field;  // by name or number
  std::string caption;
  std::string number_format = {};
  Alignment alignment = Alignment::kLeft;
  int width = 0;  // twips, until the user sets his own; 0 leaves it
  bool sums = true;
  std::optional<ColumnKey> unit = {};  // the column of its numbers' unit
};

// Numbers, aligned to the right: amounts, which have a sum.
ShownColumn AmountColumn(ColumnKey data_field, std::string caption, int width,
                         std::string number_format = "0.00");
// Quantities, whose sum means something only where all have one unit.
ShownColumn QuantityColumn(ColumnKey data_field, ColumnKey unit, std::string caption, int width,
                           std::string number_format = "0.00");
// Numbers without a sum: rates, measures, positions, quantities whose unit the list does not know.
ShownColumn FigureColumn(ColumnKey data_field, std::string caption, int width,
                         std::string number_format = "0.00");

// Shows these columns with their captions and hides all others.
void ShowColumns(DataGrid& grid, const std::vector<ShownColumn>& columns);

// A call that waits until the current event has finished: the timer runs once and turns itself off.
class DeferredCall {
 public:
  DeferredCall(Timer& timer, std::function<void()> action);
  DeferredCall(const DeferredCall&) = delete;
  DeferredCall& operator=(const DeferredCall&) = delete;
  void Request();

 private:
  Timer& timer_;
};

}  // namespace tarvoni

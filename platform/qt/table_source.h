#pragma once

#include <string>
#include <vector>

#include "src/context/controls/grid.h"
#include "src/context/values/value.h"

namespace tarvoni::qt {

struct TableColumn {
  std::string caption;
  Alignment alignment = Alignment::kLeft;
  std::string format = {};  // of numbers and dates, as FieldText takes it
  bool visible = true;
  bool sums = true;                // holds amounts, whose sum means something
  int unit = GridColumn::kNoUnit;  // a sum means something only where this column says the same in each row
};

// A table as it stands on the screen: cells as the user reads them, and what they are. Rows and columns from 0.
class TableSource {
 public:
  virtual ~TableSource() = default;
  virtual int RowCount() const = 0;
  virtual int ColumnCount() const = 0;
  virtual TableColumn ColumnAt(int column) const = 0;
  virtual std::string TextAt(int row, int column) const = 0;
  virtual Value ValueAt(int row, int column) const = 0;
  // The row counts no more and is struck through.
  virtual bool IsStruck(int /*row*/) const { return false; }
  // The row stands for none: a statement that finds nothing may give one without a key.
  virtual bool LacksKey(int /*row*/) const { return false; }
};

// A block of cells, both ends included.
struct CellRange {
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;

  bool Has(int row, int column) const {
    return row >= top && row <= bottom && column >= left && column <= right;
  }
};

std::vector<int> VisibleColumns(const TableSource& table);

}  // namespace tarvoni::qt

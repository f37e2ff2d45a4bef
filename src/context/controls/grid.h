#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "src/context/controls/control.h"
#include "src/context/data/recordset.h"
#include "src/context/values/locale.h"

namespace tarvoni {

class DataControl;
class Grid;

enum class Alignment { kLeft, kRight, kCenter };

class GridColumn {
 public:
  static constexpr int kDefaultWidth = 1440;

  GridColumn(Grid& grid, std::string_view data_field)
      : grid_(&grid), data_field_(data_field), caption_(data_field) {}

  const std::string& DataField() const { return data_field_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  int Width() const { return width_; }  // twips, 1440 an inch
  void SetWidth(int twips);
  tarvoni::Alignment Alignment() const { return alignment_; }
  void SetAlignment(tarvoni::Alignment alignment);
  const std::string& NumberFormat() const { return number_format_; }
  void SetNumberFormat(std::string_view format);
  // Whether a sum of its numbers means something: that of rates and of numbers of positions does not, and that of
  // quantities only where the column of their unit, from 0, says the same in each row; kNoUnit where they need none.
  static constexpr int kNoUnit = -1;
  bool Sums() const { return sums_; }
  void SetSums(bool sums) { sums_ = sums; }
  int UnitColumn() const { return unit_column_; }
  void SetUnitColumn(int number) { unit_column_ = number; }

 private:
  Grid* grid_;
  std::string data_field_;
  std::string caption_;
  bool visible_ = true;
  int width_ = kDefaultWidth;
  tarvoni::Alignment alignment_ = tarvoni::Alignment::kLeft;
  std::string number_format_;
  bool sums_ = true;
  int unit_column_ = kNoUnit;
};

class GridColumns {
 public:
  int Count() const { return static_cast<int>(columns_.size()); }
  GridColumn& operator[](int number);                   // from 0; CallError
  GridColumn& operator[](std::string_view data_field);  // without regard to case; CallError
  GridColumn* Find(std::string_view data_field);
  auto begin() { return columns_.begin(); }
  auto end() { return columns_.end(); }

 private:
  friend class Grid;
  std::vector<GridColumn> columns_;
};

// What both grids share: columns with a width, and cells as text.
class Grid : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }

  GridColumns& Columns() { return columns_; }
  // Rows below the captions.
  virtual int RowCount() const = 0;
  // The current row from 0; -1 without one.
  virtual int Row() const = 0;
  // The cell as the user sees it.
  virtual std::string CellText(int row, int column) const = 0;

 protected:
  void ResetColumns(const std::vector<std::string>& data_fields);
  // Columns that stay keep all they have; new ones come behind them, without a field.
  void ResizeColumns(int count);
  const GridColumn& ColumnAt(int number) const;
  int ColumnCount() const { return columns_.Count(); }

 private:
  friend class GridColumn;
  GridColumns columns_;
};

// The rows of a data control. Its columns are made anew from the statement's at each refresh.
class DataGrid : public Grid {
 public:
  using Grid::Grid;
  ~DataGrid() override;

  void Bind(DataControl& data);
  DataControl* Data() const { return data_; }
  int RowCount() const override;
  int Row() const override;
  std::string CellText(int row, int column) const override;
  // The value behind a cell, in the order the rows are shown.
  const Value& CellValue(int row, int column) const;
  // Rows with this text in the field are shown struck through: they count no more.
  void SetStruck(std::string_view field, std::string_view text);
  bool IsStruck(int row) const;
  // Shows the rows anew after they changed in the database behind the data control's back.
  void Refresh();

  Event<int> HeadClick;  // the column's number

 private:
  friend class DataControl;
  void RowsChanged();
  void RowMoved() { Announce(Aspect::kRow); }

  DataControl* data_ = nullptr;
  mutable Recordset view_;
  std::string struck_field_;
  std::string struck_text_;
};

// A grid of texts filled by program, with its captions above.
class FlexGrid : public Grid {
 public:
  using Grid::Grid;

  int Cols() const { return ColumnCount(); }
  void SetCols(int count);  // what columns there were keep caption, width and the rest
  // Rows with the caption row, as the system counts them: 1 is an empty grid.
  int Rows() const { return RowCount() + 1; }
  void SetRows(int count);
  // Row 0 holds the captions.
  std::string TextMatrix(int row, int column) const;
  void SetTextMatrix(int row, int column, std::string_view text);
  void AddItem(const std::vector<std::string>& cells);

  int RowCount() const override { return static_cast<int>(cells_.size()); }
  int Row() const override { return row_; }
  void SetRow(int row);  // from 0, below the captions
  std::string CellText(int row, int column) const override { return TextMatrix(row + 1, column); }

 private:
  std::vector<std::vector<std::string>> cells_;
  int row_ = -1;
};

}  // namespace tarvoni

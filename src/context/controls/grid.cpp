#include "src/context/controls/grid.h"

#include <algorithm>

#include "src/context/controls/data_control.h"
#include "src/context/services/environment.h"
#include "src/context/values/call_error.h"
#include "src/context/values/field_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

// The place of a column that there is.
std::size_t PlaceOf(int number, const GridColumns& columns) {
  if (number < 0 || number >= columns.Count())
    throw CallError("Die Tabelle hat keine Spalte " + std::to_string(number) + ".");
  return static_cast<std::size_t>(number);
}

}  // namespace

void GridColumn::SetCaption(std::string_view caption) {
  caption_ = caption;
  grid_->Announce(Aspect::kColumns);
}

void GridColumn::SetVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible) grid_->Announce(Aspect::kColumns);
}

void GridColumn::SetWidth(int twips) {
  if (std::exchange(width_, std::max(twips, 0)) != twips) grid_->Announce(Aspect::kColumns);
}

void GridColumn::SetAlignment(tarvoni::Alignment alignment) {
  if (std::exchange(alignment_, alignment) != alignment) grid_->Announce(Aspect::kColumns);
}

void GridColumn::SetNumberFormat(std::string_view format) {
  number_format_ = format;
  grid_->Announce(Aspect::kColumns);
}

GridColumn& GridColumns::operator[](int number) {
  return columns_[PlaceOf(number, *this)];
}

GridColumn& GridColumns::operator[](std::string_view data_field) {
  if (GridColumn* column = Find(data_field)) return *column;
  throw CallError("Die Tabelle hat keine Spalte " + std::string(data_field) + ".");
}

GridColumn* GridColumns::Find(std::string_view data_field) {
  const std::string wanted = utf8::Upper(data_field);
  const auto found = std::ranges::find_if(
      columns_, [&](const GridColumn& column) { return utf8::Upper(column.DataField()) == wanted; });
  return found == columns_.end() ? nullptr : &*found;
}

void Grid::ResetColumns(const std::vector<std::string>& data_fields) {
  columns_.columns_.clear();
  columns_.columns_.reserve(data_fields.size());
  for (const std::string& field : data_fields) columns_.columns_.emplace_back(*this, field);
  Announce(Aspect::kColumns);
}

void Grid::ResizeColumns(int count) {
  std::vector<GridColumn>& columns = columns_.columns_;
  const auto wanted = static_cast<std::size_t>(std::max(count, 0));
  if (wanted == columns.size()) return;
  columns.resize(wanted, GridColumn(*this, ""));
  Announce(Aspect::kColumns);
}

const GridColumn& Grid::ColumnAt(int number) const {
  return columns_.columns_[PlaceOf(number, columns_)];
}

DataGrid::~DataGrid() {
  if (data_) std::erase(data_->grids_, this);
}

void DataGrid::Bind(DataControl& data) {
  data_ = &data;
  data.grids_.push_back(this);
}

int DataGrid::RowCount() const {
  return view_.IsOpen() ? static_cast<int>(view_.RecordCount()) : 0;
}

int DataGrid::Row() const {
  if (!data_ || !data_->Recordset().HasCurrentRow()) return -1;
  return data_->Recordset().AbsolutePosition() - 1;
}

const Value& DataGrid::CellValue(int row, int column) const {
  if (view_.AbsolutePosition() != row + 1) view_.SetAbsolutePosition(row + 1);
  return view_.Fields()[column].Value();
}

std::string DataGrid::CellText(int row, int column) const {
  return FieldText(CellValue(row, column), ColumnAt(column).NumberFormat(), CurrentLocale());
}

void DataGrid::SetStruck(std::string_view field, std::string_view text) {
  struck_field_ = field;
  struck_text_ = text;
}

bool DataGrid::IsStruck(int row) const {
  if (struck_field_.empty() || row >= RowCount()) return false;
  if (view_.AbsolutePosition() != row + 1) view_.SetAbsolutePosition(row + 1);
  return FieldText(view_.Fields()[struck_field_].Value(), "", CurrentLocale()) == struck_text_;
}

void DataGrid::Refresh() {
  // A copy keeps the order the rows were sorted in, and moving it raises no event.
  view_ = data_ ? data_->Recordset().Rows() : Recordset();
  Announce(Aspect::kRows);
}

void DataGrid::RowsChanged() {
  std::vector<std::string> fields;
  const Recordset& rows = data_->Recordset().Rows();
  if (rows.IsOpen()) {
    for (const Column& column : rows.Columns()) fields.push_back(column.name);
  }
  ResetColumns(fields);
  Refresh();
}

void FlexGrid::SetCols(int count) {
  ResizeColumns(count);
  for (auto& row : cells_) row.resize(static_cast<std::size_t>(Cols()));
  Announce(Aspect::kRows);
}

void FlexGrid::SetRows(int count) {
  cells_.resize(static_cast<std::size_t>(std::max(count - 1, 0)),
                std::vector<std::string>(static_cast<std::size_t>(Cols())));
  row_ = std::min(row_, RowCount() - 1);
  Announce(Aspect::kRows);
}

std::string FlexGrid::TextMatrix(int row, int column) const {
  if (row == 0) return ColumnAt(column).Caption();
  ColumnAt(column);
  if (row < 0 || row > RowCount())
    throw CallError("Die Tabelle hat keine Zeile " + std::to_string(row) + ".");
  return cells_[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column)];
}

void FlexGrid::SetTextMatrix(int row, int column, std::string_view text) {
  if (row == 0) return Columns()[column].SetCaption(text);
  TextMatrix(row, column);  // checks the place
  cells_[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column)] = text;
  Announce(Aspect::kRows);
}

void FlexGrid::AddItem(const std::vector<std::string>& cells) {
  cells_.push_back(cells);
  cells_.back().resize(static_cast<std::size_t>(Cols()));
  Announce(Aspect::kRows);
}

void FlexGrid::SetRow(int row) {
  row = std::clamp(row, -1, RowCount() - 1);
  if (std::exchange(row_, row) != row) Announce(Aspect::kRow);
}

}  // namespace tarvoni

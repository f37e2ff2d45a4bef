#include "src/context/controls/data_control.h"

#include <algorithm>

#include "src/context/controls/grid.h"
#include "src/context/services/environment.h"
#include "src/context/values/call_error.h"

namespace tarvoni {

void BoundRecordset::MoveFirst() {
  rows_.MoveFirst();
  owner_.RowMoved();
}

void BoundRecordset::MoveLast() {
  rows_.MoveLast();
  owner_.RowMoved();
}

void BoundRecordset::MoveNext() {
  rows_.MoveNext();
  owner_.RowMoved();
}

void BoundRecordset::MovePrevious() {
  rows_.MovePrevious();
  owner_.RowMoved();
}

void BoundRecordset::Move(long rows) {
  rows_.Move(rows);
  owner_.RowMoved();
}

void BoundRecordset::SetAbsolutePosition(int position) {
  rows_.SetAbsolutePosition(position);
  owner_.RowMoved();
}

void BoundRecordset::Find(std::string_view criterion) {
  rows_.Find(criterion);
  owner_.RowMoved();
}

void BoundRecordset::Sort(std::string_view columns) {
  rows_.Sort(columns);
  Sorted();
}

void BoundRecordset::Sort(int column, SortOrder order) {
  rows_.Sort(column, order);
  Sorted();
}

void BoundRecordset::Sorted() {
  for (DataGrid* grid : owner_.grids_) grid->Refresh();
  owner_.RowMoved();
}

DataControl::DataControl(Form& form, std::string name, int index) : Control(form, std::move(name), index) {
  SetVisible(false);
}

DataControl::~DataControl() {
  for (DataGrid* grid : grids_) grid->data_ = nullptr;
}

void DataControl::SetConnectionString(std::string_view connection_string) {
  if (connection_string_ == connection_string) return;
  connection_string_ = connection_string;
  connection_.reset();
}

void DataControl::Refresh() {
  if (!connection_) {
    const auto& connect = Environment::Current().connect;
    if (!connect) throw CallError("Es ist nicht festgelegt, wie eine Datenbank geöffnet wird.");
    connection_ = connect(connection_string_);
  }
  recordset_.rows_ = connection_->Open(record_source_);
  KeepOrder();
  RowsChanged();
  RowMoved();
}

// Another statement may have another column in its place; its own order holds then.
void DataControl::KeepOrder() {
  if (!order_) return;
  const std::vector<Column>& columns = recordset_.rows_.Columns();
  const auto place = static_cast<std::size_t>(order_->column);
  if (place < columns.size() && columns[place].name == order_->field) {
    recordset_.rows_.Sort(order_->column, order_->direction);
  } else {
    order_.reset();
  }
}

void DataControl::OrderBy(int column) {
  tarvoni::Recordset& rows = recordset_.rows_;
  const bool turns = order_ && order_->column == column && order_->direction == SortOrder::kAscending;
  order_ = {.column = column,
            .field = rows.Columns().at(static_cast<std::size_t>(column)).name,
            .direction = turns ? SortOrder::kDescending : SortOrder::kAscending};
  const bool stands = recordset_.HasCurrentRow();
  const std::size_t row = stands ? rows.StatementRow() : 0;
  rows.Sort(column, order_->direction);
  while (stands && rows.StatementRow() != row) rows.MoveNext();
  recordset_.Sorted();
}

void DataControl::RowMoved() {
  for (DataGrid* grid : grids_) grid->RowMoved();
  MoveComplete();
}

void DataControl::RowsChanged() {
  for (DataGrid* grid : grids_) grid->RowsChanged();
}

}  // namespace tarvoni

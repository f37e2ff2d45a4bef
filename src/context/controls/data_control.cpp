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

// Another statement may have no such field; its own order holds then.
void DataControl::KeepOrder() {
  const auto orders = [this](const Column& column) { return order_.starts_with("[" + column.name + "]"); };
  if (order_.empty()) return;
  if (std::ranges::any_of(recordset_.rows_.Columns(), orders)) {
    recordset_.rows_.Sort(order_);
  } else {
    order_.clear();
  }
}

void DataControl::OrderBy(const std::string& field) {
  const std::string upward = "[" + field + "]";
  order_ = order_ == upward ? upward + " DESC" : upward;
  tarvoni::Recordset& rows = recordset_.rows_;
  const bool stands = recordset_.HasCurrentRow();
  const std::size_t row = stands ? rows.StatementRow() : 0;
  rows.Sort(order_);
  while (stands && rows.StatementRow() != row) rows.MoveNext();
  for (DataGrid* grid : grids_) grid->Refresh();
  RowMoved();
}

void DataControl::RowMoved() {
  for (DataGrid* grid : grids_) grid->RowMoved();
  MoveComplete();
}

void DataControl::RowsChanged() {
  for (DataGrid* grid : grids_) grid->RowsChanged();
}

}  // namespace tarvoni

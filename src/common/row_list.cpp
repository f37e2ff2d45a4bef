#include "src/common/row_list.h"

#include <utility>

#include "src/common/screen.h"

namespace tarvoni {

RowList::RowList(Screen& screen, Guard& loading, Shape shape)
    : loading_(loading),
      data_(shape.data),
      grid_(shape.grid),
      id_column_(std::move(shape.id_column)),
      at_end_(shape.at_end) {
  grid_.Bind(data_);
  screen.AddList(*this);
  if (!shape.layout_key.empty()) screen.KeepLayout(grid_, std::move(shape.layout_key));
}

void RowList::Connect(std::function<void()> show, std::function<std::vector<ShownColumn>()> columns,
                      Button* edit) {
  columns_ = std::move(columns);
  data_.MoveComplete = [this, show = std::move(show)] {
    if (StepOntoRow() && !loading_.IsSet()) show();
  };
  if (!edit) return;
  grid_.DblClick = [edit] {
    if (edit->Enabled()) edit->Press();
  };
}

void RowList::Load(const SqlText& statement) {
  data_.SetRecordSource(statement);
  Refresh();
}

void RowList::Refresh() {
  std::vector<int> widths;
  for (const GridColumn& column : grid_.Columns()) widths.push_back(column.Width());
  {
    const auto hold = loading_.Hold();
    data_.Refresh();
  }
  ShowColumns(grid_, columns_());
  for (int i = 0; i < grid_.Columns().Count() && i < static_cast<int>(widths.size()); ++i) {
    grid_.Columns()[i].SetWidth(widths[static_cast<std::size_t>(i)]);
  }
}

bool RowList::Find(std::int32_t id) {
  return FindBy(Compose("{} = {}", Name(id_column_), Id(id)).Text());
}

bool RowList::Find(std::string_view column, std::string_view text) {
  return FindBy(Compose("{} = '{}'", Name(column), Quoted(text)).Text());
}

// The way to the row is no row event's business.
bool RowList::FindBy(std::string_view criterion) {
  BoundRecordset& rows = data_.Recordset();
  if (rows.Empty()) return false;
  Recordset sought = rows.Rows();
  sought.MoveFirst();
  sought.Find(criterion);
  if (!sought.EndOfFile()) {
    rows.SetAbsolutePosition(sought.AbsolutePosition());
    return true;
  }
  {
    const auto hold = loading_.Hold();
    rows.MoveLast();
  }
  rows.MoveNext();
  return false;
}

bool RowList::StepOntoRow() {
  BoundRecordset& rows = data_.Recordset();
  if (rows.Empty()) return false;
  if (at_end_ == AtEnd::kStays) return rows.HasCurrentRow();
  if (rows.BeginOfFile()) rows.MoveFirst();
  if (rows.EndOfFile()) rows.MoveLast();
  return true;
}

std::int32_t RowList::Neighbour() const {
  if (!data_.Recordset().HasCurrentRow()) return 0;
  Recordset rows = data_.Recordset().Rows();
  const std::size_t last = rows.RecordCount();
  if (last < 2) return 0;
  const bool on_last = static_cast<std::size_t>(rows.AbsolutePosition()) == last;
  rows.Move(on_last ? -1 : 1);
  return ToLong(rows.Fields()[id_column_].Value());
}

}  // namespace tarvoni

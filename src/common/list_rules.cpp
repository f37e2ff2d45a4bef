#include "src/common/list_rules.h"

#include <utility>

#include "src/common/query.h"
#include "src/common/view_switch.h"
#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"

namespace tarvoni {

void ConnectList(DataControl& data, DataGrid& grid, const Guard& guard, Button& edit,
                 std::function<void()> show_row) {
  grid.Bind(data);
  data.MoveComplete = [&data, &guard, show_row = std::move(show_row)] {
    if (StepOntoRow(data) && !guard.IsSet()) show_row();
  };
  grid.DblClick = [&edit] {
    if (edit.Enabled()) edit.Press();
  };
}

void RefreshUnderGuard(DataControl& data, Guard& guard, const std::function<void()>& set_columns) {
  {
    const auto hold = guard.Hold();
    data.Refresh();
  }
  set_columns();
}

void RefreshKeepingWidths(DataControl& data, DataGrid& grid, Guard& guard,
                          const std::function<void()>& set_columns) {
  std::vector<int> widths;
  for (const GridColumn& column : grid.Columns()) widths.push_back(column.Width());
  RefreshUnderGuard(data, guard, [&] {
    set_columns();
    for (int i = 0; i < grid.Columns().Count() && i < static_cast<int>(widths.size()); ++i) {
      grid.Columns()[i].SetWidth(widths[static_cast<std::size_t>(i)]);
    }
  });
}

bool FindRow(DataControl& data, std::string_view column, std::int32_t id, Guard& guard) {
  BoundRecordset& rows = data.Recordset();
  if (rows.Empty()) return false;
  {
    const auto hold = guard.Hold();
    rows.MoveFirst();
  }
  rows.Find(Compose("{} = {}", Name(column), Id(id)).Text());
  // Without a hit the row event may already have stepped back onto the list.
  return rows.HasCurrentRow() && ToLong(rows.Fields()[column].Value()) == id;
}

bool StepOntoRow(DataControl& data) {
  BoundRecordset& rows = data.Recordset();
  if (rows.Empty()) return false;
  if (rows.BeginOfFile()) rows.MoveFirst();
  if (rows.EndOfFile()) rows.MoveLast();
  return true;
}

std::int32_t NeighbourOfCurrentRow(const DataControl& data, std::string_view id_column) {
  if (!data.Recordset().HasCurrentRow()) return 0;
  Recordset rows = data.Recordset().Rows();
  const std::size_t last = rows.RecordCount();
  if (last < 2) return 0;
  const bool on_last = static_cast<std::size_t>(rows.AbsolutePosition()) == last;
  rows.Move(on_last ? -1 : 1);
  return ToLong(rows.Fields()[id_column].Value());
}

ShownColumn AmountColumn(std::string data_field, std::string caption, int width, std::string number_format) {
  return {.data_field = std::move(data_field),
          .caption = std::move(caption),
          .number_format = std::move(number_format),
          .alignment = Alignment::kRight,
          .width = width};
}

void ShowColumns(DataGrid& grid, const std::vector<ShownColumn>& columns) {
  for (GridColumn& column : grid.Columns()) column.SetVisible(false);
  for (const ShownColumn& shown : columns) {
    GridColumn& column = grid.Columns()[shown.data_field];
    column.SetVisible(true);
    column.SetCaption(shown.caption);
    column.SetNumberFormat(shown.number_format);
    column.SetAlignment(shown.alignment);
    if (shown.width > 0) column.SetWidth(shown.width);
  }
}

void GridLayout::Load(const TvnVar_Dll& context) const {
  CurrentSuite().GridLayouts().LoadLayout(context, key_, grid_);
}

void GridLayout::Save(const TvnVar_Dll& context) const {
  CurrentSuite().GridLayouts().SaveLayout(context, key_, grid_);
}

void CloseInViewState(Form& form, const Button& closing_button, const GridLayout& layout,
                      const TvnVar_Dll& context) {
  form.Form_Unload = [&](bool& cancel) {
    RefuseUnloadWhileDisabled(cancel, closing_button);
    if (!cancel) layout.Save(context);
  };
}

DeferredCall::DeferredCall(Timer& timer, std::function<void()> action) : timer_(timer) {
  if (timer_.Interval() == 0) timer_.SetInterval(1);
  timer_.Elapsed = [this, action = std::move(action)] {
    timer_.SetEnabled(false);
    action();
  };
}

void DeferredCall::Request() {
  timer_.SetEnabled(true);
}

}  // namespace tarvoni

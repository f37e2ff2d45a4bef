#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "src/common/guard.h"
#include "src/context/controls/form.h"
#include "src/context/data/column_key.h"
#include "src/context/data/tvn_var_dll.h"

// What Screens do with their lists.
namespace tarvoni {

// The list's own events: a move shows the row unless the guard is set, and steps back onto the list from its ends; a
// double click presses the button that edits, if it is enabled.
void ConnectList(DataControl& data, DataGrid& grid, const Guard& guard, Button& edit,
                 std::function<void()> show_row);

// Runs the list's statement again while the guard keeps MoveComplete quiet, then sets the columns, which a
// refresh makes anew.
void RefreshUnderGuard(DataControl& data, Guard& guard, const std::function<void()>& set_columns);
// The same, with the widths of the columns carried over from before.
void RefreshKeepingWidths(DataControl& data, DataGrid& grid, Guard& guard,
                          const std::function<void()>& set_columns);

// Searches from the first row for "COLUMN = id"; the way there is no row event's business. False without a hit,
// which leaves the list behind its last row.
bool FindRow(DataControl& data, std::string_view column, std::int32_t id, Guard& guard);

// The row event's guard against the ends: steps back onto the list. False if there is no current row.
bool StepOntoRow(DataControl& data);

// Id of the row that takes the place of the current one when it is deleted: the next, or for the last the one
// before; 0 if there is no other.
std::int32_t NeighbourOfCurrentRow(const DataControl& data, std::string_view id_column);

// One shown column of a grid.
struct ShownColumn {
  ColumnKey data_field;  // by name or number
  std::string caption;
  std::string number_format = {};
  Alignment alignment = Alignment::kLeft;
  int width = 0;  // twips, until the user sets his own; 0 leaves it
};

// A number, aligned to the right.
ShownColumn AmountColumn(ColumnKey data_field, std::string caption, int width,
                         std::string number_format = "0.00");

// Shows these columns with their captions and hides all others.
void ShowColumns(DataGrid& grid, const std::vector<ShownColumn>& columns);

// The user's widths of a grid, stored under a key.
class GridLayout {
 public:
  GridLayout(Grid& grid, std::string key) : grid_(grid), key_(std::move(key)) {}
  void Load(const TvnVar_Dll& context) const;
  void Save(const TvnVar_Dll& context) const;

 private:
  Grid& grid_;
  std::string key_;
};

// The window closes only while the closing button is enabled, that is in view state, and saves the layout then.
void CloseInViewState(Form& form, const Button& closing_button, const GridLayout& layout,
                      const TvnVar_Dll& context);

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

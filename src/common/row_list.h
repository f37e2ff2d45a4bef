#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "src/common/current_row.h"
#include "src/common/guard.h"
#include "src/common/list_rules.h"

namespace tarvoni {

class Screen;

// A list of a Screen: the rows of a statement in a grid, one of them current. The Screen says in its constructor what
// shows a row and which columns there are; it loads the list when it opens and whenever its rows changed.
class RowList {
 public:
  // What a move before the first or behind the last row does.
  enum class AtEnd { kStepsBack, kStays };

  struct Shape {
    DataControl& data;
    DataGrid& grid;
    std::string layout_key = {};  // of the user's widths; "" keeps none
    std::string id_column = "ID";
    AtEnd at_end = AtEnd::kStepsBack;
  };

  // While `loading` is set no move shows a row.
  RowList(Screen& screen, Guard& loading, Shape shape);
  RowList(const RowList&) = delete;
  RowList& operator=(const RowList&) = delete;

  // `show` copies the current row into the fields. A double click presses `edit`, if there is one and it is enabled.
  void Connect(std::function<void()> show, std::function<std::vector<ShownColumn>()> columns,
               Button* edit = nullptr);

  // Runs the statement, sets the columns and keeps the widths they had. No row is shown on the way.
  void Load(const SqlText& statement);
  void Refresh();

  // Searches from the first row; only the row found is shown. False without a hit, which leaves the list behind its
  // last row, or steps back onto it.
  bool Find(std::int32_t id);
  bool Find(std::string_view column, std::string_view text);
  void MoveFirst() { data_.Recordset().MoveFirst(); }

  bool Empty() const { return data_.Recordset().Empty(); }
  CurrentRow Row() const { return CurrentRow(data_); }
  std::int32_t CurrentId() const { return Row().Number(id_column_); }
  // Id of the row that takes the place of the current one when it is deleted: the next, or for the last the one
  // before; 0 if there is no other.
  std::int32_t Neighbour() const;

  DataControl& Data() const { return data_; }
  DataGrid& ItsGrid() const { return grid_; }

 private:
  bool FindBy(std::string_view criterion);
  bool StepOntoRow();

  Guard& loading_;
  DataControl& data_;
  DataGrid& grid_;
  std::string id_column_;
  AtEnd at_end_;
  std::function<std::vector<ShownColumn>()> columns_;
};

}  // namespace tarvoni

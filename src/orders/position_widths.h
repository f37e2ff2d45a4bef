#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/controls/grid.h"
#include "src/context/data/database.h"

namespace tarvoni {

// The widths of the fourteen columns of the list of positions, in twips. They stand in MODELS from one time to the
// next.
class PositionWidths {
 public:
  static constexpr std::size_t kColumns = 14;

  PositionWidths();  // the defaults

  // Without a stored first width the defaults hold; a column that has none of its own takes its default.
  void Read(Connection& connection);
  // The visible columns as the user left them; of a grid without any, the widths that were read.
  void Store(Connection& connection, DataGrid& grid) const;

  int Of(std::size_t column) const { return widths_.at(column); }

 private:
  std::vector<int> widths_;
  bool stored_ = false;  // MODELS has a row for them
};

}  // namespace tarvoni

#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The widths that the user gave a grid's columns, a row of GITTERLAYOUT for each key: the width in twips and
// the data field of a column, a line each. The widths find their columns again by the field, the first of a
// name by the first line with it; columns and lines without a partner are left alone, so that a layout
// outlives a change of the statement.
class GridLayoutStore final : public tarvoni::GridLayoutStore {
 public:
  void LoadLayout(const TvnVar_Dll& context, const std::string& key, Grid& grid) override;
  // A grid without columns keeps what is stored.
  void SaveLayout(const TvnVar_Dll& context, const std::string& key, Grid& grid) override;
};

}  // namespace tarvoni::suite

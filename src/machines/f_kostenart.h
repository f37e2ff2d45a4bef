#pragma once

#include <cstdint>
#include <string>

#include "src/common/screen.h"

namespace tarvoni {

// The cost types under one label, several of them.
class F_Kostenart : public Screen {
 public:
  F_Kostenart();
  void Run(const TvnVar_Dll& tvnvar, const std::string& strParam);

 protected:
  layout::Node BuildLayout() override;

 private:
  void RefreshList();
  void TakeCurrentRow();
  void AddCostType();
  void RemoveCostType();

  Frame Frame1{*this, "Frame1"};
  DataControl Data1{*this, "Data1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  Button btnNeu{*this, "btnNeu"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnOk{*this, "btnOk"};

  std::string label_;
  std::int32_t curId = 0;  // of the current row in MASCHINE_STAMM
  Guard refreshing_;
  RowList cost_types_{
      *this, refreshing_, {.data = Data1, .grid = DataGrid1, .at_end = RowList::AtEnd::kStays}};
};

}  // namespace tarvoni

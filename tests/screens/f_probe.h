#pragma once

#include "src/common/box_rules.h"
#include "src/common/code_field.h"
#include "src/common/contracts.h"
#include "src/common/date_field.h"
#include "src/common/row_list.h"
#include "src/common/screen.h"

namespace tarvoni::test {

// A question of another area.
class UnitQuestion {
 public:
  virtual ~UnitQuestion() = default;
  virtual std::string NewestUnit(Connection& connection) = 0;
};

class RecentUnit : public UnitQuestion {
 public:
  std::string NewestUnit(Connection& connection) override;
};

// Uses once what Screens to come need: two lists, columns without a name, option buttons, a flexible grid that is filled
// again and again, dates typed as text, combo boxes, and what another area knows.
class F_Probe : public Screen {
 public:
  F_Probe();
  void Run(const TvnVar_Dll& tvnvar);

 protected:
  layout::Node BuildLayout() override;

 private:
  void ShowUnit();
  void ShowWorkType();
  void FillMonths();

  Guard loading;
  DataControl Data1{*this, "Data1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  DataControl AdodcKLR{*this, "AdodcKLR"};
  DataGrid DataGridKLR{*this, "DataGridKLR"};
  FlexGrid MSFlexGrid1{*this, "MSFlexGrid1"};
  Frame frmWerte{*this, "frmWerte"};
  Label lblEinheit{*this, "lblEinheit"};
  TextBox txtEinheit{*this, "txtEinheit"};
  TextBox txtAnzahl{*this, "txtAnzahl"};
  OptionButton optMenge{*this, "optMenge"};
  OptionButton optHa{*this, "optHa"};
  Label lblDatum{*this, "lblDatum"};
  TextBox txtDatum{*this, "txtDatum"};
  ComboBox txtValuta{*this, "txtValuta"};
  Label lblNeueste{*this, "lblNeueste"};
  Button btnFuellen{*this, "btnFuellen"};
  Button btnFind{*this, "btnFind"};
  Button btnFrage{*this, "btnFrage"};
  Button btnOk{*this, "btnOk"};

  RowList units_{*this, loading, {.data = Data1, .grid = DataGrid1, .layout_key = "F_PROBE1"}};
  RowList work_types_{
      *this,
      loading,
      {.data = AdodcKLR, .grid = DataGridKLR, .layout_key = "F_PROBE2", .at_end = RowList::AtEnd::kStays}};
  DateField date_{Context(), loading, txtDatum, lblDatum};
};

}  // namespace tarvoni::test

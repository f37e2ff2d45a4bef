#include "src/context/controls/grid.h"

#include <gtest/gtest.h>

#include "src/context/controls/form.h"

namespace tarvoni {
namespace {

struct Summary : Form {
  Summary() : Form("F_Summary") {}
  FlexGrid flex{*this, "flex"};
};

TEST(FlexGrid, ColumnsStayWhenTheirNumberIsSetAgain) {
  Summary form;
  FlexGrid& flex = form.flex;
  flex.SetCols(2);
  flex.SetTextMatrix(0, 1, "Wert");
  flex.Columns()[1].SetWidth(700);
  flex.Columns()[1].SetAlignment(Alignment::kRight);
  flex.AddItem({"a", "1"});
  flex.SetCols(2);
  flex.SetRows(1);
  EXPECT_EQ(flex.TextMatrix(0, 1), "Wert");
  EXPECT_EQ(flex.Columns()[1].Width(), 700);
  EXPECT_EQ(flex.Columns()[1].Alignment(), Alignment::kRight);
  flex.SetCols(3);
  EXPECT_EQ(flex.Columns()[1].Width(), 700) << "a new column moves none that was there";
  EXPECT_EQ(flex.Columns()[2].Width(), GridColumn::kDefaultWidth);
  flex.AddItem({"b"});
  EXPECT_EQ(flex.TextMatrix(1, 2), "") << "a row is as wide as the grid";
  flex.SetCols(1);
  flex.SetCols(2);
  EXPECT_EQ(flex.TextMatrix(0, 1), "") << "a column that was gone begins anew";
  EXPECT_EQ(flex.TextMatrix(1, 1), "");
}

}  // namespace
}  // namespace tarvoni

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/common/current_row.h"
#include "src/common/list_rules.h"
#include "src/context/services/environment.h"
#include "tests/support/fake_connection.h"
#include "tests/support/fake_suite.h"
#include "tests/support/quiet_toolkit.h"
#include "tests/support/sql.h"

namespace tarvoni {
namespace {

using test::Rows;
using test::Whole;

constexpr const char* kList = "SELECT ID,(SELECT A),(SELECT B),EURO FROM POSITION";

struct Positions : Form {
  Positions() : Form("F_Positions") { DataGrid1.Bind(Data1); }
  DataControl Data1{*this, "Data1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  TextBox box{*this, "box"};
};

// A list whose second and third column have no name.
class Columns : public testing::Test {
 protected:
  Columns() {
    form.Load();
    db->Answer(
        kList,
        Rows({Whole("ID"), Whole(""), Whole(""), {.name = "EURO", .type = FieldType::kBoolean, .size = 0}},
             {std::int64_t{1}, std::int64_t{40}, std::int64_t{7}, true,   //
              std::int64_t{2}, std::int64_t{30}, std::int64_t{9}, false,  //
              std::int64_t{3}, Null{}, std::int64_t{8}, Null{}}));
    form.Data1.SetRecordSource(Sql(kList));
    form.Data1.Refresh();
  }
  std::string Order() {
    std::string ids;
    for (int row = 0; row < form.DataGrid1.RowCount(); ++row) ids += form.DataGrid1.CellText(row, 0);
    return ids;
  }

  std::shared_ptr<test::FakeConnection> db = std::make_shared<test::FakeConnection>();
  test::FakeSuite suite;
  test::QuietToolkit toolkit;
  Environment environment{
      .toolkit = &toolkit, .suite = &suite, .connect = [this](const std::string&) { return db; }};
  EnvironmentScope scope{environment};
  Positions form;
  BoundRecordset& rows = form.Data1.Recordset();
};

TEST_F(Columns, AreReadByNumberAndFlagsAsTruthValues) {
  const CurrentRow row(form.Data1);
  row.Show(2, form.box, "00");
  EXPECT_EQ(form.box.Text(), "07");
  EXPECT_EQ(row.Number(1), 40);
  EXPECT_TRUE(row.Flag("EURO"));
  EXPECT_TRUE(row.Flag(0)) << "any number but 0";
  rows.MoveNext();
  EXPECT_FALSE(row.Flag("EURO"));
  rows.MoveNext();
  EXPECT_FALSE(row.Flag("EURO")) << "NULL";
  EXPECT_TRUE(row.IsNull(1));
  EXPECT_THROW(row.Text(4), DatabaseError);
}

TEST_F(Columns, AreShownAndCaptionedByNumber) {
  ShowColumns(form.DataGrid1,
              {{.data_field = 2, .caption = "Objekt", .width = 700}, AmountColumn(1, "Stelle", 800)});
  EXPECT_FALSE(form.DataGrid1.Columns()["ID"].Visible());
  EXPECT_EQ(form.DataGrid1.Columns()[2].Caption(), "Objekt");
  EXPECT_EQ(form.DataGrid1.Columns()[2].Width(), 700);
  EXPECT_EQ(form.DataGrid1.CellText(0, 1), "40,00");
}

TEST_F(Columns, ClickOnAHeadSortsThatColumnAlsoWithoutAName) {
  const auto shown = toolkit.Show(form, form.DataGrid1);
  shown->user.ClickHead(form.DataGrid1, 2);
  EXPECT_EQ(Order(), "132");
  shown->user.ClickHead(form.DataGrid1, 2);
  EXPECT_EQ(Order(), "231");
  shown->user.ClickHead(form.DataGrid1, 1);
  EXPECT_EQ(Order(), "321") << "the other column without a name; NULL comes first";
  rows.Sort(1, SortOrder::kDescending);
  EXPECT_EQ(Order(), "123");
}

}  // namespace
}  // namespace tarvoni

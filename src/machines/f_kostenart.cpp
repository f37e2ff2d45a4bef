#include "src/machines/f_kostenart.h"

#include "src/common/list_rules.h"
#include "src/context/values/number_text.h"
#include "src/machines/f_kostenart_sql.h"

namespace tarvoni {

namespace sql = kostenart_sql;

F_Kostenart::F_Kostenart() : Screen("F_Kostenart") {
  DataGrid1.Bind(Data1);
  Data1.MoveComplete = [this] {
    if (!refreshing_) TakeCurrentRow();
  };
  DataGrid1.Click = [this] { TakeCurrentRow(); };
  btnNeu.Click = [this] { AddCostType(); };
  btnLoschen.Click = [this] { RemoveCostType(); };
  btnOk.Click = [this] { Unload(); };
}

void F_Kostenart::Run(const TvnVar_Dll& tvnvar, const std::string& strParam) {
  Enter(tvnvar);
  label_ = strParam;
  BindMessages();
  SetUpList();
  Show();
}

void F_Kostenart::SetUpList() {
  Connect(Data1);
  Data1.SetRecordSource(sql::CostTypesUnder(label_));
  RefreshList();
}

void F_Kostenart::RefreshList() {
  RefreshUnderGuard(Data1, refreshing_, [this] { SetColumns(); });
  curId = 0;
  TakeCurrentRow();
}

void F_Kostenart::SetColumns() {
  DataGrid1.Columns()[0].SetVisible(false);
  DataGrid1.Columns()[1].SetCaption("Nummer");
  DataGrid1.Columns()[1].SetWidth(900);
  DataGrid1.Columns()[2].SetCaption("Name");
  DataGrid1.Columns()[2].SetWidth(4400);
}

void F_Kostenart::TakeCurrentRow() {
  if (Data1.Recordset().HasCurrentRow()) curId = ToLong(Data1.Recordset().Fields()["ID"].Value());
}

void F_Kostenart::AddCostType() {
  const std::string picked =
      CurrentSuite().Lookup().Pick(Context(), sql::OfferedCostTypes(), "KOSTENART", "0", "100");
  const std::int32_t kostenart_id = ReadId(picked);
  if (kostenart_id != 0 && !HasRow(Db(), sql::HasCostType(label_, kostenart_id))) {
    Execute(sql::AddCostType(label_, kostenart_id));
  }
  RefreshList();
}

void F_Kostenart::RemoveCostType() {
  if (!Ask(Message(1429))) return;
  Execute(sql::RemoveRow(curId));
  RefreshList();
  SafeSetFocus(DataGrid1);
}

}  // namespace tarvoni

#include "src/machines/f_kostenart.h"

#include "src/common/messages.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"
#include "src/machines/f_kostenart_sql.h"

namespace tarvoni {

namespace sql = kostenart_sql;

F_Kostenart::F_Kostenart() : Screen("F_Kostenart") {
  cost_types_.Connect([this] { TakeCurrentRow(); },
                      [] {
                        return std::vector<ShownColumn>{
                            {.data_field = "NUMBER", .caption = "Nummer", .width = 900},
                            {.data_field = "NAME", .caption = "Name", .width = 4400}};
                      });
  DataGrid1.Click = [this] { TakeCurrentRow(); };
  btnNeu.Click = [this] { AddCostType(); };
  btnLoschen.Click = [this] { RemoveCostType(); };
  CloseBy(btnOk);
}

void F_Kostenart::Run(const TvnVar_Dll& tvnvar, const std::string& strParam) {
  label_ = strParam;
  Present(tvnvar, [this] { RefreshList(); });
}

void F_Kostenart::RefreshList() {
  cost_types_.Load(sql::CostTypesUnder(label_));
  curId = 0;
  TakeCurrentRow();
}

void F_Kostenart::TakeCurrentRow() {
  const CurrentRow row = cost_types_.Row();
  SetSubject(row.IsNull("ID") ? "" : "Kostenart " + row.Text("NUMBER") + " " + row.Text("NAME"));
  if (!row.IsNull("ID")) curId = cost_types_.CurrentId();
}

void F_Kostenart::AddCostType() {
  const std::string picked =
      CurrentSuite().Lookup().Pick(Context(), sql::OfferedCostTypes(), "KOSTENART", "0", "100");
  const std::int32_t kostenart_id = ReadId(picked);
  const bool is_new = kostenart_id != 0 && !HasRow(Db(), sql::HasCostType(label_, kostenart_id));
  if (is_new) Committed([&] { Execute(sql::AddCostType(label_, kostenart_id)); });
  RefreshList();
  if (is_new) CurrentToolkit().Tell("Gespeichert: neue Kostenart.");
}

void F_Kostenart::RemoveCostType() {
  if (!Ask(Message(message::kDeleteEntry))) return;
  if (curId != 0) DeleteRow(sql::RemoveRow(curId), [this] { RefreshList(); });
  SafeSetFocus(DataGrid1);
}

}  // namespace tarvoni

#include "src/common/currency_box.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/vouchers/f_belege_new.h"
#include "src/vouchers/f_belege_new_sql.h"
#include "src/vouchers/vouchers_messages.h"

// From "Neu" or "Bearbeiten" to saving or cancelling.
namespace tarvoni {

namespace sql = voucher_sql;

namespace {

constexpr const char* kNeedsRow =
    "Der neue Beleg braucht seine erste Kostenzeile: „Speichern“ führt zu ihr, dann wird beides gespeichert.";

}  // namespace

void F_Belege_New::StartNew() {
  const bool on_voucher = SSTab1.Tab() == 0;
  {
    const auto hold = loading_.Hold();
    isNewVoucher = on_voucher || vouchers_.Empty();
    if (isNewVoucher && !stornoThenNew) ClearHeader();
    if (isNewVoucher) {
      rows_.Load(sql::NoRows());
      ShowRest();
    }
    if (!stornoThenNew) ClearRow();
    ProposeStoresPosition();
  }
  btnNeu.SetTag("YES");
  SetViewState(false);
  if (isNewVoucher) CurrentToolkit().Tell(kNeedsRow);
  SafeSetFocus(on_voucher ? txtDatumBeleg : txtKostenstelleN);
}

void F_Belege_New::ClearHeader() {
  stockPositionId = 0;
  for (TextBox* box : {&txtBelegNr, &txtDatumBeleg, &txtHul, &txtDatumHaus, &txtRechnungsNr, &txtDatumRech,
                       &txtRechnungsBeitrag}) {
    box->SetText("");
  }
  for (CodeField* field : {&kapitel_, &titel_, &zuhlungsart_, &zuhlungsgrund_}) field->Clear();
  ShowCurrency(txtValuta2, false, Context());
  payee_.Clear();
}

void F_Belege_New::ClearRow() {
  for (CodeField* field : {&produkt_, &kostenstelle_, &auftrag_, &leistungsart_, &kostenart_, &sondermerkmal_,
                           &mehrwertsteuer_, &waldort_}) {
    field->Clear();
  }
  activity_ = {};
  cost_type_ = 0;
  for (TextBox* box : {&txtFlache, &txtMenge, &txtKosten, &txtErlos, &txtStunden, &txtMAS}) {
    box->SetText("");
    SetTextBoxLocked(false, *box);
  }
  SetTextBoxLocked(true, txtPaN);
  SetTextBoxLocked(false, txtValuta);
  txtValuta.SetEnabled(true);
  txtEinheit.SetListIndex(0);
  optMenge.SetValue(true);
}

// Goods from store: what is left of them, at their price.
void F_Belege_New::ProposeStoresPosition() {
  if (stockPositionId == 0) return ProposeCurrency(true);
  const Recordset stock = Screen::Open(sql::DrawnAndStocked(idPersonal, stockPositionId));
  const auto number = [](const Value& value) { return NumberOf(value, CurrentLocale()).value_or(Decimal()); };
  const auto open = Subtract(number(stock.Fields()[1].Value()), number(stock.Fields()[0].Value()));
  txtMenge.SetText(FormatNumber(open.value_or(Decimal()), "0.00", CurrentLocale()));
  const Recordset position = Screen::Open(sql::StoresPosition(stockPositionId));
  if (position.EndOfFile()) return ProposeCurrency(true);
  const FieldList row = position.Fields();
  FindComboItemData(txtEinheit, ToLong(row["EINH_ID"].Value()));
  txtKosten.SetText(FieldText(row["GESAMT"].Value(), "0.00", CurrentLocale()));
  ProposeCurrency(ToFlag(row["EURO"].Value()));
}

void F_Belege_New::ProposeCurrency(bool euro) {
  if (!txtValuta.Locked()) ShowCurrency(txtValuta, euro, Context());
}

void F_Belege_New::StartEditing() {
  btnNeu.SetTag("");
  SetViewState(false);
  SafeSetFocus(txtDatumBeleg);
}

// What the list stands on is shown afresh: nothing of a new entry is left in the boxes.
void F_Belege_New::Cancel() {
  stornoThenNew = isNewVoucher = false;
  btnNeu.SetTag("");
  ShowVoucher(0);
  SafeSetFocus(CurrentGrid());
}

void F_Belege_New::Save() {
  if (SSTab1.Tab() == 0 && !IsNewEntry()) return SaveHeader();
  if (!RowMayBeSaved()) {
    if (isNewVoucher) CurrentToolkit().Tell(kNeedsRow);
    return;
  }
  if (isNewVoucher ? !NumberIsFree() : !VoucherStillOpen()) return;
  const std::int32_t old_row = rows_.CurrentId();
  bool left_behind = false;
  std::int32_t voucher = isNewVoucher ? 0 : vouchers_.CurrentId();
  const std::int32_t position = Committed([&] {
    if (isNewVoucher) voucher = InsertVoucher();
    const auto insert = [&] {
      const std::int32_t row = InsertRow(voucher);
      if (stornoThenNew)
        left_behind = OrUndo([&] { return CopyNaturalExecution(old_row, row); }, sql::TakeBackRow(row));
      return row;
    };
    return isNewVoucher ? OrUndo(insert, sql::DeleteVoucher(voucher)) : insert();
  });
  if (left_behind) AppMsgBox(Message(voucher_message::kNaturalExecutionStays), kBoxInformation);
  isNewVoucher = stornoThenNew = false;
  btnNeu.SetTag("");
  LoadVouchers(voucher, position);
  SafeSetFocus(CurrentGrid());
}

}  // namespace tarvoni

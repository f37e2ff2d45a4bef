#include <algorithm>
#include <limits>

#include "src/common/currency_box.h"
#include "src/common/messages.h"
#include "src/common/position_amounts.h"
#include "src/context/values/call_error.h"
#include "src/context/values/clock.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/vouchers/f_belege_new.h"
#include "src/vouchers/f_belege_new_sql.h"
#include "src/vouchers/vouchers_messages.h"

// A row of the allocation: its tests, its insert, and the natural execution that it takes over.
namespace tarvoni {

namespace sql = voucher_sql;

// --- tests ---

bool F_Belege_New::RowMayBeSaved() {
  if (txtPaN.Empty()) {
    SSTab1.SetTab(1);
    ReportMissingField(lblName.Caption(), false, Context());
    SafeSetFocus(txtPaN);
    return false;
  }
  const std::string missing = Message(message::kEntryMissing);
  if (txtMehrwertsteuer[0].Tag().empty()) return RefuseRow(missing, txtMehrwertsteuer[0]);
  if (!AnythingEntered()) return RefuseRow(Message(voucher_message::kNothingEntered), txtMenge);
  if (!AmountAgreed()) return false;
  for (TextBox* box : {&txtLeistungsartN, &txtKostenartN}) {
    if (box->Empty()) return RefuseRow(missing, *box);
  }
  return !txtSondermerkmal[0].Tag().empty() || RefuseRow(missing, txtSondermerkmal[0]);
}

bool F_Belege_New::AnythingEntered() {
  return std::ranges::any_of(
      std::initializer_list<TextBox*>{&txtMenge, &txtKosten, &txtErlos, &txtStunden, &txtMAS, &txtFlache},
      [](const TextBox* box) {
        const auto number = ParseNumber(box->Text(), CurrentLocale());
        return number && *number != Decimal();
      });
}

// Texts are compared: "100" and "100,00" differ.
bool F_Belege_New::AmountAgreed() {
  const std::string& invoiced = txtRechnungsBeitrag.Text();
  const bool same = IsNumeric(invoiced, CurrentLocale()) && invoiced == txtKosten.Text();
  if (same || Ask(Message(voucher_message::kAmountDiffers))) return true;
  SafeSetFocus(SSTab1.Tab() == 0 ? txtRechnungsBeitrag : txtKosten);
  return false;
}

bool F_Belege_New::RefuseRow(const std::string& text, Control& field) {
  SSTab1.SetTab(1);
  AppMsgBox(text, kBoxWarning);
  const auto* const box = dynamic_cast<const TextBox*>(&field);
  if (!box || !box->Locked()) SafeSetFocus(field);
  return false;
}

// Another workstation may have cancelled the voucher while its row was typed, which stays.
bool F_Belege_New::VoucherStillOpen() {
  if (HasRow(Db(), sql::VoucherInForce(vouchers_.CurrentId()))) return true;
  AppMsgBox(
      "Dieser Beleg wurde inzwischen an einem anderen Arbeitsplatz storniert. Die Zeile kann nicht mehr "
      "gespeichert werden.",
      kBoxWarning);
  return false;
}

// --- insert ---

std::int32_t F_Belege_New::InsertRow(std::int32_t voucher) {
  sql::Row row = TypedRow();
  row.voucher = voucher;
  row.orders = NextOrders(row.header);
  Execute(sql::InsertRow(row, Context().strSqlDateFormat));
  return ReadNumber(sql::LastRow());
}

std::int32_t F_Belege_New::NextOrders(const std::string& header) const {
  const std::int32_t highest = ReadNumber(sql::HighestOrders(header));
  if (highest == std::numeric_limits<std::int32_t>::max())
    throw OverflowError("Der Auftrag " + txtPaN.Text() + " hat keine freie Positionsnummer mehr.");
  return highest + 1;
}

sql::Row F_Belege_New::TypedRow() const {
  return {.header = txtPaN.Tag(),
          .activity = activity_.id,
          .cost_centre = txtKostenstelleN.Tag(),
          .cost_type = cost_type_,
          .feature = txtSondermerkmal[0].Tag(),
          .unit_cost = UnitCostOfRow(),
          .location = txtWaldort.Tag(),
          .area = txtFlache.Text(),
          .quantity = txtMenge.Text(),
          .by_quantity = optMenge.Value(),
          .unit = txtEinheit.ListIndex() < 0 ? std::nullopt : std::optional(txtEinheit.SelectedData()),
          .euro = IsEuro(txtValuta),
          .cost = txtKosten.Text(),
          .revenue = txtErlos.Text(),
          .day = Clock::Today(),
          .hours = txtStunden.Text(),
          .machine_hours = txtMAS.Text(),
          .vat = txtMehrwertsteuer[0].Tag()};
}

// The cost by quantity or area with two decimals; "" without a basis.
std::string F_Belege_New::UnitCostOfRow() const {
  if (!IsNumeric(txtKosten.Text(), CurrentLocale())) return "";
  const TextBox* const basis = optMenge.Value() ? &txtMenge : optHa.Value() ? &txtFlache : nullptr;
  return basis ? UnitCost(txtKosten.Text(), basis->Text()).value_or("") : "";
}

// --- the natural execution of the row that this one replaces ---

bool F_Belege_New::CopyNaturalExecution(std::int32_t from, std::int32_t to) const {
  const Recordset moves = Screen::Open(sql::NaturalExecutionMoves(from, to));
  if (moves.EndOfFile() || IsNull(moves.Fields()[0].Value())) return false;
  if (IsNull(moves.Fields()[1].Value())) return true;
  Execute(
      sql::CopyNaturalExecution(from, to, ColumnsBeside("NATURALVOLLZUG_KLR", "ID", "ID_ARBEITSAUFTRAG")));
  Execute(sql::CopyLocations(from, to,
                             ColumnsBeside("NATURALVOLLZUG_KLR_WALDORT", "ID", "ID_NATURALVOLLZUG_KLR")));
  return false;
}

std::vector<std::string> F_Belege_New::ColumnsBeside(std::string_view table, std::string_view key,
                                                     std::string_view owner) const {
  const Recordset rows = Screen::Open(sql::ColumnsOf(table));
  std::vector<std::string> columns;
  for (const Column& column : rows.Columns()) {
    const std::string name = utf8::Upper(column.name);
    if (name != key && name != owner) columns.push_back(column.name);
  }
  return columns;
}

}  // namespace tarvoni

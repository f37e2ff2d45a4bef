#include "src/common/code_in_use.h"
#include "src/common/currency_box.h"
#include "src/vouchers/f_belege_new.h"
#include "src/vouchers/f_belege_new_sql.h"

// The header of a voucher and its number.
namespace tarvoni {

namespace sql = voucher_sql;

// Where the header fails the entry goes on in it: while a row is typed its tab is off, and what is wrong there could not
// be mended.
template <typename Work>
auto F_Belege_New::OfHeader(const Work& work) {
  try {
    return work();
  } catch (...) {
    SSTab1.SetTab(0);
    throw;
  }
}

// Editing a header tests no number: two vouchers may come to share one.
void F_Belege_New::SaveHeader() {
  const std::int32_t voucher = vouchers_.CurrentId();
  Committed([&] { ExecuteOnRow(sql::UpdateVoucher(voucher, TypedHeader(), Context().strSqlDateFormat)); });
  btnNeu.SetTag("");
  LoadVouchers(voucher);
  SafeSetFocus(CurrentGrid());
}

sql::Header F_Belege_New::TypedHeader() const {
  return {.number = txtBelegNr.Text(),
          .booked = datumBeleg_.Day(),
          .chapter = CodeNow("HH_KAPITEL", txtKapitelN),
          .title = CodeNow("HH_TITEL", txtTitelN),
          .hul = txtHul.Text(),
          .ordered = datumHaus_.Day(),
          .invoice = txtRechnungsNr.Text(),
          .invoiced = datumRech_.Day(),
          .amount = txtRechnungsBeitrag.Text(),
          .euro = IsEuro(txtValuta2),
          .payment_kind = CodeNow("ZUHLUNGSART", txtZuhlungsartN),
          .payment_reason = CodeNow("ZUHLUNGSGRUND", txtZuhlungsgrundN),
          .payee = payee_.Id()};
}

// Asked again: a code that was disabled since it was typed is none.
std::int32_t F_Belege_New::CodeNow(const std::string& table, const TextBox& box) const {
  return box.Empty() ? 0 : ReadNumber(CodeInUse("ID", table, box.Text(), idPersonal));
}

bool F_Belege_New::NumberIsFree() {
  const std::string& number = txtBelegNr.Text();
  if (number.empty() || !OfHeader([&] { return HasRow(Db(), sql::VoucherWithNumber(number, 0)); }))
    return true;
  SSTab1.SetTab(0);
  return Refuse("Belegnummer bereits vorhanden!", txtBelegNr);
}

std::int32_t F_Belege_New::InsertVoucher() {
  return OfHeader([&] {
    Execute(sql::InsertVoucher(TypedHeader(), Context().strSqlDateFormat));
    return ReadNumber(sql::LastVoucher());
  });
}

}  // namespace tarvoni

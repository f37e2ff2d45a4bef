#include "src/context/services/toolkit.h"
#include "src/context/values/clock.h"
#include "src/vouchers/f_belege_new.h"
#include "src/vouchers/f_belege_new_sql.h"
#include "src/vouchers/vouchers_messages.h"

// Cancelling a voucher or a row: marks are set, nothing is deleted.
namespace tarvoni {

namespace sql = voucher_sql;

void F_Belege_New::Storno() {
  if (!Ask(Message(voucher_message::kCancelEntry))) {
    stornoThenNew = false;
    return;
  }
  const std::string cancelled = Subject();
  if (SSTab1.Tab() == 1 ? CancelRow() : CancelVoucher())
    CurrentToolkit().Tell("Storniert: " + cancelled + ".");
}

// Goes on only if something was cancelled and a new entry may begin; whatever went wrong, the next "Neu" is a plain one.
void F_Belege_New::StornoThenNew() {
  stornoThenNew = true;
  try {
    btnStorno.Press();
  } catch (...) {
    stornoThenNew = false;
    throw;
  }
  stornoThenNew = stornoThenNew && btnNeu.Enabled();
  if (stornoThenNew) btnNeu.Press();
}

// False if nothing was cancelled, of which the user has been told.
bool F_Belege_New::CancelRow() {
  const std::int32_t position = rows_.CurrentId();
  if (position == 0) return false;
  if (!HasNoTimber(position)) {
    stornoThenNew = false;
    return false;
  }
  Committed([&] { ExecuteOnRow(sql::CancelRow(position, Clock::Today(), Context().strSqlDateFormat)); });
  LoadRows(vouchers_.CurrentId(), position);
  return true;
}

// All rows in force are tested before the first mark is set. Rows that were cancelled before get the new date too.
bool F_Belege_New::CancelVoucher() {
  const std::int32_t voucher = vouchers_.CurrentId();
  if (voucher == 0) return false;
  for (Recordset rows = Screen::Open(sql::RowsInForce(voucher)); !rows.EndOfFile(); rows.MoveNext()) {
    if (HasNoTimber(ToLong(rows.Fields()["ID"].Value()))) continue;
    stornoThenNew = false;
    return false;
  }
  const bool has_rows = !rows_.Empty();
  Committed([&] {
    ExecuteOnRow(sql::CancelVoucher(voucher));
    if (has_rows) Execute(sql::CancelRowsOf(voucher, Clock::Today(), Context().strSqlDateFormat));
  });
  LoadVouchers(voucher);
  return true;
}

bool F_Belege_New::HasNoTimber(std::int32_t position) {
  std::string lists;
  for (Recordset rows = Screen::Open(sql::TimberListsOf(position)); !rows.EndOfFile(); rows.MoveNext())
    lists += (lists.empty() ? "'" : ",'") + ToText(rows.Fields()[0].Value()) + "'";
  if (lists.empty()) return true;
  AppMsgBox(Message(voucher_message::kNumber) + " " + ReadText(sql::OrdersOf(position)) + " " +
                Message(voucher_message::kTimberHangsOn) + " " + lists,
            kBoxWarning);
  return false;
}

}  // namespace tarvoni

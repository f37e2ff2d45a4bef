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
  SSTab1.Tab() == 1 ? CancelRow() : CancelVoucher();
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

void F_Belege_New::CancelRow() {
  const std::int32_t position = rows_.CurrentId();
  if (position == 0) return;
  if (!HasNoTimber(position)) {
    stornoThenNew = false;
    return;
  }
  Committed([&] { ExecuteOnRow(sql::CancelRow(position, Clock::Today(), Context().strSqlDateFormat)); });
  LoadRows(vouchers_.CurrentId(), position);
}

// All rows in force are tested before the first mark is set. Rows that were cancelled before get the new date too.
void F_Belege_New::CancelVoucher() {
  const std::int32_t voucher = vouchers_.CurrentId();
  if (voucher == 0) return;
  for (Recordset rows = Screen::Open(sql::RowsInForce(voucher)); !rows.EndOfFile(); rows.MoveNext()) {
    if (HasNoTimber(ToLong(rows.Fields()["ID"].Value()))) continue;
    stornoThenNew = false;
    return;
  }
  const bool has_rows = !rows_.Empty();
  Committed([&] {
    ExecuteOnRow(sql::CancelVoucher(voucher));
    if (has_rows) Execute(sql::CancelRowsOf(voucher, Clock::Today(), Context().strSqlDateFormat));
  });
  LoadVouchers(voucher);
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

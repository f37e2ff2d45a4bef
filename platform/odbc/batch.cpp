#include "platform/odbc/batch.h"

#include <sqlext.h>
#include <sqlucode.h>

#include "platform/odbc/driver_text.h"
#include "platform/odbc/row_reader.h"

namespace tarvoni::odbc {

Batch::Batch(SQLHANDLE connection, bool wide_text, std::chrono::seconds time_limit)
    : statement_(connection), respondent_{SQL_HANDLE_STMT, statement_.Get(), wide_text} {
  const auto seconds = reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(time_limit.count()));
  // A driver without time limits says so in a warning, which is no reason to refuse the statement.
  SQLSetStmtAttr(statement_.Get(), SQL_ATTR_QUERY_TIMEOUT, seconds, SQL_IS_UINTEGER);
}

SQLRETURN Batch::Send(std::string_view text) {
  return WithText(
      respondent_.wide_text, text,
      [&](SQLCHAR* narrow, SQLINTEGER size) { return SQLExecDirect(statement_.Get(), narrow, size); },
      [&](SQLWCHAR* wide, SQLINTEGER size) { return SQLExecDirectW(statement_.Get(), wide, size); });
}

void Batch::Run(std::string_view text, bool has_lead) {
  SQLRETURN result = Send(text);
  bool counts = !has_lead;
  while (true) {
    Note(result);
    if (result != SQL_ERROR) TakeResult(counts);
    if (IsOver(result)) return;
    counts = true;
    result = SQLMoreResults(statement_.Get());
    if (result == SQL_NO_DATA) return;
  }
}

void Batch::Note(SQLRETURN result) {
  if (!failure_) failure_ = FailureOf(result, respondent_);
}

// An error whose cause lies outside the batch would come again at every further step.
bool Batch::IsOver(SQLRETURN result) const {
  if (result == SQL_INVALID_HANDLE) return true;
  return result == SQL_ERROR && failure_ &&
         (failure_->IsLostConnection() || failure_->state.starts_with("HY") ||
          failure_->state.starts_with("IM"));
}

void Batch::TakeResult(bool counts) {
  SQLSMALLINT columns = 0;
  SQLNumResultCols(statement_.Get(), &columns);
  if (columns > 0) {
    RowReader reader(respondent_, columns);
    RowSet rows = reader.Read();
    if (!failure_) failure_ = reader.Failure();
    if (counts && !rows_) rows_ = std::move(rows);
    return;
  }
  SQLLEN count = -1;
  if (counts && SQL_SUCCEEDED(SQLRowCount(statement_.Get(), &count)) && count >= 0) affected_ = count;
}

}  // namespace tarvoni::odbc

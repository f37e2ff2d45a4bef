#include "platform/odbc/batch.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>

#include "platform/odbc/driver_text.h"
#include "platform/odbc/row_reader.h"

namespace tarvoni::odbc {
namespace {

// An error whose cause lies outside the batch would come again at every further step. FreeTDS gives a hang-up as a
// warning that failed.
bool EndsBatch(const Diagnostic& failure) {
  return failure.IsLostConnection() || failure.IsWarning() || failure.state.starts_with("HY") ||
         failure.state.starts_with("IM");
}

}  // namespace

Batch::Batch(SQLHANDLE connection, bool wide_text, std::chrono::seconds time_limit)
    : statement_(connection), respondent_{SQL_HANDLE_STMT, statement_.Get(), wide_text} {
  // A driver without time limits says so in a warning, which is no reason to refuse the statement.
  SQLSetStmtAttr(statement_.Get(), SQL_ATTR_QUERY_TIMEOUT, AsAttribute(time_limit), SQL_IS_UINTEGER);
}

SQLRETURN Batch::Send(std::string_view text) {
  return WithText(
      respondent_.wide_text, text,
      [&](SQLCHAR* narrow, SQLINTEGER size) { return SQLExecDirect(statement_.Get(), narrow, size); },
      [&](SQLWCHAR* wide, SQLINTEGER size) { return SQLExecDirectW(statement_.Get(), wide, size); });
}

void Batch::Run(std::string_view text, bool has_lead) {
  TakeResults(Send(text), has_lead);
}

void Batch::RunTables() {
  std::string type = "TABLE";
  std::u16string wide_type = u"TABLE";
  const auto size = static_cast<SQLSMALLINT>(type.size());
  const SQLHANDLE statement = statement_.Get();
  TakeResults(respondent_.wide_text
                  ? SQLTablesW(statement, nullptr, 0, nullptr, 0, nullptr, 0, AsWide(wide_type.data()), size)
                  : SQLTables(statement, nullptr, 0, nullptr, 0, nullptr, 0, AsNarrow(type.data()), size),
              false);
}

void Batch::TakeResults(SQLRETURN result, bool has_lead) {
  bool is_lead = has_lead;
  do {
    const auto failure = FailureOf(result, respondent_);
    if (!failure_) failure_ = failure;
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
      TakeResult();
    else if (EndsBatch(*failure))
      return;
    if (is_lead) parts_.clear();
    is_lead = false;
    result = SQLMoreResults(statement_.Get());
  } while (result != SQL_NO_DATA);
}

void Batch::TakeResult() {
  SQLSMALLINT columns = 0;
  SQLNumResultCols(statement_.Get(), &columns);
  if (columns > 0) {
    RowReader reader(respondent_, columns);
    RowSet rows = reader.Read();
    if (!failure_) failure_ = reader.Failure();
    parts_.push_back({Recordset(std::move(rows))});
    return;
  }
  SQLLEN count = -1;
  if (SQL_SUCCEEDED(SQLRowCount(statement_.Get(), &count)) && count >= 0) parts_.push_back({{}, count});
}

long long Batch::AffectedRows() const {
  const auto last = std::ranges::find_if(parts_.rbegin(), parts_.rend(),
                                         [](const BatchPart& part) { return !part.rows.IsOpen(); });
  return last == parts_.rend() ? -1 : last->affected;
}

Recordset Batch::Rows() const {
  const auto first = std::ranges::find_if(parts_, [](const BatchPart& part) { return part.rows.IsOpen(); });
  return first == parts_.end() ? Recordset() : first->rows;
}

}  // namespace tarvoni::odbc

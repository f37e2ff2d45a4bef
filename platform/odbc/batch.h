#pragma once

#include <sql.h>

#include <chrono>
#include <optional>
#include <string_view>

#include "platform/odbc/diagnostics.h"
#include "platform/odbc/handle.h"
#include "src/context/data/recordset.h"

namespace tarvoni::odbc {

// One batch on its own statement handle: sent once, then every result read to its end, for the errors of
// later statements surface only there.
class Batch {
 public:
  Batch(SQLHANDLE connection, bool wide_text, std::chrono::seconds time_limit);

  // `has_lead`: the first result is passed over.
  void Run(std::string_view text, bool has_lead);

  // Of the last statement that reports a count, -1 if none does.
  long long AffectedRows() const { return affected_; }
  // The first result set, none if there is none.
  std::optional<RowSet>& Rows() { return rows_; }
  const std::optional<Diagnostic>& Failure() const { return failure_; }

 private:
  SQLRETURN Send(std::string_view text);
  void TakeResult(bool counts);

  Handle<SQL_HANDLE_STMT> statement_;
  Respondent respondent_;
  long long affected_ = -1;
  std::optional<RowSet> rows_;
  std::optional<Diagnostic> failure_;
};

}  // namespace tarvoni::odbc

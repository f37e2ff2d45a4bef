#pragma once

#include <sql.h>

#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/odbc/diagnostics.h"
#include "platform/odbc/handle.h"
#include "src/context/data/database.h"

namespace tarvoni::odbc {

// One batch on its own statement handle: sent once, then every result read to its end, for the errors of
// later statements surface only there.
class Batch {
 public:
  Batch(SQLHANDLE connection, bool wide_text, std::chrono::seconds time_limit);

  // `has_lead`: the first result is passed over.
  void Run(std::string_view text, bool has_lead);

  // Asks the driver for the tables of the database; their names stand in the third column.
  void RunTables();

  // Of the last statement that reports a count, -1 if none does.
  long long AffectedRows() const;
  // The first result set, closed if there is none.
  Recordset Rows() const;
  // All results, in their order.
  const std::vector<BatchPart>& Parts() const { return parts_; }
  const std::optional<Diagnostic>& Failure() const { return failure_; }

 private:
  SQLRETURN Send(std::string_view text);
  void TakeResults(SQLRETURN result, bool has_lead);
  void TakeResult();

  Handle<SQL_HANDLE_STMT> statement_;
  Respondent respondent_;
  std::vector<BatchPart> parts_;
  std::optional<Diagnostic> failure_;
};

}  // namespace tarvoni::odbc

#pragma once

#include <string>
#include <string_view>

namespace tarvoni::odbc {

// Whether a batch makes a temporary table of this connection: CREATE TABLE #… outside quotes and comments.
bool CreatesTemporaryTable(std::string_view text);

// Whether a batch keeps the counts of its statements to itself: SET NOCOUNT ON with something behind it.
bool SwitchesCountsOff(std::string_view text);

// The batch as one call with a scope of its own, with which its temporary tables and settings end.
std::string InOwnScope(std::string_view text);

// Whether a batch may write more than once, so that something is left to run when its first write fails.
bool WritesSeveralTimes(std::string_view text);

// What is sent to a T-SQL server for a batch.
struct ServerBatch {
  std::string text;
  bool has_lead = false;  // its first result is not the batch's own
};
ServerBatch ForServer(std::string_view text);

}  // namespace tarvoni::odbc

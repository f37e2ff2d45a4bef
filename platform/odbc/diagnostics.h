#pragma once

#include <sql.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvoni::odbc {

// One record of what a driver says about its last call.
struct Diagnostic {
  std::string state;  // SQLSTATE, five characters
  int native = 0;     // the server's or the driver's own number
  std::string message;
  int line = 0;  // in the text that was sent; 0 when the driver does not tell

  bool IsWarning() const { return state.starts_with("01") || state.starts_with("00"); }
  bool IsLostConnection() const { return state.starts_with("08"); }
  bool IsTimeout() const { return state == "HYT00"; }
};

// A handle to ask about its last call, and whether its driver gives wide texts.
struct Respondent {
  SQLSMALLINT handle_type;
  SQLHANDLE handle;
  bool wide_text;
};

// All records of a handle. A driver may repeat passwords in them.
std::vector<Diagnostic> DiagnosticsOf(const Respondent& from);

// What failed in a call that gave `result`: the first record that is no warning. Some drivers report an error
// as success with information, others mark what ended a call as a warning.
std::optional<Diagnostic> FailureOf(SQLRETURN result, const Respondent& from);

}  // namespace tarvoni::odbc

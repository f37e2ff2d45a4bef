#include "platform/odbc/diagnostics.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>

#include "platform/odbc/driver_text.h"

namespace tarvoni::odbc {
namespace {

// The field in which drivers of T-SQL servers give the line; the manager's headers do not know it.
constexpr SQLSMALLINT kLineField = -1154;
constexpr SQLSMALLINT kMessageUnits = 4096;

int LineOf(const Respondent& from, SQLSMALLINT record) {
  constexpr SQLUSMALLINT kUnknown = 0xFFFF;  // FreeTDS, for its own errors
  std::array<SQLUSMALLINT, 4> line{};        // some drivers write a wider number
  const SQLRETURN result =
      SQLGetDiagFieldW(from.handle_type, from.handle, record, kLineField, line.data(), sizeof line, nullptr);
  return SQL_SUCCEEDED(result) && line[0] != kUnknown ? line[0] : 0;
}

}  // namespace

std::vector<Diagnostic> DiagnosticsOf(const Respondent& from) {
  std::vector<Diagnostic> found;
  TextBuffer message(from.wide_text, kMessageUnits);
  for (SQLSMALLINT record = 1;; ++record) {
    std::array<SQLCHAR, 6> state{};
    std::array<SQLWCHAR, 6> wide_state{};
    SQLINTEGER native = 0;
    const SQLRETURN result = message.Fill(
        [&](SQLCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
          return SQLGetDiagRec(from.handle_type, from.handle, record, state.data(), &native, text, room,
                               length);
        },
        [&](SQLWCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
          return SQLGetDiagRecW(from.handle_type, from.handle, record, wide_state.data(), &native, text, room,
                                length);
        });
    if (!SQL_SUCCEEDED(result)) return found;
    Diagnostic diagnostic{{}, native, message.Text(), LineOf(from, record)};
    for (std::size_t i = 0; i < 5; ++i)
      diagnostic.state += static_cast<char>(from.wide_text ? wide_state[i] : state[i]);
    found.push_back(std::move(diagnostic));
  }
}

std::optional<Diagnostic> FailureOf(SQLRETURN result, const Respondent& from) {
  if (result == SQL_SUCCESS || result == SQL_NO_DATA) return std::nullopt;
  const std::vector<Diagnostic> found = DiagnosticsOf(from);
  const auto first =
      std::find_if(found.begin(), found.end(), [](const Diagnostic& d) { return !d.IsWarning(); });
  if (first != found.end()) return *first;
  if (result == SQL_SUCCESS_WITH_INFO) return std::nullopt;
  if (!found.empty()) return found.front();
  return Diagnostic{"HY000", 0, "Der Treiber meldet einen Fehler ohne Text.", 0};
}

}  // namespace tarvoni::odbc

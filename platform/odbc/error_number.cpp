#include "platform/odbc/error_number.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "src/context/data/database_error.h"
#include "src/context/values/keywords.h"

namespace tarvoni::odbc {
namespace {

struct Rule {
  std::string_view state;    // how the SQLSTATE begins
  std::string_view keyword;  // what the message contains, in capital letters
  int number;
};

// The first rule that fits. SQLite's driver has one SQLSTATE for all errors of a statement: its words decide.
constexpr Rule kRules[] = {
    {"08", "", kErrorConnection},
    {"HYT00", "", kErrorBusy},
    {"42S01", "", 2714},
    {"42S02", "", 208},
    {"42S22", "", 207},
    {"22012", "", 8134},
    {"22018", "", 245},
    {"22003", "", 8115},
    {"22007", "", 241},
    {"22001", "", 8152},
    {"23", "FOREIGN KEY", 547},
    {"23", "REFERENCE", 547},
    {"23", "CHECK", 547},
    {"23", "NULL", 515},
    {"23", "", 2627},
    {"42000", "", 102},
    {"HY000", "NO SUCH TABLE", 208},
    {"HY000", "NO SUCH COLUMN", 207},
    {"HY000", "HAS NO COLUMN NAMED", 207},
    {"HY000", "NO SUCH FUNCTION", 195},
    {"HY000", "UNIQUE CONSTRAINT", 2627},
    {"HY000", "NOT NULL CONSTRAINT", 515},
    {"HY000", "CONSTRAINT FAILED", 547},
    {"HY000", "ALREADY EXISTS", 2714},
    {"HY000", "SYNTAX ERROR", 102},
    {"HY000", "INCOMPLETE INPUT", 102},
    {"HY000", "UNRECOGNIZED TOKEN: \"'", 105},
    {"HY000", "UNRECOGNIZED TOKEN", 102},
    {"HY000", "DATABASE IS LOCKED", kErrorBusy},
    {"HY000", "READONLY", kErrorReadOnly},
    {"HY000", "NOT A DATABASE", kErrorDamaged},
    {"HY000", "MALFORMED", kErrorDamaged},
    {"HY000", "DISK IS FULL", kErrorDiskFull},
};

bool IsConnectionFault(const Diagnostic& diagnostic) {
  return diagnostic.IsLostConnection() || diagnostic.IsTimeout();
}

}  // namespace

int ErrorNumber(const Diagnostic& diagnostic, Dialect dialect) {
  // Without a number it is the driver that speaks, not the server.
  if (dialect == Dialect::kTsqlServer && diagnostic.native != 0 && !IsConnectionFault(diagnostic))
    return diagnostic.native;
  const auto rule = std::find_if(std::begin(kRules), std::end(kRules), [&](const Rule& candidate) {
    return diagnostic.state.starts_with(candidate.state) &&
           ContainsKeyword(diagnostic.message, candidate.keyword);
  });
  return rule == std::end(kRules) ? diagnostic.native : rule->number;
}

std::string PlainMessage(const Diagnostic& diagnostic) {
  std::string_view text = diagnostic.message;
  while (text.starts_with('[')) {
    const auto closing = text.find(']');
    if (closing == std::string_view::npos) break;
    text.remove_prefix(closing + 1);
  }
  text = Trimmed(text);
  return text.empty() ? diagnostic.message : std::string(text);
}

}  // namespace tarvoni::odbc

#include "platform/odbc/driver_traits.h"

#include "src/context/values/keywords.h"

namespace tarvoni::odbc {

DriverTraits TraitsOf(std::string_view driver_name, std::string_view dbms_name) {
  if (ContainsKeyword(driver_name, "SQLITE") || ContainsKeyword(dbms_name, "SQLITE"))
    return {Dialect::kSqlite, false};
  if (ContainsKeyword(driver_name, "TDSODBC") || ContainsKeyword(dbms_name, "SQL SERVER"))
    return {Dialect::kTsqlServer, true};
  return {Dialect::kOther, true};
}

}  // namespace tarvoni::odbc

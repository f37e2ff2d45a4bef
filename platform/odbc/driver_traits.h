#pragma once

#include <string_view>

namespace tarvoni::odbc {

enum class Dialect { kTsqlServer, kSqlite, kOther };

// What must be known of a driver to speak with it.
struct DriverTraits {
  Dialect dialect = Dialect::kOther;
  // Texts pass the driver manager as UTF-16. A driver without the wide functions would get every character
  // beyond Latin-1 torn; to one that has them, the manager passes UTF-8 on as if it were Latin-1.
  bool wide_text = true;
};

DriverTraits TraitsOf(std::string_view driver_name, std::string_view dbms_name);

}  // namespace tarvoni::odbc

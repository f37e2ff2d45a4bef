#pragma once

#include <string>

namespace tarvoni::host {

// What a new enterprise of one's own begins with.
struct OwnEnterprise {
  std::string number;  // of the client, digits
  std::string name;
  int forest_year = 0;
  bool with_codes = true;  // work types, wage types and rates, units and tariffs to begin with
};

// Makes a new database with one client, an administrative cost centre on which orders can be entered at once, and the
// open months of the forest year. A CallError if the database is not empty or a detail is missing.
void MakeOwnEnterprise(const std::string& database, const OwnEnterprise& enterprise);

}  // namespace tarvoni::host

#pragma once

#include <string>
#include <vector>

namespace tarvoni::host {

// What a new enterprise of one's own begins with.
struct OwnEnterprise {
  std::string number;  // of the client, digits
  std::string name;
  int forest_year = 0;
  bool with_codes = true;  // services, work types, wage types and rates, units and tariffs to begin with
  std::vector<std::string> workers = {};  // "Huber Anna"; they begin in the lowest wage group
};

// Makes a new database with one client, an administrative cost centre on which orders can be entered at once, and the
// open months of the forest year. A CallError if the database is not empty or a detail is missing.
void MakeOwnEnterprise(const std::string& database, const OwnEnterprise& enterprise);

}  // namespace tarvoni::host

#pragma once

#include <string>
#include <vector>

namespace tarvoni::host {

// What a new enterprise of one's own begins with. No Screen makes these rows: what is not here cannot be chosen there.
struct OwnEnterprise {
  std::string number;  // of the client, digits
  std::string name;
  int forest_year = 0;     // from the first wage agreement on
  bool with_codes = true;  // services, work types, wage types and rates, units and tariffs to begin with
  // Each a name; where there is none, one or a few that any enterprise has.
  std::vector<std::string> districts = {};
  std::vector<std::string> objects = {};  // machines and buildings that costs are booked on
  std::vector<std::string> payees = {};
  std::vector<std::string> workers =
      {};                 // "Huber Anna" or "Huber, Anna"; they begin in the lowest wage group
  int compartments = 10;  // forest locations in each district
};

// The years for which there are wage rates.
int FirstForestYear();
inline constexpr int kLastForestYear = 2099;

// Makes a new database with one client, his cost centres, districts and forest locations, objects, payees and workers,
// and the open months of the forest year with a journal for each worker. A CallError if the database is not empty or
// a detail is missing.
void MakeOwnEnterprise(const std::string& database, const OwnEnterprise& enterprise);

}  // namespace tarvoni::host

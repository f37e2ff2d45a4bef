#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "src/context/data/database.h"
#include "src/context/data/sql_text.h"

namespace tarvoni {

// A work type as a cost position sees it. NULL flags are false.
struct Activity {
  std::int32_t id = 0;  // LEISTUNGSART.ID; 0 for none
  std::string name = {};
  bool allows_timber = false;  // area and quantity come from timber lists
  bool by_area = false;        // counted by the hectare, else by the quantity
  std::int32_t unit = 0;       // of the quantity; 0 for none
  // Only read where the cost centre was asked for.
  bool takes_hours = false;
  bool takes_machine_hours = false;
};

// Which work type is meant by a typed number: one of the client's set under a product, and where a cost centre is
// given only one that its kind of cost centre allows.
struct ActivityWanted {
  std::int32_t client = 0;
  std::int32_t product = 0;  // PRODUKT.ID
  std::string number;        // as typed
  std::optional<std::int32_t> cost_centre = {};
};

// Whether a typed text can be the number of a code. One that is not equals none; compared by the database it would be a
// failed conversion.
bool IsCode(std::string_view typed);

SqlText FindActivityStatement(const ActivityWanted& wanted);
Activity FindActivity(Connection& connection, const ActivityWanted& wanted);

// Whether positions of the work type take their quantity from timber lists; false for an unknown one.
bool AllowsTimber(Connection& connection, std::int32_t activity);

}  // namespace tarvoni

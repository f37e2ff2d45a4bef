#pragma once

#include <string>
#include <vector>

#include "host/argument_fields.h"
#include "host/workplace.h"

namespace tarvoni::host {

// The rows that a box for an argument offers.
struct OfferedRows {
  std::string label;      // what one of them is: "A&uftrag"
  std::string statement;  // that gives them; it also tells lists apart
  std::vector<Choice> rows;
};

// All that the boxes of all methods offer, with plans and without, each list once. One that cannot be read is left out;
// whoever chooses its method is told why.
std::vector<OfferedRows> AllOffered(const Workplace& workplace, const ChoiceScope& scope);

// What `after` offers and `before` did not, as lists of the new rows alone.
std::vector<OfferedRows> NewlyOffered(const std::vector<OfferedRows>& before,
                                      const std::vector<OfferedRows>& after);

}  // namespace tarvoni::host

#pragma once

#include <cstdint>
#include <string>

#include "src/context/controls/controls.h"
#include "src/context/data/sql_text.h"
#include "src/context/data/tvn_var_dll.h"

// The timber lists of a cost position (LOGS.AA_ID).
namespace tarvoni {

struct TimberOwner {
  std::int32_t client = 0;    // LOGS.MANDANTEN_ID
  std::int32_t position = 0;  // ARBEITSAUFTRAG.ID
  std::int32_t header = 0;    // ARBEITSAUFTRAG_KOPF.ID
};

// Lets the user move lists between those that `offered` gives and those of the position, and writes the choice: a
// list that is taken moves whole, whatever position its logs hung on; of a released one only the position's logs are
// freed. Locked lists are passed over in silence. A list with a quote in its name is an error (105), and nothing is
// sent. False if the user gave up or there was nothing to choose.
bool AssignTimber(const TvnVar_Dll& context, const TimberOwner& owner, const SqlText& offered);

// Option LISTE_KUBATUR_MENGE: the quantity of a position follows the volume of its logs.
bool QuantityFollowsTimber(Connection& connection);
// Shows the volume of the position's logs as its quantity; the area keeps its value. Both then have four decimals.
void ShowTimberSums(Connection& connection, std::int32_t position, TextBox& area, TextBox& quantity);
// Writes both as the boxes show them.
void WriteTimberSums(Connection& connection, std::int32_t position, const TextBox& area,
                     const TextBox& quantity);

}  // namespace tarvoni

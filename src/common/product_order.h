#pragma once

#include <string>
#include <string_view>

#include "src/context/controls/controls.h"
#include "src/context/data/sql_text.h"

// The product order (ARBEITSAUFTRAG_KOPF) that a row is booked on.
namespace tarvoni {

// Shows its name as two boxes do: the last four characters, the number, in the first; those before them, client, year
// and cost centre, in the second.
void ShowProductOrder(const std::string& name, ControlArray<TextBox, 2>& pair);

// Asks for PRODUKT_ID; `id` is a Tag.
SqlText ProductOfOrder(std::string_view id);

}  // namespace tarvoni

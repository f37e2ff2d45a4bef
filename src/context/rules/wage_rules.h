#pragma once

#include <cstdint>

#include "src/context/data/sql_text.h"

// Expressions over the wage tables that Screens and reports ask alike.
namespace tarvoni {

// The highest month that is closed for wages, as year times 100 plus month; 0 if none is.
inline constexpr SqlText kHighestClosedMonth =
    "ISNULL((SELECT MAX(JAHR*100+MONAT) FROM LOHNABSCHLUSS WHERE ASCHLUSS_L = 1),0)";

// The options name wage types for each group of orders (wage_group.h); one of them is the group's direct wage type.

// ID and TYP, the group, of the direct wage type of each group.
SqlText DirectWageTypes();
// The option that names the direct wage type of a group; NULL for no group.
SqlText DirectWageOption(const SqlText& group);
// The numbers of all wage types that the options name for the group of an order's service.
SqlText WageTypesOfGroup(std::int32_t order);

}  // namespace tarvoni

#pragma once

#include "src/piecework/timber_lists.h"

namespace tarvoni::timber_sql {

// Lists with logs of the order's service and cost centre that nobody has: no wage order, no position, no lock, and no
// header of a work order but the order's own.
SqlText FreeLists(const TimberOrder& order);
SqlText AssignedLists(const TimberOrder& order);
// Those among the lists that another order has. `lists` stand between the parentheses of an IN, here and below.
SqlText ListsOfOthers(const TimberOrder& order, const SqlText& lists);
SqlText ReleaseLists(const TimberOrder& order, const SqlText& lists);
SqlText AssignLists(const TimberOrder& order, const SqlText& lists);

}  // namespace tarvoni::timber_sql

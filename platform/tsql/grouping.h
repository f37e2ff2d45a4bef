#pragma once

#include <vector>

#include "platform/tsql/bound.h"
#include "platform/tsql/scope.h"

namespace tarvoni::tsql::grouping {

// Throws Error 8120, 8121 or 8127, by its clause, for a column of an aggregated select's own tables that is neither
// grouped by nor inside an aggregate; also where a query inside the clause names it.
void Check(const BoundSelect& select, const std::vector<BoundOrder>& order,
           const std::vector<VisibleSource>& own_sources);

}  // namespace tarvoni::tsql::grouping

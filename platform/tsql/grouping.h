#pragma once

#include <vector>

#include "platform/tsql/bind_state.h"
#include "platform/tsql/bound.h"

namespace tarvoni::tsql::grouping {

// Throws Error 8120 for a column of an aggregated select's own tables that is neither grouped by nor inside
// an aggregate.
void Check(const BindState& state, const BoundSelect& select, const std::vector<BoundOrder>& order,
           const std::vector<int>& own_sources);

}  // namespace tarvoni::tsql::grouping

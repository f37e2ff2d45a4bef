#pragma once

#include <vector>

#include "src/context/controls/layout.h"

namespace tarvoni::qt {

// Nodes in parts with one table each that takes the free height; it ends its part, and what follows the last one goes
// with it. One part if there are fewer than two such tables.
std::vector<std::vector<layout::Node>> PartsByTable(const std::vector<layout::Node>& nodes);

}  // namespace tarvoni::qt

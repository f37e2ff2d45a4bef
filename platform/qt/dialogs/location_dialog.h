#pragma once

#include <QWidget>
#include <cstdint>
#include <vector>

#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

// Lets the user choose one location of a tree, or many by check marks; ids in the order of the request, none on
// cancel. Where many may be chosen and none is marked, the current one is taken.
std::vector<std::int32_t> ShowLocations(QWidget* parent, const LocationRequest& request);

}  // namespace tarvoni::qt

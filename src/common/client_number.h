#pragma once

#include <cstdint>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// The number by which users know a client; no row for a person who is not there.
SqlText NumberOfClient(std::int32_t client);

}  // namespace tarvoni

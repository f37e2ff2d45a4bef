#pragma once

#include <cstdint>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// The lines of a gross wage journal (STUNDENBUCH) with their rates, amounts and cost assignment, one line a row;
// `header` is STUNDENBUCH_HEADER.ID. A journal without lines gives one row with an empty ID. DISABLEBUTTONS 1: the
// header's month is closed. No order is asked for.
SqlText LinesOfJournal(std::int32_t header);

}  // namespace tarvoni

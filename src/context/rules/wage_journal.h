#pragma once

#include <cstdint>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// The lines of a gross wage journal (STUNDENBUCH) with their rates, amounts and cost assignment, one line a row;
// `header` is STUNDENBUCH_HEADER.ID. A journal without lines gives one row with an empty ID. DISABLEBUTTONS 1: the
// header's month is closed. No order is asked for.
SqlText LinesOfJournal(std::int32_t header);

// The same lines with no more than a summary tells, by day, under the same names; none for a journal without lines.
// Their rates are those of RatesOfJournal: many lines share one.
SqlText WorkOfJournal(std::int32_t header);
// The rate (SATZ) of each ID_LOHNARTEN, VERLOHNUNG and TAG that lines of the journal have.
SqlText RatesOfJournal(std::int32_t header);

}  // namespace tarvoni

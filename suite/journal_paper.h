#pragma once

#include <cstdint>

#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/print_document.h"

namespace tarvoni::suite {

// The gross wage journal of a worker's month as a paper to be signed and kept: every line with its cost assignment, the
// month's summary, and the sums by wage type and in all. A CallError if the header (STUNDENBUCH_HEADER) is not there.
PrintDocument JournalPaper(const TvnVar_Dll& context, std::int32_t header);

}  // namespace tarvoni::suite

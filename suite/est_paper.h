#pragma once

#include <cstdint>

#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/print_document.h"

namespace tarvoni::suite {

// What the logs of a wage order are worth in EST piecework (est_pricing.h), as a paper: every log by its timber list with
// marks, dimensions, volumes, the tariff's values and both wage shares, the sums of each list and of all. A log without a
// tariff row and one that stands there several times are marked and counted; pieces and volumes of the latter count once,
// its wages as often as it stands there. A CallError if the order (ARA_KOPF) is not there.
PrintDocument EstPaper(const TvnVar_Dll& context, std::int32_t order);

}  // namespace tarvoni::suite

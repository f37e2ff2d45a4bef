#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_Kostenart.
namespace tarvoni::kostenart_sql {

SqlText CostTypesUnder(std::string_view label);
// The first column is the id.
SqlText OfferedCostTypes();
SqlText HasCostType(std::string_view label, std::int32_t kostenart_id);
SqlText AddCostType(std::string_view label, std::int32_t kostenart_id);
SqlText RemoveRow(std::int32_t id);

}  // namespace tarvoni::kostenart_sql

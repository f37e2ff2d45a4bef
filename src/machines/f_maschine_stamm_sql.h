#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_MaschineStamm. A label is one of the seven cost groups.
namespace tarvoni::maschine_stamm_sql {

SqlText CostTypeOfGroup(std::string_view label);
SqlText InsertGroup(std::string_view label);
// All rows of the label; an id of 0 means no cost type.
SqlText SetCostType(std::string_view label, std::int32_t kostenart_id);

// Rows of the label beside the one whose cost type is shown.
SqlText OtherCostTypes(std::string_view label, std::int32_t kostenart_id);

SqlText OfferedCostTypes();
SqlText FindCostType(std::string_view typed_number);
// The condition under which LookupColumn reads a cost type.
SqlText IsCostType(std::int32_t id);

}  // namespace tarvoni::maschine_stamm_sql

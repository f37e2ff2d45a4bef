#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The statements of F_MaschineStamm. A label is one of the seven cost groups.
namespace tarvoni::maschine_stamm_sql {

std::string CostTypeOfGroup(std::string_view label);
std::string InsertGroup(std::string_view label);
// All rows of the label; an id of 0 means no cost type.
std::string SetCostType(std::string_view label, std::int32_t kostenart_id);

std::string OfferedCostTypes();
std::string FindCostType(std::string_view typed_number);
// The condition under which LookupColumn reads a cost type.
std::string IsCostType(std::int32_t id);

}  // namespace tarvoni::maschine_stamm_sql

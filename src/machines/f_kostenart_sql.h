#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The statements of F_Kostenart.
namespace tarvoni::kostenart_sql {

std::string CostTypesUnder(std::string_view label);
// The first column is the id.
std::string OfferedCostTypes();
std::string HasCostType(std::string_view label, std::int32_t kostenart_id);
std::string AddCostType(std::string_view label, std::int32_t kostenart_id);
std::string RemoveRow(std::int32_t id);

}  // namespace tarvoni::kostenart_sql

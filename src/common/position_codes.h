#pragma once

#include <cstdint>
#include <functional>

#include "src/common/code_field.h"

// The rules of the code fields that Screens with cost positions share. `client` gives PERSONAL.ID_PERSONAL.
namespace tarvoni {

using Client = std::function<std::int32_t()>;

// A cost centre, named by NAME.
CodeField::Rule CostCentreCode(const TvnVar_Dll& context, const TextBox& box, const Label& label,
                               Client client);
// A cost object, named by LONG.
CodeField::Rule CostObjectCode(const TvnVar_Dll& context, const TextBox& box, const Label& label,
                               Client client);
// A special feature (SONDERMERKMAL), named by LONG.
CodeField::Rule FeatureCode(const TvnVar_Dll& context, const TextBox& box, const Label& label);

}  // namespace tarvoni

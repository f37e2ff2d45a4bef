#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "src/common/code_field.h"

namespace tarvoni {

// Which common routine finds the id of a typed number; they differ in the tables whose disabled rows they hide.
enum class IdByNumber { kText, kFiltered };

// The rule of a field over a code table that is shared by sets, such as HH_KAPITEL. Offered are the codes of the
// client's set that are in use; a typed number is found by GetIdByNumberText or GetIdByNumberFiltered and named by
// GetNameById, and one that is not there is told with the label's caption.
CodeField::Rule TableCode(const TvnVar_Dll& context, const Label& label, const std::string& table,
                          const std::function<std::int32_t()>& client, IdByNumber by = IdByNumber::kText);

}  // namespace tarvoni

#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// The row of a code that the client's set in the table holds and that is not disabled; `columns` of it.
SqlText CodeInUse(const SqlText& columns, std::string_view table, std::string_view number,
                  std::int32_t client);

}  // namespace tarvoni

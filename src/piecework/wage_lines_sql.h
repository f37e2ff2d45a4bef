#pragma once

#include <cstdint>

#include "src/context/data/sql_text.h"

// The statements about wage lines that do not depend on how an order is paid.
namespace tarvoni::wage_lines_sql {

// Whether hours of ARA_KOPF were worked in a closed month, as 1 or 0.
SqlText HasClosedHours();
SqlText InsertLine(std::int32_t order);
// With its natural execution and the positions that belong to it.
SqlText DeleteLine(std::int32_t line);

}  // namespace tarvoni::wage_lines_sql

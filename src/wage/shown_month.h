#pragma once

#include "src/common/current_row.h"
#include "src/common/month_fields.h"

namespace tarvoni {

// Shows the month of a row that has it in two columns; none for NULL.
inline void ShowMonth(const CurrentRow& row, const char* month, const char* year, const MonthFields& fields) {
  fields.Clear();
  if (!row.IsNull(month)) fields.Set(row.Number(year), row.Number(month));
}

}  // namespace tarvoni

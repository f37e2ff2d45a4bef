#pragma once

#include <string>

#include "src/context/data/recordset.h"
#include "src/context/data/sql_text.h"
#include "src/context/values/locale.h"

// The path of a forest location (WALDORT) as every field and list shows it: "Kaltenwald/ Ahornboden/ a". A level
// that is missing leaves no gap.
namespace tarvoni {

// As an expression over the columns WO1 to WO6.
inline constexpr SqlText kLocationPath = R"(
ISNULL(WO1,'')
+(CASE WHEN WO2 IS NULL THEN '' ELSE '/ '+WO2 END)
+(CASE WHEN WO3 IS NULL THEN '' ELSE '/ '+WO3 END)
+(CASE WHEN WO4 IS NULL THEN '' ELSE '/ '+WO4 END)
+(CASE WHEN WO5 IS NULL THEN '' ELSE '/ '+WO5 END)
+(CASE WHEN WO6 IS NULL THEN '' ELSE '/ '+WO6 END))";
// Of a row that has these columns.
std::string LocationPathOf(const FieldList& row, const Locale& locale);

}  // namespace tarvoni

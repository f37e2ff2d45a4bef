#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/tsql/public/type.h"
#include "src/context/values/decimal.h"

// Numbers out of text and into it, as a server converts them. Blanks around a number do not count.
namespace tarvoni::sqlite {

// '' is 0. Error 245, for a BIGINT 8114, for no whole number; too large: 248 INT, 244 SMALLINT and TINYINT, 8115 BIGINT. A BIT also takes
// 'true' and 'false'.
std::int64_t WholeFromText(std::string_view text, tsql::TypeKind kind);
// In units of the `scale`th place, rounded half away from zero; error 8114 for no number, 8115 when too large.
Int128 ExactFromText(std::string_view text, int precision, int scale);
// In units of the fourth place. Takes a currency sign and group commas, and '' as 0; errors 235 and 8115.
std::int64_t MoneyFromText(std::string_view text);
// '' is 0; error 8114, or 8115 when too large.
double FloatFromText(std::string_view text);

// Whether a text is a number of any kind, be it only a money's sign.
bool IsNumericText(std::string_view text);

// At most six significant digits: "2.5", "1e+006".
std::string TextFromFloat(double value);

}  // namespace tarvoni::sqlite

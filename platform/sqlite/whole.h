#pragma once

#include <cstdint>

#include "platform/tsql/public/type.h"
#include "src/context/values/decimal.h"

// Whole numbers and flags.
namespace tarvoni::sqlite {

bool FitsKind(Int128 value, tsql::TypeKind kind);

// The value, or error 8115 when it does not fit.
std::int64_t RequireRange(Int128 value, tsql::TypeKind kind);
// The value as another type: error 220 for TINYINT and SMALLINT, 8115 for INT; a BIT becomes 0 or 1.
std::int64_t CastWhole(std::int64_t value, tsql::TypeKind kind);
// Cuts, or rounds half away from zero; error 8115.
std::int64_t WholeFromExact(Int128 units, int scale, tsql::TypeKind kind, bool round);
// Cuts; error 232.
std::int64_t WholeFromFloat(double value, tsql::TypeKind kind);

// Towards zero; errors 8134 and 8115.
std::int64_t DivideWhole(std::int64_t a, std::int64_t b);
std::int64_t Modulo(std::int64_t a, std::int64_t b);

}  // namespace tarvoni::sqlite

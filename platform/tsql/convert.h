#pragma once

#include "platform/tsql/bind_state.h"
#include "platform/tsql/bound.h"

namespace tarvoni::tsql {

// The expression as a value of `to`. A literal takes the type itself, so that nothing is converted row by
// row.
BoundPtr ConvertTo(BoundPtr value, const Type& to, BoundConvert::Mode mode = BoundConvert::Mode::kImplicit);

// A literal's own type: INT, the smallest DECIMAL that holds it, FLOAT, or text.
Type NaturalType(Literal::Kind kind, std::string_view text);

// The digits of a number literal as a whole number in units of the `scale`th place, half away from zero:
// ("1.005", 2) is "101".
std::string ScaledDigits(std::string_view literal, int scale);

}  // namespace tarvoni::tsql

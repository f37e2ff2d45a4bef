#pragma once

#include "platform/tsql/ast.h"
#include "platform/tsql/public/type.h"

// Which type an expression has, by the rules a T-SQL server documents for its data types ("Precision, scale,
// and length", "Data type precedence").
namespace tarvoni::tsql {

// The type two values meet in (CASE, UNION, comparison): the one of higher precedence, wide enough for both.
Type CommonType(const Type& a, const Type& b);

// The result of `a + b` on texts.
Type ConcatenationType(const Type& a, const Type& b);

// The result of `a op b` on numbers; both are numeric or NULL.
Type ArithmeticType(BinaryOperator op, const Type& a, const Type& b);

// Result types of the aggregates.
Type SumType(const Type& argument);
Type AverageType(const Type& argument);

// The exact type a whole number is when it meets decimals: INT is DECIMAL(10,0).
Type AsDecimal(const Type& type);

// No exact value of this type exceeds this, in units of its last place; 0 for other types.
double LimitOf(const Type& type);

double PowerOfTenLimit(int exponent);

}  // namespace tarvoni::tsql

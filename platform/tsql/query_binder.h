#pragma once

#include "platform/tsql/bind_state.h"
#include "platform/tsql/bound.h"
#include "platform/tsql/scope.h"

namespace tarvoni::tsql {

enum class QueryPlace {
  kStatement,
  kInsert,    // feeds an INSERT: ordered rows get their keys in that order
  kDerived,   // in place of a table: columns need names of their own, ORDER BY needs TOP
  kSubquery,  // a value, a list, or a test
};

// `outer` is the scope of the query around it, or nothing.
BoundQueryPtr BindQuery(BindState& state, const Scope* outer, const Query& query, QueryPlace place);

// A query inside an expression; `columns` is how many it must have (error 116), 0 for any number.
BoundQueryPtr BindSubquery(BindState& state, const Scope& outer, const Query& query, int columns);

// Gives a column of all selects of the query the type.
void ConvertColumn(BoundQuery& query, size_t column, const Type& to,
                   BoundConvert::Mode mode = BoundConvert::Mode::kImplicit);

// Whether the query gives one row at most whatever the data: TOP 1, aggregates without groups, or a unique
// key.
bool HasOneRowAtMost(const BoundQuery& query);

// Where a WHERE asks for `x IN (SELECT key FROM … GROUP BY key HAVING …)`, only the group of x counts: the query is
// narrowed to it if an index finds it. Without this all groups would be made first. Below AND alone, where unknown is
// as good as false.
void NarrowGroups(const BoundExpression& filter);

}  // namespace tarvoni::tsql

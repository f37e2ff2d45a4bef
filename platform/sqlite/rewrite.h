#pragma once

#include "platform/sqlite/statement.h"
#include "platform/tsql/public/plan.h"

namespace tarvoni::sqlite {

// Takes the rows out that `rows`, the bound query of `rewrite`, gives, puts them back with their new values and tells
// how many they are. Keys and references are tested when all are back; on an error nothing has changed.
long long RewriteRows(Handle& handle, Statement& rows, const tsql::RowRewrite& rewrite);

}  // namespace tarvoni::sqlite

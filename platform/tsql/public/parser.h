#pragma once

#include "platform/tsql/ast.h"
#include "platform/tsql/public/lexer.h"

namespace tarvoni::tsql {

// Reads a whole batch. Throws Error 102 ("near 'x'"), 156 at a reserved word, 191 when it is nested too
// deeply, and kUnsupported for what T-SQL has and this front end has not.
Batch Parse(const LexedBatch& lexed);

}  // namespace tarvoni::tsql

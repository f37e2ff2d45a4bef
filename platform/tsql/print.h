#pragma once

#include <string>

#include "platform/tsql/ast.h"
#include "platform/tsql/public/lexer.h"

namespace tarvoni::tsql {

// The tree as T-SQL text, in one spelling for whatever was written: parsed again it gives the same tree.
// `lexed` is what the tree was parsed from; it lends the literals.
std::string Print(const Batch& batch, const LexedBatch& lexed);
std::string Print(const Statement& statement, const LexedBatch& lexed);
std::string Print(const Query& query, const LexedBatch& lexed);
std::string Print(const Expression& expression, const LexedBatch& lexed);

}  // namespace tarvoni::tsql

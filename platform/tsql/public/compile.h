#pragma once

#include <memory>
#include <string>

#include "platform/tsql/public/plan.h"

namespace tarvoni::tsql {

struct CompileOptions {
  std::string identity_insert;   // the table for which SET IDENTITY_INSERT is on; empty for none
  std::string temporary_suffix;  // makes the stored names of this plan's temporary tables its own
};

// Binds and emits a parsed batch. Throws Error for what a server refuses before it runs anything of the
// batch.
Plan Compile(const LexedBatch& lexed, std::shared_ptr<const Batch> batch, const Catalogue& catalogue,
             const CompileOptions& options);

// The steps of one deferred statement, with the tables there are now. Throws Error 208 if one is still
// missing.
Plan CompileDeferred(const LexedBatch& lexed, std::shared_ptr<const Batch> batch, const Statement& statement,
                     const Catalogue& catalogue, const CompileOptions& options);

}  // namespace tarvoni::tsql

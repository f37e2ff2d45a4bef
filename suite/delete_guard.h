#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// Asks once more where other rows hang on what is to be deleted. `sql` finds those rows. Without any, deleting
// goes on unasked. Otherwise one question holds both messages, the first telling of the rows, the second asking
// whether they may go as well. No is the default.
class DeleteGuard final : public tarvoni::DeleteGuard {
 public:
  // "1" to go on, else "0".
  std::string ConfirmDelete(const SqlText& sql, std::int32_t first_message, std::int32_t second_message,
                            const TvnVar_Dll& context) override;
};

}  // namespace tarvoni::suite

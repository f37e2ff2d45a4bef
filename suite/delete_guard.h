#pragma once

#include "src/context/services.h"

namespace tarvoni {

// Asks once more where other rows hang on what is to be deleted. `sql` finds those rows. Without any, deleting
// goes on unasked. Otherwise the first message is the question, with Yes and No, No being the default; after a
// No the second message tells that nothing was deleted.
class SuiteDeleteGuard : public DeleteGuard {
 public:
  // "1" to go on, else "0".
  std::string ConfirmDelete(const std::string& sql, std::int32_t first_message, std::int32_t second_message,
                            const TvnVar_Dll& context) override;
};

}  // namespace tarvoni

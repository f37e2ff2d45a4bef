#pragma once

#include "src/context/services.h"

namespace tarvoni::suite {

// The numbered messages in the language of the current locale.
class MessageService final : public tarvoni::MessageService {
 public:
  // The texts do not depend on the Screen that shows them, so nothing is kept of it.
  void Bind(const TvnVar_Dll&, Form&) override {}
  // A number without a text gives a sentence that names it.
  std::string GetMessage(std::int32_t number, const TvnVar_Dll& context) override;
};

}  // namespace tarvoni::suite

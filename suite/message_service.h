#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The numbered messages in the language of the current locale.
class MessageService final : public tarvoni::MessageService {
 public:
  // Gives a caption to the labels that the suite names and the Screen left empty.
  void Bind(const TvnVar_Dll& context, Form& form) override;
  // A number without a text gives a sentence that names it.
  std::string GetMessage(std::int32_t number, const TvnVar_Dll& context) override;
};

}  // namespace tarvoni::suite

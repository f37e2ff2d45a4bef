#include "suite/message_service.h"

#include <algorithm>

#include "src/context/environment.h"
#include "suite/message_texts.h"

namespace tarvoni::suite {

std::string MessageService::GetMessage(std::int32_t number, const TvnVar_Dll&) {
  const bool german = CurrentLocale().language == Language::kGerman;
  const auto text = std::ranges::lower_bound(MessageTexts(), number, {}, &MessageText::number);
  if (text != MessageTexts().end() && text->number == number)
    return std::string(german ? text->german : text->english);
  return (german ? "Es gibt keinen Text zur Meldung " : "There is no text for message ") +
         std::to_string(number) + ".";
}

}  // namespace tarvoni::suite

#include "suite/message_service.h"

#include <algorithm>
#include <array>

#include "src/context/controls/controls.h"
#include "src/context/controls/form.h"
#include "src/context/services/environment.h"
#include "suite/message_texts.h"

namespace tarvoni::suite {
namespace {

struct LabelText {
  const char* label;
  const char* german;
  const char* english;
};
// The consumption of a machine, on every Screen that shows its costs.
constexpr auto kLabelTexts =
    std::to_array<LabelText>({{"lblVK", "Treibstoff", "Fuel"}, {"lbOI", "Öl", "Oil"}});

bool InGerman() {
  return CurrentLocale().language == Language::kGerman;
}

}  // namespace

void MessageService::Bind(const TvnVar_Dll&, Form& form) {
  for (const LabelText& text : kLabelTexts) {
    auto* label = dynamic_cast<Label*>(form.FindByFullName(text.label));
    if (label && label->Caption().empty()) label->SetCaption(InGerman() ? text.german : text.english);
  }
}

std::string MessageService::GetMessage(std::int32_t number, const TvnVar_Dll&) {
  const bool german = InGerman();
  const auto text = std::ranges::lower_bound(MessageTexts(), number, {}, &MessageText::number);
  if (text != MessageTexts().end() && text->number == number)
    return std::string(german ? text->german : text->english);
  return (german ? "Es gibt keinen Text zur Meldung " : "There is no text for message ") +
         std::to_string(number) + ".";
}

}  // namespace tarvoni::suite

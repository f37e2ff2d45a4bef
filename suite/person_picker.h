#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The choice of a payee among the active persons of a type ("2PLIEF": suppliers). It offers those of the
// standard client and those without a client, and by a further button those of every client; without a
// standard client all at once. The numbers -1, the four texts and the scope change nothing.
class PersonPicker final : public tarvoni::PersonPicker {
 public:
  // `current`, on which the list stands, is also the result if none is chosen.
  std::int32_t PickPayee(const TvnVar_Dll& context, std::int32_t first, const std::string& type_key,
                         std::int32_t second, bool& chosen, const std::string& text_a,
                         const std::string& text_b, const std::string& text_c, const std::string& text_d,
                         std::int32_t standard_client, std::int32_t current, std::int32_t scope) override;
};

}  // namespace tarvoni::suite
